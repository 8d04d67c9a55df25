#include "platform/rich_text/reader/rtf_reader.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillary::platform::rtf {
namespace {

// Text is shorter than its RTF, but pictures may be most of that.
constexpr std::size_t kMostReserved = std::size_t{2} << 20;

const std::array<char16_t, 256>& WesternTable() {
  static const std::array<char16_t, 256> table = [] {
    std::array<char16_t, 256> units{};
    for (std::size_t byte = 0; byte < units.size(); ++byte) {
      const char narrow = static_cast<char>(byte);
      units[byte] = DecodePage(1252, {&narrow, 1}).front();
    }
    return units;
  }();
  return table;
}

/// Leaves out what would be a mark in the document's text.
void AppendShown(Text& text, TextView added) {
  for (const char16_t unit : added) {
    if (unit >= u' ') text += unit;
  }
}

}  // namespace

Reader::Reader(TextView rtf) : rtf_(rtf), tokens_(rtf), last_close_(rtf.rfind(u'}')) {
  document_.text.reserve(std::min(rtf.size(), kMostReserved));
  document_.states_code_page = false;
  document_.source_units = rtf.size();
}

Document Reader::Read() {
  while (!done_) {
    const Token token = tokens_.Next();
    if (!held_blanks_.empty() && token.kind != Token::Kind::Word && token.kind != Token::Kind::Symbol)
      ReleaseBlanks();
    switch (token.kind) {
      case Token::Kind::End:
        done_ = true;
        break;
      case Token::Kind::Open:
        OpenGroup();
        continue;
      case Token::Kind::Close:
        CloseGroup();
        break;
      case Token::Kind::Word:
        ReadWord(token);
        break;
      case Token::Kind::Symbol:
        ReadSymbol(token.unit);
        if (token.unit == u'*' && group_start_) continue;
        break;
      case Token::Kind::Byte:
        ReadByte(static_cast<unsigned char>(token.unit));
        break;
      case Token::Kind::Text:
        if (group_start_ && !starred_ && token.text.find_first_not_of(u' ') == TextView::npos) {
          held_blanks_ = token.text;
          continue;
        }
        ReadPlain(token.text);
        break;
      case Token::Kind::Unit:
        ReadUnit(token.unit);
        break;
      case Token::Kind::Binary:
        ReadBinary(token.text);
        break;
    }
    group_start_ = false;
  }
  Finish();
  return std::move(document_);
}

void Reader::ReleaseBlanks() { ReadPlain(std::exchange(held_blanks_, {})); }

void Reader::OpenGroup() {
  FlushBytes();
  fallback_left_ = 0;
  group_start_ = true;
  starred_ = false;
  if (!groups_.Open()) return;
  const bool is_ansi_part =
      Top().destination == Destination::AnsiAndUnicode && !tokens_.Rest().starts_with(u"\\*");
  if (is_ansi_part) SkipGroup();
}

void Reader::CloseGroup() {
  if (InBody()) {
    FlushBytes();
  } else {
    FlushAllBytes();
  }
  fallback_left_ = 0;
  if (groups_.AtDocument()) {
    // The end of the document, unless braces follow: then this one was one too many.
    const std::size_t at = rtf_.size() - tokens_.Rest().size() - 1;
    if (at == last_close_ && !surplus_) done_ = true;
    surplus_ = true;
  } else if (const std::optional<Group> closed = groups_.Close()) {
    formats_.Change();
    EndDestination(*closed);
  }
}

void Reader::ReadSymbol(char16_t sign) {
  FlushBytes();
  if (sign == u'*') {
    starred_ = group_start_;
    return;
  }
  if (!held_blanks_.empty()) ReleaseBlanks();
  if (fallback_left_ > 0 && sign != u'\r' && sign != u'\n') {
    --fallback_left_;
    return;
  }
  switch (sign) {
    case u'\\':
    case u'{':
    case u'}':
      ReadPlain({&sign, 1});
      break;
    case u'~':
      AddCharacter(0xA0);
      break;
    case u'_':
      AddCharacter(u'-');
      break;
    case u'\t':
      AddMark(marks::kTab);
      break;
    case u'\r':
    case u'\n':
      if (InBody()) EndParagraph();
      break;
    default:
      break;  // an optional hyphen, the marks of an index entry, and what means nothing
  }
}

void Reader::ReadByte(unsigned char byte) {
  if (fallback_left_ > 0) {
    --fallback_left_;
    return;
  }
  const Destination destination = Top().destination;
  if (destination == Destination::FontTable) {
    header_.fonts.ReadByte(byte);
    return;
  }
  if (destination == Destination::LevelText) {
    gathered_ += WesternTable()[byte];
    return;
  }
  const std::int32_t font = Top().character.Font();
  if (header_.fonts.IsSymbol(font)) {
    if (byte >= u' ') AddCharacter(static_cast<char16_t>(kSymbolBase + byte));
    return;
  }
  const int code_page = header_.fonts.CodePage(font);
  if (!bytes_.IsEmpty() && bytes_.CodePage() != code_page) FlushAllBytes();
  if (code_page == 1252) {
    AddCharacter(WesternTable()[byte]);
  } else {
    bytes_.Add(byte, code_page);
  }
}

