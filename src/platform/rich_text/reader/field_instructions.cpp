#include "platform/rich_text/reader/field_instructions.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/rich_text/model/document_model.h"
#include "platform/rich_text/model/symbol_fonts.h"
#include "platform/rich_text/reader/byte_text.h"

namespace quillary::platform::rtf {
namespace {

constexpr std::size_t kLongestTarget = 2048;

/// The words of an instruction, quotes off. A quoted word keeps its spaces.
std::vector<Text> Words(TextView instruction) {
  std::vector<Text> words;
  std::size_t at = 0;
  while (at < instruction.size()) {
    const char16_t first = instruction[at];
    if (first <= u' ') {
      ++at;
    } else if (first == u'"' || first == 0x201C) {
      const std::size_t end = std::min(instruction.find_first_of(u"\"\u201D", at + 1), instruction.size());
      words.emplace_back(instruction.substr(at + 1, end - at - 1));
      at = end + 1;
    } else {
      const std::size_t end = std::min(instruction.find_first_of(u" \t\r\n\"", at), instruction.size());
      words.emplace_back(instruction.substr(at, end - at));
      at = end;
    }
  }
  return words;
}

bool IsSwitch(const Text& word) { return word.size() == 2 && word[0] == u'\\'; }

/// Doubled backslashes of a path are one.
Text Unescaped(TextView target) { return ReplaceAll(target, u"\\\\", u"\\"); }

/// Without what a reader of a label leaves out of an address.
TextView Core(TextView address) {
  constexpr std::array<TextView, 5> kPrefixes = {u"mailto:", u"http://", u"https://", u"file:///", u"www."};
  address = TrimView(address);
  for (const TextView prefix : kPrefixes) {
    if (address.size() >= prefix.size() &&
        Equal(address.substr(0, prefix.size()), prefix, Compare::IgnoreCase)) {
      address.remove_prefix(prefix.size());
    }
  }
  while (!address.empty() && (address.back() == u'/' || address.back() == u' ')) address.remove_suffix(1);
  return address;
}

}  // namespace

Text LinkTarget(TextView instruction) {
  const std::vector<Text> words = Words(instruction);
  if (words.empty() || !Equal(words[0], u"HYPERLINK", Compare::IgnoreCase)) return {};
  Text target;
  Text place;
  for (std::size_t index = 1; index < words.size(); ++index) {
    if (!IsSwitch(words[index])) {
      if (target.empty()) target = Unescaped(words[index]);
      continue;
    }
    const bool has_argument = words[index][1] != u'm' && words[index][1] != u'n';
    if (has_argument && index + 1 < words.size()) {
      ++index;
      if (words[index - 1][1] == u'l') place = words[index];
    }
  }
  if (target.empty() || target.size() > kLongestTarget) return {};
  const bool holds_place = target.find(u'#') != Text::npos;
  return place.empty() || holds_place ? target : target + u"#" + place;
}

bool IsSameTarget(TextView label, TextView target) {
  return Equal(Core(label), Core(target), Compare::IgnoreCase);
}

std::optional<char16_t> SymbolOfField(TextView instruction) {
  const std::vector<Text> words = Words(instruction);
  if (words.size() < 2 || !Equal(words[0], u"SYMBOL", Compare::IgnoreCase) || !IsNumeric(words[1]))
    return std::nullopt;
  if (words[1].size() > 5) return std::nullopt;
  const std::int32_t code = ToInteger32(words[1]);
  if (code < u' ' || code > 0xFFFF) return std::nullopt;
  if (code > 0xFF && (code & 0xFF00) != kSymbolBase) return static_cast<char16_t>(code);
  const auto byte = static_cast<unsigned char>(code & 0xFF);
  for (std::size_t index = 2; index + 1 < words.size(); ++index) {
    if (words[index] == u"\\f") return SymbolCharacter(words[index + 1], byte);
  }
  return WesternCharacter(byte);
}

}  // namespace quillary::platform::rtf
