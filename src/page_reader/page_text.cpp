#include "page_reader/page_text.h"

#include <algorithm>
#include <array>
#include <utility>

#include "page_reader/character_names.h"
#include "page_reader/markup.h"
#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary::page_reader {
namespace {

// All other names that the rules know would bring characters beyond ASCII into
// a run, for which they turn its hyphens into dashes and lose neighbours.
constexpr TextView kNamesThatStay[] = {u"quot", u"amp",  u"lt",   u"gt",    u"nbsp",
                                       u"sup1", u"sup2", u"sup3", u"brvbar"};

// Characters of ASCII that could make markup, a reference or RTF with what
// stands beside them.
constexpr TextView kActiveCharacters = u"&#;<>/!?\"'\\{}";

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kBeyondUnicode = 0x110000;

constexpr bool IsHighSurrogate(char32_t value) { return value >= 0xD800 && value < 0xDC00; }
constexpr bool IsLowSurrogate(char32_t value) { return value >= 0xDC00 && value < 0xE000; }

bool IsLineSpace(char32_t value) { return value == u'\t' || value == u'\r' || value == u'\n'; }

/// A form feed is white space; other control characters show nothing. They go
/// before all else: what one of them stood between may be markup without it.
void RemoveControls(Text& page) {
  std::size_t kept = 0;
  for (const char16_t unit : page) {
    if (unit >= u' ' || IsLineSpace(unit)) {
      page[kept++] = unit;
    } else if (unit == u'\0') {
      page[kept++] = static_cast<char16_t>(kReplacement);
    } else if (unit == u'\f') {
      page[kept++] = u' ';
    }
  }
  page.resize(kept);
}

struct NumericReference {
  char32_t value = 0;
  std::size_t length = 0;  // 0 if there is none
};

NumericReference ReadNumericReference(TextView text) {
  if (!text.starts_with(u"&#")) return {};
  const bool hexadecimal = text.size() > 2 && AsciiLower(text[2]) == u'x';
  const int base = hexadecimal ? 16 : 10;
  const std::size_t digits = hexadecimal ? 3 : 2;
  NumericReference reference;
  std::size_t at = digits;
  for (; at < text.size(); ++at) {
    const int digit = HexDigitValue(text[at]);
    if (digit < 0 || digit >= base) break;
    const char32_t raised = reference.value * static_cast<char32_t>(base) + static_cast<char32_t>(digit);
    reference.value = std::min(raised, kBeyondUnicode);
  }
  if (at == digits) return {};
  reference.length = at < text.size() && text[at] == u';' ? at + 1 : at;
  return reference;
}

class Spelling {
 public:
  Spelling(TextView page, bool keeps_units) : page_(page), keeps_units_(keeps_units) {
    spelled_.reserve(page.size());
  }

  Text Run() {
    while (at_ < page_.size()) {
      const char16_t unit = page_[at_];
      if (unit == u'<') {
        CopyMarkup();
      } else if (unit == u'&') {
        SpellReference();
      } else if (unit < 0x80) {
        CopyPlainText();
      } else if (keeps_units_) {
        CopyTo(at_ + 1);
      } else {
        AppendCharacter(unit);
        ++at_;
      }
    }
    return std::move(spelled_);
  }

 private:
  void CopyTo(std::size_t end) {
    spelled_.append(page_, at_, end - at_);
    at_ = end;
  }

  void CopyPlainText() {
    std::size_t end = at_ + 1;
    while (end < page_.size() && page_[end] < 0x80 && page_[end] != u'<' && page_[end] != u'&') ++end;
    CopyTo(end);
  }

  void CopyMarkup() {
    const std::size_t end = MarkupEnd(page_, at_);
    if (end == at_) {
      // The rules would take all up to the next ">" for a tag.
      spelled_.append(u"&lt;");
      ++at_;
      return;
    }
    if (page_.find(u'>', at_) == TextView::npos) {
      // Browsers drop a tag that the page leaves open, and the rules would go over it again
      // and again.
      at_ = page_.size();
      return;
    }
    CopyTo(RawContentEnd(page_, end, TagName(page_, at_)));
  }

  void SpellReference() {
    if (page_.substr(at_).starts_with(u"&#")) {
      SpellNumericReference();
      return;
    }
    const CharacterNameMatch match = MatchCharacterName(page_.substr(at_ + 1));
    if (match.name == nullptr) {
      CopyTo(at_ + 1);
      return;
    }
    at_ += 1 + match.length;
    if (std::ranges::find(kNamesThatStay, match.name->name) != std::end(kNamesThatStay)) {
      spelled_.append(u"&").append(match.name->name).append(u";");
      return;
    }
    AppendNamed(match.name->character);
    if (match.name->second != 0) AppendNamed(match.name->second);
  }

  void SpellNumericReference() {
    const NumericReference reference = ReadNumericReference(page_.substr(at_));
    if (reference.length == 0) {
      // The rules would take all up to the next ";" for a number, and give up the run.
      spelled_.append(u"&amp;#");
      at_ += 2;
      return;
    }
    at_ += reference.length;
    if (IsHighSurrogate(reference.value)) {
      const NumericReference next = ReadNumericReference(page_.substr(at_));
      if (IsLowSurrogate(next.value)) {
        at_ += next.length;
        AppendReference(reference.value);
        AppendReference(next.value);
        return;
      }
    }
    AppendNumbered(reference.value);
  }

  void AppendNumbered(char32_t value) {
    if (IsLineSpace(value)) {
      spelled_.push_back(static_cast<char16_t>(value));
    } else if (value == u'\f') {
      spelled_.push_back(u' ');
    } else if (value == 0 || IsHighSurrogate(value) || IsLowSurrogate(value) || value >= kBeyondUnicode) {
      AppendReference(kReplacement);
    } else if (value < 0x80) {
      AppendReference(value);
    } else {
      AppendCharacter(value);
    }
  }

  void AppendNamed(char32_t character) {
    if (character >= 0x80) {
      AppendCharacter(character);
      return;
    }
    const auto unit = static_cast<char16_t>(character);
    if (IsAsciiAlphanumeric(unit) || kActiveCharacters.find(unit) != TextView::npos) {
      AppendReference(unit);
    } else {
      spelled_.push_back(unit);
    }
  }

  /// A character beyond ASCII, or one of its surrogates.
  void AppendCharacter(char32_t character) {
    if (character >= 0x10000) {
      AppendReference(0xD800 + ((character - 0x10000) >> 10));
      AppendReference(0xDC00 + (character & 0x3FF));
    } else if (character == 0xA0) {
      spelled_.append(u"&nbsp;");
    } else if (character < 0xA0) {
      // Nobody writes these control characters: the bytes of Windows-1252 are meant.
      const char byte = static_cast<char>(character);
      AppendReference(FromWindows1252({&byte, 1})[0]);
    } else {
      AppendReference(character);
    }
  }

  void AppendReference(char32_t number) {
    std::array<char16_t, 9> reference{};
    std::size_t at = reference.size();
    reference[--at] = u';';
    for (; number > 0; number /= 10) reference[--at] = static_cast<char16_t>(u'0' + number % 10);
    reference[--at] = u'#';
    reference[--at] = u'&';
    spelled_.append(&reference[at], reference.size() - at);
  }

  TextView page_;
  bool keeps_units_;
  std::size_t at_ = 0;
  Text spelled_;
};

}  // namespace

Text SpellPage(Text page) {
  RemoveControls(page);
  return Spelling(page, false).Run();
}

Text SpellReferences(TextView page) { return Spelling(page, true).Run(); }

}  // namespace quillary::page_reader
