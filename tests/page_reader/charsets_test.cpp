// The charsets of pages: their labels, and their bytes with what is wrong in them.
#include "platform/code_pages/charsets.h"

#include <gtest/gtest.h>

#include <string>

#include "text/encodings.h"

namespace quillary::platform {
namespace {

TEST(Charsets, Labels) {
  EXPECT_EQ(Charset::Windows1252, FindCharset("\t ISO-8859-1\n"));
  EXPECT_EQ(Charset::Windows1252, FindCharset("latin1"));
  EXPECT_EQ(Charset::Windows1254, FindCharset("iso-8859-9"));
  EXPECT_EQ(Charset::Windows874, FindCharset("TIS-620"));
  EXPECT_EQ(Charset::Gbk, FindCharset("gb2312"));
  EXPECT_EQ(Charset::EucKr, FindCharset("ks_c_5601-1987"));
  for (const char* label : {"", " ", "utf-8 utf8", "utf", "iso-8859-1 ;", "8859"}) {
    EXPECT_EQ(std::nullopt, FindCharset(label)) << label;
  }
}

TEST(Charsets, Decode) {
  const struct {
    const char* label;
    std::string bytes;
    Text text;
  } cases[] = {
      {"utf-16le", std::string("\x3D\xD8\0\xDE\x3D\xD8<\0\0\xDEx", 11), u"😀\uFFFD<\uFFFD\uFFFD"},
      {"utf-16be", std::string("\xD8\x3D\xDE\0\xD8\x3D", 6), u"😀\uFFFD"},
      {"shift_jis", "\x93\xFA\xB1\x81\x45\\", u"日ｱ・\\"},
      {"shift_jis", "\x93<b>\x85\x41\x85\xAC\x93", u"\uFFFD<b>\uFFFDA\uFFFD\uFFFD"},
      {"gbk", "\xD6\xD0\x80?", u"中€?"},
      {"gb2312", std::string("\xD6\0\xD6", 3), Text(u"\uFFFD\0\uFFFD", 3)},
      {"gb18030", "\xD6\xD0\x94\x39\xFC\x36<\xD6<", u"中😀<\uFFFD<"},
      {"big5", "\xA4\xA4<\xA4", u"中<\uFFFD"},
      {"big5-hkscs", "\xA4\xA4\x88\x62\xA4", u"中\u00CA\u0304\uFFFD"},
      {"big5-hkscs", "\x88\x66", u"\u00CA"},
      {"euc-kr", "\xC7\xD1\xC7<", u"한\uFFFD<"},
      {"euc-jp", "\xC6\xFC\x8E\xB1\xAD\xA1\x8F\xB0\xA1<\xC6<\xC6", u"日ｱ①丂<\uFFFD<\uFFFD"},
      {"iso-2022-jp", "a\x1B$B\x46\x7C\x46\x7C\x1B(Bb\x1B$@\x46\x7C\x1B(J\\~", u"a日日b日\\~"},
      {"iso-2022-jp", "\x1B(I1\x1B$(D0!\x1B$B-!", u"ｱ丂①"},
      {"iso-2022-jp", "\xC6\xFC\x1B$BF\nF|F\x1B(B<", u"\uFFFD\uFFFD\uFFFD\n日\uFFFD<"},
      {"iso-8859-7", "\xE1\xAE\xFF<", u"α\uFFFD\uFFFD<"},
      {"windows-1253", "\xE1", u"α"},
      {"koi8-u", "\xA4", u"є"},
      {"ibm866", "\x8F", u"П"},
      {"x-mac-cyrillic", "\x8F", u"П"},
      {"macintosh", "\x8E", u"é"},
  };
  for (const auto& row : cases) {
    EXPECT_EQ(ToUtf8(row.text), ToUtf8(DecodeCharset(FindCharset(row.label).value(), row.bytes)))
        << row.label;
  }
  // More than one block of the converter.
  const std::string many(20000, '\xC1');
  EXPECT_EQ(Text(20000, u'а'), DecodeCharset(Charset::Koi8R, many));
  for (int number = 0; number <= static_cast<int>(Charset::EucKr); ++number) {
    EXPECT_EQ(u"", DecodeCharset(static_cast<Charset>(number), "")) << number;
  }
}

}  // namespace
}  // namespace quillary::platform