void Reader::ReadPlain(TextView plain) {
  if (fallback_left_ > 0) {
    const std::size_t dropped = std::min(plain.size(), static_cast<std::size_t>(fallback_left_));
    fallback_left_ -= static_cast<std::int32_t>(dropped);
    plain.remove_prefix(dropped);
  }
  if (!plain.empty() && !bytes_.IsEmpty() && bytes_.Wants(plain.front())) {
    ReadByte(static_cast<unsigned char>(plain.front()));
    plain.remove_prefix(1);
  }
  if (plain.empty()) return;
  if (InBody()) {
    AddText(plain);
  } else {
    ReadDestinationText(plain);
  }
}

void Reader::ReadUnit(char16_t unit) {
  const int byte = RawByte(unit);
  if (byte >= 0x80) {
    ReadByte(static_cast<unsigned char>(byte));
    return;
  }
  if (fallback_left_ > 0) {
    --fallback_left_;
    return;
  }
  if (unit == u'\t') {
    AddMark(marks::kTab);
  } else if (byte < 0) {
    AddCharacter(unit);
  }
}

void Reader::ReadUnicode(std::int32_t number) {
  constexpr std::int32_t kHighest = 0x10FFFF;
  if (number < 0) number += 0x10000;
  fallback_left_ = Top().fallback_length;
  if (number < 0 || number > kHighest) return;
  if (number == u'\t') {
    AddMark(marks::kTab);
  } else if (number > 0xFFFF) {
    AddCharacter(static_cast<char16_t>(0xD800 + ((number - 0x10000) >> 10)));
    AddCharacter(static_cast<char16_t>(0xDC00 + ((number - 0x10000) & 0x3FF)));
  } else {
    AddCharacter(static_cast<char16_t>(number));
  }
}

void Reader::ReadBinary(TextView bytes) {
  if (fallback_left_ > 0) {
    --fallback_left_;
  } else if (Top().destination == Destination::Picture) {
    picture_data_.AddRaw(bytes);
  } else if (Top().destination == Destination::ObjectData) {
    object_data_.AddRaw(bytes);
  }
}

void Reader::ReadDestinationText(TextView text) {
  FlushAllBytes();
  switch (Top().destination) {
    case Destination::FontTable:
      header_.fonts.ReadText(text);
      break;
    case Destination::ColourTable:
      header_.colours.ReadText(text);
      break;
    case Destination::Picture:
      picture_data_.Add(text);
      break;
    case Destination::ObjectData:
      object_data_.Add(text);
      break;
    case Destination::FieldInstruction:
      AppendShown(fields_.back().instruction, text);
      break;
    case Destination::LevelText:
      gathered_ += text;
      break;
    case Destination::FontAlternative:
    case Destination::Label:
    case Destination::NumberBefore:
    case Destination::NumberAfter:
    case Destination::ObjectClass:
      AppendShown(gathered_, text);
      break;
    default:
      break;
  }
}

void Reader::ReadWord(const Token& token) {
  FlushBytes();
  if (group_start_ && token.keyword != Keyword::U && OpenDestination(token)) {
    held_blanks_ = {};
    return;
  }
  if (!held_blanks_.empty()) ReleaseBlanks();
  if (token.keyword == Keyword::U) {
    FlushAllBytes();
    if (Top().destination == Destination::FontTable) {
      header_.fonts.ReadWord(token);
      fallback_left_ = Top().fallback_length;
    } else {
      ReadUnicode(token.number);
    }
    return;
  }
  if (OpenPart(token) || ReadHeaderWord(token) || ReadDestinationWord(token)) return;
  if (ReadCharacterName(token.keyword)) return;
  fallback_left_ = 0;
  if (ReadCharacterWord(token, Top().character)) {
    formats_.Change();
    return;
  }
  if (ReadParagraphWord(token, Top().paragraph, document_)) {
    if (token.keyword == Keyword::Pard) items_.ResetParagraph();
    formats_.Change();
    return;
  }
  ReadBodyWord(token);
}

bool Reader::ReadHeaderWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::Viewkind:
      formats_.SetWrittenByControl(tokens_.Rest().starts_with(u"\\uc1"));
      return true;
    case Keyword::Uc:
      Top().fallback_length = std::clamp(token.number, 0, 255);
      return true;
    case Keyword::Htmlrtf:
      Top().html_only = !token.has_number || token.number != 0;
      if (!Top().html_only) html_entity_ = false;
      return true;
    default:
      return header_.ReadWord(token);
  }
}

/// Words that mean something of their own in the group that is being read.
bool Reader::ReadDestinationWord(const Token& token) {
  switch (Top().destination) {
    case Destination::FontTable:
      header_.fonts.ReadWord(token);
      return true;
    case Destination::ColourTable:
      header_.colours.ReadWord(token);
      return true;
    case Destination::ListTable:
      header_.lists.ReadTableWord(token);
      return true;
    case Destination::ListOverrides:
      header_.lists.ReadOverrideWord(token);
      return true;
    case Destination::Picture:
      picture_words_.Read(token);
      return true;
    case Destination::Numbering:
      numbering_.ReadWord(token);
      return true;
    case Destination::FontAlternative:
    case Destination::LevelText:
    case Destination::NumberBefore:
    case Destination::NumberAfter:
    case Destination::ObjectClass:
    case Destination::ObjectData:
    case Destination::FieldInstruction:
      ReadCharacterName(token.keyword);
      return true;
    default:
      return false;
  }
}

}  // namespace quillary::platform::rtf
