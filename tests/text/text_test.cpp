// The search under everything against the plain search it must equal, and the
// limits of checked numbers.
#include "text/text.h"

#include <gtest/gtest.h>

#include <cctype>
#include <random>

#include "text/ascii.h"
#include "text/case_folding.h"
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
