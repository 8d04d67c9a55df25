#include "platform/rich_text/reader/paragraph_numbering.h"

#include <algorithm>

#include "platform/rich_text/reader/list_labels.h"
#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {

void ParagraphNumbering::Begin() {
  format_ = ListFormat{};
  continues_ = false;
}

void ParagraphNumbering::ReadWord(const Token& token) {
  const auto number = [&](NumberStyle style) {
    format_.bullet = false;
    format_.style = style;
  };
  switch (token.keyword) {
    case Keyword::Pnlvlblt:
      format_.bullet = true;
      break;
    case Keyword::Pnlvlcont:
      continues_ = true;
      break;
    case Keyword::Pnlvlbody:
      format_.bullet = false;
      break;
    case Keyword::Pndec:
      number(NumberStyle::Decimal);
      break;
    case Keyword::Pnucltr:
      number(NumberStyle::UpperLetter);
      break;
    case Keyword::Pnlcltr:
      number(NumberStyle::LowerLetter);
      break;
    case Keyword::Pnucrm:
      number(NumberStyle::UpperRoman);
      break;
    case Keyword::Pnlcrm:
      number(NumberStyle::LowerRoman);
      break;
    case Keyword::Pnf:
      if (fonts_.IsSymbol(token.number)) format_.font = fonts_.Index(token.number);
      break;
    case Keyword::Pnindent:
      format_.indent = Twips(token.number);
      break;
    case Keyword::Pnstart:
      format_.start = std::clamp(token.number, 0, 32767);
      break;
    default:
      break;
  }
}

std::uint32_t ParagraphNumbering::End() {
  if (continues_) return 0;
  if (format_.bullet) {
    // Every bullet is the control's own.
    format_.before.clear();
    format_.after.clear();
    format_.style = NumberStyle::Decimal;
    format_.start.reset();
  } else {
    format_.font.reset();
    if (!format_.start) format_.start = 1;
    format_.before = Affix(format_.before);
    format_.after = Affix(format_.after);
  }
  return document_.ListId(format_);
}

}  // namespace quillary::platform::rtf
