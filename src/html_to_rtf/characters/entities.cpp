#include "html_to_rtf/characters/named_entities.rules.h"
#include "html_to_rtf/characters/runs.h"
#include "rules/run.h"
#include "text/case_folding.h"

namespace quillary::HTMLRTFConverter {
namespace {

// Each "&#xE9;" becomes "\'E9", in place: what is read lies at `from`, what is written
// ends at `to`. Only references of two digits are known; every other one stays, and so
// does what follows the last semicolon.
void DecodeHexadecimal(Text& text) {
  std::size_t to = 0;
  std::size_t from = 0;
  std::size_t semicolon = 0;
  while (true) {
    const std::size_t hit = text.find(u"&#", from);
    if (hit == Text::npos) break;
    const bool opens = hit + 2 < text.size() && UpperUnit(text[hit + 2]) == u'X';
    if (semicolon <= hit) semicolon = text.find(u';', hit);
    if (semicolon == Text::npos) break;
    // Up to the reference, or up to the unit after one that stays.
    const bool known = opens && semicolon == hit + 5;
    const std::size_t kept = known ? hit : hit + 1;
    std::char_traits<char16_t>::move(text.data() + to, text.data() + from, kept - from);
    to += kept - from;
    from = kept;
    if (!known) continue;
    text[to++] = u'\\';
    text[to++] = u'\'';
    // The digits are written as they are, and read again: they may be the start of a reference.
    text[hit + 5] = text[hit + 4];
    text[hit + 4] = text[hit + 3];
    from = hit + 4;
    semicolon = 0;
  }
  text.erase(to, from - to);
}

// Each "&#8364;" becomes a word of RTF.
void DecodeDecimal(Text& text) {
  Text decoded;
  std::size_t done = 0;
  for (std::size_t hit = text.find(u"&#"); hit != Text::npos; hit = text.find(u"&#", done)) {
    const std::size_t semicolon = text.find(u';', hit);
    if (semicolon == Text::npos) break;
    const TextView digits = TextView(text).substr(hit + 2, semicolon - hit - 2);
    Text hexadecimal;
    try {
      hexadecimal = Hex(ToInteger32(digits));
    } catch (const Failure&) {
      text.replace(0, done, decoded);
      throw;
    }
    decoded.append(text, done, hit - done);
    if (hexadecimal.size() == 2) {
      decoded.append(u"\\'").append(hexadecimal);
    } else {
      decoded.append(u"\\u").append(digits).append(u"\\'3F");
    }
    done = semicolon + 1;
  }
  text.replace(0, done, decoded);
}

}  // namespace

void DecodeNumericEntities(Text& text) {
  if (!Holds(text, u"&#")) return;
  DecodeHexadecimal(text);
  DecodeDecimal(text);
}

void DecodeNamedEntities(const Apartment& apartment, Text& text) {
  if (text.find(u'&') == Text::npos) return;
  text = rules::RunOver(chains::NamedEntities, StartRewriting(apartment, std::move(text)));
}

}  // namespace quillary::HTMLRTFConverter
