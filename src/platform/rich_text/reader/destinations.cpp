#include "platform/rich_text/reader/destinations.h"

#include "platform/rich_text/reader/byte_text.h"

namespace quillary::platform::rtf {
namespace {

/// Leaves out what would be a structure character in the document's text.
void AppendShown(Text& text, TextView added) {
  for (const char16_t unit : added) {
    if (unit >= u' ') text += unit;
  }
}

}  // namespace

Opening Destinations::Open(Keyword keyword) {
  const Destination outer = groups_.Top().destination;
  const auto open = [&](Destination destination) {
    groups_.Top().destination = destination;
    gathered_.clear();
    return Opening::Done;
  };
  switch (keyword) {
    case Keyword::Fonttbl:
      return open(Destination::FontTable);
    case Keyword::Falt:
      return outer == Destination::FontTable ? open(Destination::FontAlternative) : Opening::None;
    case Keyword::Fname:
      return Opening::Skip;
    case Keyword::Colortbl:
      return open(Destination::ColourTable);
    case Keyword::Stylesheet:
      return open(Destination::StyleSheet);
    case Keyword::Listtable:
      return open(Destination::ListTable);
    case Keyword::Leveltext:
      return outer == Destination::ListTable ? open(Destination::LevelText) : Opening::Skip;
    case Keyword::Listoverridetable:
      return open(Destination::ListOverrides);
    case Keyword::Label:
      return open(Destination::Label);
    case Keyword::Pn:
      numbering_.Begin();
      return open(Destination::Numbering);
    case Keyword::Pntxtb:
      return outer == Destination::Numbering ? open(Destination::NumberBefore) : Opening::None;
    case Keyword::Pntxta:
      return outer == Destination::Numbering ? open(Destination::NumberAfter) : Opening::None;
    case Keyword::Objclass:
      return open(Destination::ObjectClass);
    case Keyword::Objdata:
      return open(Destination::ObjectData);
    default:
      return Opening::None;
  }
}

Opening Destinations::OpenContent(const Token& token) {
  switch (token.keyword) {
    case Keyword::Pict:
    case Keyword::Shppict:
    case Keyword::Nonshppict:
      return pictures_.Open(token.keyword, groups_.Top());
    case Keyword::Object:
    case Keyword::Objemb:
    case Keyword::Objw:
    case Keyword::Objh:
    case Keyword::Result:
      return objects_.Open(token, groups_.Top());
    case Keyword::Field:
    case Keyword::Fldinst:
    case Keyword::Fldrslt:
      return fields_.Open(token.keyword, groups_.Top());
    default:
      return Opening::None;
  }
}

bool Destinations::ReadWord(const Token& token) {
  switch (groups_.Top().destination) {
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
      pictures_.ReadWord(token);
      return true;
    case Destination::Numbering:
      numbering_.ReadWord(token);
      return true;
    default:
      return false;
  }
}

void Destinations::ReadText(TextView text) {
  switch (groups_.Top().destination) {
    case Destination::FontTable:
      header_.fonts.ReadText(text);
      break;
    case Destination::ColourTable:
      header_.colours.ReadText(text);
      break;
    case Destination::Picture:
      pictures_.ReadDigits(text);
      break;
    case Destination::ObjectData:
      objects_.ReadDigits(text);
      break;
    case Destination::FieldInstruction:
      AppendShown(fields_.Instruction(), text);
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

bool Destinations::ReadByte(unsigned char byte) {
  switch (groups_.Top().destination) {
    case Destination::FontTable:
      header_.fonts.ReadByte(byte);
      return true;
    case Destination::LevelText:
      gathered_ += WesternCharacter(byte);
      return true;
    default:
      return false;
  }
}

void Destinations::ReadBinary(TextView bytes) {
  if (groups_.Top().destination == Destination::Picture) pictures_.ReadBytes(bytes);
  if (groups_.Top().destination == Destination::ObjectData) objects_.ReadBytes(bytes);
}

void Destinations::End(const Group& closed) {
  Group& outer = groups_.Top();
  const bool goes_on = outer.destination == closed.destination;
  switch (closed.destination) {
    case Destination::FontTable:
      if (!goes_on) header_.fonts.Close();
      break;
    case Destination::FontAlternative:
      header_.fonts.SetAlternativeName(Text(TrimView(gathered_)));
      break;
    case Destination::StyleSheet:
      if (goes_on) header_.styles.Add(closed.character, closed.paragraph);
      break;
    case Destination::LevelText:
      header_.lists.SetLevelText(gathered_);
      break;
    case Destination::Label:
      if (!goes_on) body_.SetLabel(Text(TrimView(gathered_)));
      break;
    case Destination::NumberBefore:
      numbering_.SetBefore(gathered_);
      break;
    case Destination::NumberAfter:
      numbering_.SetAfter(gathered_);
      break;
    case Destination::Numbering:
      if (!goes_on) outer.paragraph.format.list = numbering_.End();
      break;
    case Destination::Picture:
      if (!goes_on) pictures_.End(outer);
      break;
    case Destination::ObjectClass:
      objects_.SetClass(gathered_);
      break;
    case Destination::ObjectData:
      if (!goes_on) objects_.EndData();
      break;
    default:
      break;
  }
}

void Destinations::EndContent(const Group& closed) {
  if (closed.ends_field) fields_.End(groups_.Top());
  if (closed.ends_object) objects_.End();
}

}  // namespace quillary::platform::rtf
