#include "platform/code_pages/code_pages.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "platform/code_pages/code_page_decoder.h"
#include "text/encodings.h"
#include "text/failure.h"

namespace quillary::platform {
namespace {

std::string Pair(unsigned lead, unsigned trail) {
  return {static_cast<char>(lead), static_cast<char>(trail)};
}

// The sums were taken from an independent collection of Windows' tables, not
// from this program: every byte, and every byte but 00 after every lead byte.
TEST(CodePages, EveryByteAndPairIsWindowsOwn) {
  const struct {
    int code_page;
    std::uint64_t sum;
  } pages[] = {
      {874, 0xD5BDCD9287EE9D55U},  {932, 0x387BA29680FD251BU},  {936, 0xE6E9562EB3F7AE6CU},
      {949, 0x681B0625771D0F45U},  {950, 0x1CD9521798F82C28U},  {1250, 0xAC48CDDE333FFA85U},
      {1251, 0xCA114016ECB1381DU}, {1252, 0xEAE2C6935E09DE0FU}, {1253, 0xAB9042CBC706DCC6U},
      {1254, 0x12D17DA4FB1EF747U}, {1255, 0x0EA8A4FE84370774U}, {1256, 0x900708B87A001160U},
      {1257, 0x2C88BA1DE03B5AABU}, {1258, 0x74C8D2457BDDD036U},
  };
  for (const auto& page : pages) {
    std::uint64_t sum = 0xCBF29CE484222325U;
    const auto add = [&](const std::string& bytes) {
      const Text text = DecodeBytes(page.code_page, bytes);
      ASSERT_EQ(1u, text.size()) << page.code_page;
      sum = (sum ^ text[0]) * 0x100000001B3U;
    };
    for (unsigned byte = 0; byte < 256; ++byte) add(std::string(1, static_cast<char>(byte)));
    for (unsigned lead = 0; lead < 256; ++lead) {
      if (!IsLeadByte(page.code_page, static_cast<unsigned char>(lead))) continue;
      for (unsigned trail = 1; trail < 256; ++trail) add(Pair(lead, trail));
    }
    EXPECT_EQ(page.sum, sum) << page.code_page;
  }
}

TEST(CodePages, KnownCharacters) {
  const struct {
    int code_page;
    std::string bytes;
    Text text;
  } rows[] = {
      {932, "\x93\xFA\x96{A\xB1", u"日本Aｱ"},
      {932, "\x81\x60\x81\x7C\x87\x40\xFA\x55\xEE\xFA", u"～－①￤￤"},
      {932, "\x5C\x7E\x80\xA0\xFD\xFF", u"\\~\u0080\uF8F0\uF8F1\uF8F3"},
      {932, "\xF0\x40\xF9\xFC", u"\uE000\uE757"},
      {936, "\xD6\xD0\xCE\xC4\x80\xFF", u"中文€\uF8F5"},
      {936, "\xA1\xA4\xA1\xAA\xA2\xE3\xA1\x7E\xA1\x80", u"·—\uE76C\uE504\uE505"},
      {949, "\xC7\xD1\xB1\xB9\xC9\xA1\xFE\xFE", u"한국\uE000\uE0BB"},
      {950, "\xA4\xA4\xA4\xE5\xA1\x45\xA3\xE1", u"中文‧€"},
      {950, "\xC6\xA1\xC7\x40\xC8\xFE\xF9\xD6\xFA\x40\x81\x40", u"\uF6B1\uF70F\uF848碁\uE000\uEEB8"},
      {1250, "\x8A\xB9\x81", u"Šą\u0081"},
      {1251, "\xCF\xF0\x98", u"Пр\u0098"},
      {1253, "\xE1\xAA\xD2\xFF", u"α\uF8F9\uF8FA\uF8FB"},
      {1254, "\xDD\xFD", u"İı"},
      {1255, "\xE0\xC8\xCA\xD9", u"א\u05B8\u05BA\uF88D"},  // a letter and its point stay two characters
      {1256, "\xE3\x81", u"مپ"},
      {1257, "\xA1\xA5\xE6", u"\uF8FC\uF8FDę"},
      {1258, "A\xD2\xFE", u"A\u0309₫"},
      {874, "\xA1\xDB\xFF", u"ก\uF8C1\uF8C8"},
      {437, "\x80\xE1", u"Çß"},
      {850, "\xD5", u"ı"},
      {1361, "\x88\x61\x5C", u"가\\"},
      {10000, "\x8E\xC6\xF0", u"é∆\uF8FF"},
  };
  for (const auto& row : rows) EXPECT_EQ(row.text, DecodeBytes(row.code_page, row.bytes)) << row.code_page;
}

TEST(CodePages, WhatNoPageDefines) {
  EXPECT_EQ(u"・A", DecodeBytes(932,
                                "\x81\xFF"
                                "A"));
  EXPECT_EQ(u"?A", DecodeBytes(950,
                               "\x81\x30"
                               "A"));
  EXPECT_EQ(u"x・", DecodeBytes(932, "x\x93"));
  EXPECT_EQ(Text(u"?\0y", 3), DecodeBytes(936, std::string("\xD6\0y", 3)));
  EXPECT_EQ(u"?", DecodeBytes(949, "\xC9"));
  EXPECT_TRUE(IsLeadByte(932, 0xFC));
  EXPECT_FALSE(IsLeadByte(932, 0xA1));
  EXPECT_FALSE(IsLeadByte(1252, 0xE1));
  for (const int unknown : {0, 1, 42, 65001}) {
    EXPECT_FALSE(IsKnownCodePage(unknown));
    EXPECT_THROW(DecodeBytes(unknown, ""), Failure);
  }
}

TEST(CodePages, SeveralThreadsMayBeFirst) {
  std::vector<Text> results(4);
  std::vector<std::thread> threads;
  for (Text& result : results) {
    threads.emplace_back([&result] { result = DecodeBytes(949, "\xC7\xD1") + DecodeBytes(1258, "\xD0"); });
  }
  for (std::thread& thread : threads) thread.join();
  for (const Text& result : results) EXPECT_EQ(u"한Đ", result);
}

TEST(TextEncodings, Utf8) {
  EXPECT_EQ(u"a\u00E9\u20AC\U0001F600", FromUtf8("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80"));
  // Next to what is broken.
  EXPECT_EQ(u"\u0800\uD7FF\U00010000\U0010FFFF",
            FromUtf8("\xE0\xA0\x80\xED\x9F\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF"));
  EXPECT_EQ("a\xC3\xA9\xE2\x82\xAC\xF0\x9F\x98\x80", ToUtf8(u"a\u00E9\u20AC\U0001F600"));
  const struct {
    const char* bytes;
    Text text;
  } broken[] = {
      {"\xC0\x80", u"\uFFFD\uFFFD"},            // overlong
      {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},  // overlong
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},  // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xE2\x82", u"\uFFFD"},  // cut off
      {"\xE2\x82x", u"\uFFFDx"},
      {"\xF0\x9F\x98\xC3\xA9", u"\uFFFD\u00E9"},
      {"\x80\xFF", u"\uFFFD\uFFFD"},
  };
  for (const auto& row : broken) EXPECT_EQ(row.text, FromUtf8(row.bytes)) << row.bytes;
  const Text lone = {u'a', 0xD83D, u'b', 0xDE00, 0xD83D};
  EXPECT_EQ(
      "a\xEF\xBF\xBD"
      "b\xEF\xBF\xBD\xEF\xBF\xBD",
      ToUtf8(lone));
}

TEST(TextEncodings, Windows1252) {
  std::string all;
  for (unsigned byte = 0; byte < 256; ++byte) all.push_back(static_cast<char>(byte));
  EXPECT_EQ(DecodeBytes(1252, all), FromWindows1252(all));
  EXPECT_EQ(all, ToWindows1252(FromWindows1252(all), '?'));
  EXPECT_EQ("?\x80??", ToWindows1252(u"\u0080€\U0001F600", '?'));
  EXPECT_EQ("a b", ToWindows1252(u"aαb", ' '));
}

TEST(CodePageDecoder, DecodesOnlyTheEscapes) {
  const auto decoder = MakeCodePageDecoder();
  const struct {
    int code_page;
    Text run;
    Text decoded;
  } rows[] = {
      {932, u"\\'93\\'FA\\'96\\'7b", u"日本"},
      {932, u"\\f1 \\'93\\'fa{x}\\b0\\'b1.", u"\\f1 日{x}\\b0ｱ."},
      {932, u"\\'93x\\'fa", u"・x・"},  // text between two escapes parts them
      {1251, u"\\'cf\\'F0 caf\u00E9 \\'c", u"Пр caf\u00E9 \\'c"},
      {1251, u"\\'zz\\'cf\\'", u"\\'zzП\\'"},
      {1251, u"\\\\'cf", u"\\П"},
      {936, u"", u""},
      {936, u"no escapes", u"no escapes"},
  };
  for (const auto& row : rows) EXPECT_EQ(row.decoded, decoder->ToString(row.code_page, row.run));
  for (const int other : {0, 437, 1252, 1361}) EXPECT_THROW(decoder->ToString(other, u""), Failure);
  // Of the charsets with a code page these have one that no escape is decoded by.
  for (int charset = 0; charset < 256; ++charset) {
    const int page = CodePageOfCharset(charset);
    const bool other = charset == 77 || charset == 130 || charset == 254 || charset == 255;
    EXPECT_EQ(page != 0, IsKnownCodePage(page)) << charset;
    EXPECT_EQ(page != 0 && !other, DecodesEscapes(page)) << charset;
  }
}

}  // namespace
}  // namespace quillary::platform
