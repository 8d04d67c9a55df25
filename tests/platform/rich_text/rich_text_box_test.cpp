// The rich text control as a host sees it: it takes anything, within its limit.
#include "platform/rich_text/rich_text_box.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/rich_text/rich_text_cases.h"
#include "text/encodings.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::platform {
namespace {

TEST(RichTextBox, TakesPlainText) {
  const auto box = MakeRichTextBox();
  const std::string empty = ToUtf8(box->TextRTF());
  EXPECT_EQ(
      empty,
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans Serif;}}\r\n"
      "\\viewkind4\\uc1\\pard\\fs17 \r\n\\par }");
  box->SetText(u"");
  EXPECT_EQ(ToUtf8(box->TextRTF()), empty);
  box->SetTextRTF(u"");
  EXPECT_EQ(ToUtf8(box->TextRTF()), empty);
  EXPECT_EQ(box->PlainText(), u"");

  const Text plain = u"{a}\\b\tc\r\n\r\nd\u20ac\u0416\ne\rf";
  box->SetText(plain);
  EXPECT_TRUE(ToUtf8(box->TextRTF())
                  .ends_with("\\fs17 \\{a\\}\\\\b\\tab c\r\n\\par \r\n\\par d\\'80\\u1046?\r\n\\par "
                             "e\r\n\\par f\r\n\\par }"));
  EXPECT_EQ(box->PlainText(), u"{a}\\b\tc\r\n\r\nd\u20ac\u0416\r\ne\r\nf");
  const Text rtf = box->TextRTF();
  box->SetTextRTF(rtf);
  EXPECT_EQ(box->TextRTF(), rtf);
  box->SetTextRTF(u"no header \\b here");
  EXPECT_EQ(box->PlainText(), u"no header \\b here");
  box->SetText(u"a\u0001b\u000bc\u0080\u009f\u0081\u007f\u00a0\td\r\r\n\n\re\u001f ");
  EXPECT_TRUE(
      ToUtf8(box->TextRTF())
          .ends_with("\\fs17 ab\\line c\\'80\\'9f\\'81\\u127?\\~\\tab d\r\n\\par \r\n\\par \r\n\\par \r\n"
                     "\\par e\\~\\lang1033 \r\n\\par }"));
  for (const TextView start : {u"\u00EF\u00BB\u00BF", u"\uFEFF", u" \r\n", u"\u00EF\u00BB\u00BF\uFEFF \t"}) {
    box->SetTextRTF(Text(start) + u"{\\rtf1 a}");
    EXPECT_EQ(box->PlainText(), u"a") << start.size();
  }
  box->SetTextRTF(u"\uFEFF\uFEFF{\\rtf1 a}");
  EXPECT_EQ(box->PlainText(), u"\uFEFF\uFEFF{\\rtf1 a}");
  box->SetText(u"line\r\n");
  EXPECT_EQ(box->PlainText(), u"line\r\n");
}

TEST(RichTextBox, MakesADocumentOfAnything) {
  const std::string deep = [] {
    std::string text = "{\\rtf1 ";
    for (int i = 0; i < 100000; ++i) text += "{\\b ";
    text += "x";
    return text + std::string(100000, '}') + "}";
  }();
  CheckTexts({
      {"a hundred thousand groups", deep, "x"},
      {"more groups than are kept",
       "{\\rtf1 " + std::string(200010, '{') + "x" + std::string(200010, '}') + "y}z", "xy"},
      {"a control word of a megabyte", "{\\rtf1 a\\" + std::string(1 << 20, 'b') + " c}", "ac"},
      {"numbers beyond 32 bits",
       "{\\rtf1 \\fs99999999999999999999 a\\li-99999999999999\\u99999999999?b\\uc99999999999 c}", "abc"},
      {"binary data cut short", Document("a{\\pict\\pngblip\\bin100000 bcd"), "a"},
      {"missing braces", "{\\rtf1 a{\\b b", "ab"},
      {"surplus braces", "{\\rtf1 a}}b}c", "abc"},
      {"dirt after the end", std::string("{\\rtf1 a}\0\x1a dirt", 17), "a"},
      {"damaged escapes", "{\\rtf1 \\'zz\\''b0 \\'4}", "zz'b0 4"},
      {"a backslash at the end", "{\\rtf1 a\\", "a"},
      {"nothing but a header", "{\\rtf1}", ""},
      {"cells without a table", "{\\rtf1 a\\cell b\\cell\\row c}", "a\tb\r\nc"},
      {"rows without cells", "{\\rtf1 a\\row b\\row}", "a\r\nb\r\n"},
  });
  // The formatting of the last that is kept is that of all in it.
  EXPECT_TRUE(Body("{\\rtf1" + std::string(199996, '{') + "\\b a{\\i b{\\ul c{\\strike d}e}f}g" +
                   std::string(199996, '}') + "y}")
                  .ends_with("\\b\\fs24 a\\i b\\ul c\\strike de\\ulnone\\strike0 f\\i0 g\\b0 y"));
  const auto box = MakeRichTextBox();
  const TextView too_long(u"x", limits::kInputUnits + 1);  // refused before it is read
  EXPECT_THROW(box->SetTextRTF(too_long), LimitReached);
  EXPECT_THROW(box->SetText(too_long), LimitReached);
}

}  // namespace
}  // namespace quillary::platform
