// The search under everything against the plain search it must equal, and the
// limits of checked numbers.
#include "text/text.h"

#include <gtest/gtest.h>

#include <cctype>
#include <random>

#include "text/ascii.h"
#include "text/case_folding.h"
#include "text/encodings.h"
#include "text/integer16.h"
#include "text/search.h"

namespace quillary {
namespace {

std::size_t PlainSearch(TextView text, TextView find, std::size_t from, Compare mode) {
  for (std::size_t at = from; at + find.size() <= text.size(); ++at) {
    if (Equal(text.substr(at, find.size()), find, mode)) return at;
  }
  return Finder::npos;
}

TEST(Finder, FindsWhatAPlainSearchFinds) {
  std::mt19937 random(7);
  const Text alphabet = u"abABkK\u212As\u017FþÞ<\\ ";
  const auto pick = [&](std::size_t longest) {
    Text text(random() % (longest + 1), u' ');
    for (char16_t& unit : text) unit = alphabet[random() % alphabet.size()];
    return text;
  };
  for (int round = 0; round < 20000; ++round) {
    const Text text = pick(40);
    const Text find = pick(4);
    const Compare mode = random() % 2 == 0 ? Compare::Binary : Compare::IgnoreCase;
    const std::size_t from = random() % 42;
    const std::size_t expected = find.empty() ? Finder::npos : PlainSearch(text, find, from, mode);
    ASSERT_EQ(expected, Finder(find, mode).Next(text, from));
  }
}

TEST(CaseFolding, KeepsEveryVariantOfEveryUnit) {
  for (std::uint32_t unit = 0; unit < 0x10000; ++unit) {
    const auto variants = FoldVariants(static_cast<char16_t>(unit));
    ASSERT_NE(variants.end(), std::find(variants.begin(), variants.end(), static_cast<char16_t>(unit)))
        << unit;
  }
}

TEST(Ascii, KnowsItsCharactersAndNoOthers) {
  for (int unit = -128; unit < 0x10000; ++unit) {
    const bool ascii = unit >= 0 && unit < 0x80;
    ASSERT_EQ(ascii && std::isdigit(unit) != 0, IsAsciiDigit(unit)) << unit;
    ASSERT_EQ(ascii && std::isalpha(unit) != 0, IsAsciiLetter(unit)) << unit;
    ASSERT_EQ(ascii && std::isalnum(unit) != 0, IsAsciiAlphanumeric(unit)) << unit;
    ASSERT_EQ(ascii ? std::tolower(unit) : unit, AsciiLower(unit)) << unit;
    ASSERT_EQ(ascii ? std::toupper(unit) : unit, AsciiUpper(unit)) << unit;
    ASSERT_EQ(ascii && std::isxdigit(unit) != 0, HexDigitValue(unit) >= 0) << unit;
  }
  EXPECT_FALSE(IsAsciiSpaceOrControl('\xA0'));
  for (int value = 0; value < 16; ++value) EXPECT_EQ(value, HexDigitValue(HexDigit(value)));
}

TEST(Encodings, ReadAndWriteEveryLengthOfUtf8) {
  constexpr struct {
    std::string_view bytes;
    TextView text;
  } kWhole[] = {
      {"a\x7F", u"a\u007F"},
      {"\xC2\x80\xDF\xBF", u"\u0080\u07FF"},
      {"\xE0\xA0\x80\xED\x9F\xBF", u"\u0800\uD7FF"},
      {"\xEE\x80\x80\xEF\xBF\xBF", u"\uE000\uFFFF"},
      {"\xF0\x90\x80\x80\xF4\x8F\xBF\xBF", u"\U00010000\U0010FFFF"},
  };
  for (const auto& each : kWhole) {
    EXPECT_EQ(FromUtf8(each.bytes), each.text) << each.bytes;
    EXPECT_EQ(ToUtf8(each.text), each.bytes) << each.bytes;
  }
  // What begins no character, or is cut short, is one replacement character for its longest beginning.
  constexpr struct {
    std::string_view bytes;
    TextView text;
  } kDamaged[] = {
      {"\x80\xBF", u"\uFFFD\uFFFD"},
      {"\xC1\x80\xF5\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xC2", u"\uFFFD"},
      {"\xE1\x80", u"\uFFFD"},
      {"\xF1\x80\x80", u"\uFFFD"},
      {"\xC2\x7F\xC2\xC0", u"\uFFFD\u007F\uFFFD\uFFFD"},
      {"\xE0\x9F\xBF", u"\uFFFD\uFFFD\uFFFD"},
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},
      {"\xF0\x8F\xBF\xBF", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},
      {"\xE1\x80z\xF1\x80\x80z", u"\uFFFDz\uFFFDz"},
  };
  for (const auto& each : kDamaged) EXPECT_EQ(FromUtf8(each.bytes), each.text);
  const Text halves = {0xD800, u'a', 0xDC00, 0xDBFF, 0xD800, 0xDFFF, 0xDBFF};
  EXPECT_EQ(ToUtf8(halves), "\uFFFDa\uFFFD\uFFFD\U000103FF\uFFFD");
}

TEST(Encodings, GoFromWindows1252AndBack) {
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  const Text text = FromWindows1252(all);
  EXPECT_EQ(ToWindows1252(text, '?'), all);
  EXPECT_EQ(text.substr(0x7F, 6), u"\u007F\u20AC\u0081\u201A\u0192\u201E");
  EXPECT_EQ(text.substr(0x9E, 3), u"\u017E\u0178\u00A0");
  for (std::size_t byte = 0; byte < 256; ++byte) EXPECT_EQ(RawByte(text[byte]), static_cast<int>(byte));
  EXPECT_EQ(RawByte(0x100), -1);
  EXPECT_EQ(RawByte(0x80), 0x80);
  EXPECT_EQ(ToWindows1252(u"a\u0080\u009F\u0100\u017Fb", '_'), "a____b");
}

TEST(Integer16, FailsBeyondItsWidth) {
  Integer16 counter = 32766;
  ++counter;
  EXPECT_EQ(32767, counter);
  EXPECT_THROW(++counter, Failure);
  EXPECT_EQ(32767, counter);
  EXPECT_EQ(181, CountOccurrences(Text(500, u'x'), u"x"));
}

}  // namespace
}  // namespace quillary
