// Charsets, floats and Arabic runs: the tables against other converters, what pages become
// through them, and their cost.
#include <gtest/gtest.h>
#include <iconv.h>

#include <chrono>

#include "html_to_rtf/charsets/charsets.h"
#include "html_to_rtf/driver/convert_html_document.h"
#include "html_to_rtf/floats/floats.h"
#include "text/encodings.h"

namespace quillary::HTMLRTFConverter {
namespace {

// The one character that the C library makes of bytes of a national charset, 0 if none.
int Decoded(iconv_t converter, std::string bytes) {
  char16_t units[4] = {};
  char* source = bytes.data();
  char* target = reinterpret_cast<char*>(units);
  std::size_t left = bytes.size();
  std::size_t room = sizeof units;
  iconv(converter, nullptr, nullptr, nullptr, nullptr);
  if (iconv(converter, &source, &left, &target, &room) != 0 || left > 0) return 0;
  return room == sizeof units - sizeof(char16_t) ? units[0] : 0;
}

std::string RtfOf(char16_t character) {
  if (character == 0x2014) return "\\emdash ";
  if (character == 0x2018) return "\\lquote ";
  if (character == 0x2019) return "\\rquote ";
  if (character == 0x2C7) return "\\'a1";
  const std::string byte = ToWindows1252(Text(1, character), '\0');
  char word[20];
  if (byte[0] != '\0') {
    std::snprintf(word, sizeof word, "\\'%02x", static_cast<unsigned char>(byte[0]));
  } else {
    const char* fallback = character == 0x2C9 ? "af" : character == 0x2236 ? "3a" : "3F";
    std::snprintf(word, sizeof word, "\\u%d\\'%s", static_cast<std::int16_t>(character), fallback);
  }
  return word;
}

// The national charsets are another source than the Windows code pages that the tables were
// made from, and differ from these in a few signs.
TEST(CjkTables, HoldTheNationalCharsets) {
  const iconv_t jis = iconv_open("UTF-16LE", "EUC-JP");
  const iconv_t gb = iconv_open("UTF-16LE", "GB2312");
  ASSERT_NE(jis, reinterpret_cast<iconv_t>(-1));
  ASSERT_NE(gb, reinterpret_cast<iconv_t>(-1));
  std::string different;
  for (int row = 0; row < 94; ++row) {
    for (int cell = 0; cell < 94; ++cell) {
      const std::string bytes = {static_cast<char>(0xA1 + row), static_cast<char>(0xA1 + cell)};
      const auto check = [&](const char* table, iconv_t converter, Text decoded) {
        const int character = Decoded(converter, bytes);
        const std::string expected = character == 0 ? "" : RtfOf(static_cast<char16_t>(character));
        const std::string found = ToUtf8(ReplaceAll(decoded, u"#\\#", u"\\"));
        if (found != expected)
          different += table + std::to_string(row + 1) + '-' + std::to_string(cell + 1) + ' ';
      };
      Text run = {0x1B, u'$', u'B', static_cast<char16_t>(0x21 + row), static_cast<char16_t>(0x21 + cell),
                  0x1B, u'(', u'B'};
      ConvertIso2022Jp(run);
      check("jis ", jis, run);
      run = {static_cast<char16_t>(0xA1 + row), static_cast<char16_t>(0xA1 + cell)};
      DecodeGb2312Run(run);
      check("gb ", gb, run);
    }
  }
  iconv_close(jis);
  iconv_close(gb);
  // Middle dot and dash; wave dash, parallel sign, minus, cent, pound and not sign.
  EXPECT_EQ(different, "gb 1-4 gb 1-10 jis 1-33 jis 1-34 jis 1-61 jis 1-81 jis 1-82 jis 2-44 ");
}

Text Converted(const Text& page) {
  Apartment apartment;
  Text source = page;
  return ConvertHtmlDocument(apartment, source, u"", u"", 0);
}

TEST(Pages, AreReadInTheirCharset) {
  const struct {
    Text page;
    std::vector<TextView> words;
  } cases[] = {
      {u"<html><head><meta content=\"text/html; charset=gb2312\"></head><body>a\u00D6\u00D0{b</body></html>",
       {u"\\fcharset134 ", u"\\deflang1028", u"a\\u20013\\'3F\\{b"}},
      {u"<html><head><meta content=\"text/html; "
       u"charset=iso-2022-jp\"></head><body>\x1B$BF|\x1B(B\\</body></html>",
       {u"\\fcharset0 ", u"\\u26085\\'3F\\\\"}},
      {u"<html><head><meta content=\"charset=big5\"></head><body>x</body></html>",
       {u"\\fcharset136 ", u"\\deflang1054", u"\\lang1054"}},
  };
  for (const auto& [page, words] : cases) {
    const Text rtf = Converted(page);
    for (const TextView word : words) EXPECT_TRUE(Holds(rtf, word)) << ToUtf8(word) << " in " << ToUtf8(rtf);
  }
}

// Step for step: definitions, sheets, floats and Arabic runs at their places.
TEST(Pages, GoThroughAllStages) {
  const Text rtf = Converted(
      u"<html><head><style>.r{color:#FF8040;font:12pt Georgia} P.big{font-size:30pt}</style></head><body>"
      u"<p class=r>one</p><p class=\"big\">two</p><div style=\"float:left;width:100px;\">three</div>"
      u"<div style=\"x\">four</div><p lang=\"ar-sa\">five</p></body></html>");
  for (const TextView word : {u"\\red255\\green128\\blue64;", u"GEORGIA", u"\\fs24\\cf6 one",
                              u"\\fs60\\cf1 two", u"\\cellx1500", u"\\ltrch\\fcs1 \\rtlch\\fcs0"}) {
    EXPECT_TRUE(Holds(rtf, word, Compare::IgnoreCase)) << ToUtf8(word) << " in " << ToUtf8(rtf);
  }
  Text word_page =
      u"<html><head><meta name=Generator content=\"Microsoft Word 11\"><style>/* Style Definitions */ p.N\n"
      u"{font-family:Tahoma;}/* List Definitions */@list "
      u"l0:level1{mso-level-text:-;font-family:Symbol;}</style>"
      u"</head><body><ul><li style='mso-list:l0 level1 lfo1'>item</li></ul></body></html>";
  EXPECT_TRUE(Holds(Converted(word_page), u"SYMBOL", Compare::IgnoreCase));
}

TEST(Stages, CostNoMoreThanThePage) {
  const auto repeated = [](TextView text) {
    Text page = u"<p>";
    while (page.size() < (std::size_t{1} << 18)) page += text;
    return page;
  };
  const auto start = std::chrono::steady_clock::now();
  for (const TextView piece :
       {u"<div style=\"float:left\">a", u"float ", u"<p float>", u"<p style=float\t"}) {
    Text page = repeated(piece) + repeated(u"</div>");
    FloatsToTables(page);
  }
  for (const TextView piece : {u"<b lang=ar-sa >a", u"lang=ar-sa ", u"<p lang=ar-sa"}) {
    Text page = repeated(piece) + repeated(u"</b>");
    MarkArabicRuns(page);
  }
  for (const TextView piece : {u"<meta", u"<meta charset=", u"<meta>"}) {
    HtmlToRtfState state;
    DetectCharset(state, repeated(piece) + u"><body>");
  }
  for (const TextView piece : {u"\x1B$B!!\x1B(B", u"\x1B$B\x1B(J", u"\x1B$@"}) {
    Text page = repeated(piece);
    ConvertIso2022Jp(page);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

}  // namespace
}  // namespace quillary::HTMLRTFConverter
