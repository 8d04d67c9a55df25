#include <utility>

#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/characters/windows_1252.rules.h"
#include "rules/run.h"
#include "text/encodings.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr int kQuestionMark = 63;

// The code points of the two or three bytes of UTF-8 in front of `text`.
std::int32_t PairValue(TextView text) { return (AnsiValue(text[0]) - 192) * 64 + (AnsiValue(text[1]) - 128); }
std::int32_t TripleValue(TextView text) {
  const std::int32_t value =
      (AnsiValue(text[0]) - 224) * 4096 + (AnsiValue(text[1]) - 128) * 64 + (AnsiValue(text[2]) - 128);
  return value > 32767 ? value - 65536 : value;  // the word takes a signed 16-bit number
}

Text Word(std::int32_t code_point) { return u"\\u" + Decimal(code_point) + u"\\'3f"; }

// Which sequence of UTF-8 a byte is taken for the lead of: its length, or 1.
std::size_t LeadOfUtf8(int byte) {
  return byte >= 224 && byte <= 239 ? 3 : byte >= 194 && byte <= 223 ? 2 : 1;
}
// A byte that the map leaves as it is counts as the lead of three.
bool IsHigh(int byte) { return byte >= 128 && byte <= 253; }
std::size_t LeadAfterMap(int byte) { return IsHigh(byte) ? 3 : 1; }

// Sequences from the 0-based `from` on become words, in one pass; the last unit stays.
void EncodeSequences(Text& text, std::size_t from, std::size_t (*length_by_lead)(int byte)) {
  Text encoded;
  std::size_t done = 0;
  for (std::size_t at = from; at + 1 < text.size();) {
    const std::size_t length = length_by_lead(AnsiValue(text[at]));
    if (length == 1 || at + length > text.size()) {
      ++at;
      continue;
    }
    const TextView sequence = TextView(text).substr(at);
    encoded.append(text, done, at - done)
        .append(Word(length == 3 ? TripleValue(sequence) : PairValue(sequence)));
    at += length;
    done = at;
  }
  if (done > 0) text.replace(0, done, encoded);
}

std::int32_t EncodeAt(Text& text, std::int32_t position, std::size_t length,
                      std::int32_t (*value)(TextView)) {
  const TextView sequence = MidView(text, position);
  if (sequence.size() < length) return position;
  const Text word = Word(value(sequence));
  text.replace(static_cast<std::size_t>(position) - 1, length, word);
  return position + Length(word) - 1;
}

}  // namespace

int AnsiValue(char16_t unit) {
  if (unit < 0x80 || (unit >= 0xA0 && unit <= 0xFF)) return unit;
  if (unit <= 0x9F) {
    // The control characters that stand for bytes without a character.
    const bool stands_for_itself =
        unit == 0x81 || unit == 0x8D || unit == 0x8F || unit == 0x90 || unit == 0x9D;
    return stands_for_itself ? unit : kQuestionMark;
  }
  const int byte = RawByte(unit);
  return byte < 0 ? kQuestionMark : byte;
}

std::int32_t EncodeUtf8Pair(Text& text, std::int32_t position) {
  return EncodeAt(text, position, 2, PairValue);
}
std::int32_t EncodeUtf8Triple(Text& text, std::int32_t position) {
  return EncodeAt(text, position, 3, TripleValue);
}

void EncodeHighChars(const Apartment& apartment, Text& text) {
  if (apartment.html_to_rtf.IsUtf8) return EncodeSequences(text, 0, LeadOfUtf8);
  std::size_t first = 0;
  while (first + 1 < text.size() && !IsHigh(AnsiValue(text[first]))) ++first;
  if (first + 1 >= text.size()) return;
  // The map runs once, over the whole text, and the scan goes on at the same place of
  // what it made.
  text = rules::RunOver(chains::MapWindows1252, StartRewriting(apartment, std::move(text)));
  EncodeSequences(text, first, LeadAfterMap);
}

}  // namespace quillary::HTMLRTFConverter
