#include <algorithm>
#include <memory>
#include <utility>

#include "platform/rich_text/reader/field_instructions.h"
#include "platform/rich_text/reader/rtf_reader.h"
#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {

/// The first word of a group. Takes it if it makes the group a part of its own,
/// or one that is passed over.
bool Reader::OpenDestination(const Token& token) {
  if (OpenTable(token)) return true;
  switch (token.keyword) {
    case Keyword::Skipped:
      SkipGroup();
      return true;
    case Keyword::Htmltag:
      // The mark-up of a page. An entity in it is shown by what follows for
      // readers without HTML.
      html_entity_ = tokens_.Rest().starts_with(u'&');
      SkipGroup();
      return true;
    case Keyword::MoMath:
      Top().in_equation = true;
      return true;
    case Keyword::Upr:
      if (InBody()) Top().destination = Destination::AnsiAndUnicode;
      return true;
    case Keyword::Ud:
      if (Top().destination == Destination::AnsiAndUnicode) Top().destination = Destination::Body;
      return true;
    default:
      break;
  }
  const bool is_equation_property =
      Top().in_equation && token.keyword == Keyword::Unknown && token.text.ends_with(u"Pr");
  if (is_equation_property) {
    SkipGroup();
    return true;
  }
  if (OpenPart(token)) return true;
  if (!starred_) return false;
  SkipGroup();
  return true;
}

bool Reader::OpenTable(const Token& token) {
  const auto open = [&](Destination destination) {
    Top().destination = destination;
    gathered_.clear();
    return true;
  };
  switch (token.keyword) {
    case Keyword::Fonttbl:
      return open(Destination::FontTable);
    case Keyword::Falt:
      if (Top().destination != Destination::FontTable) return false;
      return open(Destination::FontAlternative);
    case Keyword::Fname:
      SkipGroup();
      return true;
    case Keyword::Colortbl:
      return open(Destination::ColourTable);
    case Keyword::Stylesheet:
      return open(Destination::StyleSheet);
    case Keyword::Listtable:
      return open(Destination::ListTable);
    case Keyword::Leveltext:
      if (Top().destination == Destination::ListTable) return open(Destination::LevelText);
      SkipGroup();
      return true;
    case Keyword::Listoverridetable:
      return open(Destination::ListOverrides);
    case Keyword::Label:
      return open(Destination::Label);
    case Keyword::Pn:
      numbering_.Begin();
      return open(Destination::Numbering);
    case Keyword::Pntxtb:
      if (Top().destination != Destination::Numbering) return false;
      return open(Destination::NumberBefore);
    case Keyword::Pntxta:
      if (Top().destination != Destination::Numbering) return false;
      return open(Destination::NumberAfter);
    case Keyword::Objclass:
      return open(Destination::ObjectClass);
    case Keyword::Objdata:
      return open(Destination::ObjectData);
    default:
      return false;
  }
}

/// Words that give the group in which they stand content of another kind,
/// wherever in it they stand.
bool Reader::OpenPart(const Token& token) {
  Group& group = Top();
  const bool takes_text = group.TakesContent();
  switch (token.keyword) {
    case Keyword::Pict:
      if (!takes_text) return false;
      group.destination = Destination::Picture;
      picture_words_ = PictureWords{};
      picture_data_.Take();
      return true;
    case Keyword::Shppict:
      return true;
    case Keyword::Nonshppict:
      if (picture_shown_at_ == builder_.End()) SkipGroup();
      return true;
    case Keyword::Shp:
      return true;
    case Keyword::Shpinst:
    case Keyword::Do:
    case Keyword::Sp:
    case Keyword::Sv:
    case Keyword::Nesttableprops:
      if (takes_text) group.destination = Destination::Nowhere;
      return true;
    case Keyword::Shprslt:  // the same shape once more
      SkipGroup();
      return true;
    case Keyword::Shptxt:
    case Keyword::Dptxbxtext:
      if (takes_text) BeginApart();
      return true;
    case Keyword::Object:
      if (!takes_text) return false;
      objects_.emplace_back();
      group.ends_object = true;
      group.destination = Destination::Nowhere;
      return true;
    case Keyword::Objemb:
      if (!objects_.empty()) objects_.back().embedded = true;
      return true;
    case Keyword::Objw:
      if (!objects_.empty()) objects_.back().object.width = Twips(token.number);
      return true;
    case Keyword::Objh:
      if (!objects_.empty()) objects_.back().object.height = Twips(token.number);
      return true;
    case Keyword::Result:
      if (!objects_.empty() && takes_text) {
        group.destination = Destination::Body;
        objects_.back().result_begin = builder_.End();
      }
      return true;
    case Keyword::Field:
      if (!takes_text) return true;
      fields_.emplace_back();
      group.ends_field = true;
      return true;
    case Keyword::Fldinst:
      if (fields_.empty() || !takes_text) {
        SkipGroup();
      } else {
        group.destination = Destination::FieldInstruction;
      }
      return true;
    case Keyword::Fldrslt:
      if (!fields_.empty() && takes_text) fields_.back().result_begin = builder_.End();
      return true;
    case Keyword::Footnote:
      if (!InBody()) return true;
      group.ends_footnote = true;
      group.in_footnote = true;
      AddFootnoteBracket(u" [");
      return true;
    default:
      return false;
  }
}

void Reader::SkipGroup() {
  tokens_.SkipGroup();
  bytes_.TakeAll();
}

void Reader::EndDestination(const Group& closed) {
  const Destination outer = Top().destination;
  switch (closed.destination) {
    case Destination::FontTable:
      if (outer != Destination::FontTable) header_.fonts.Close();
      break;
    case Destination::FontAlternative:
      header_.fonts.SetAlternativeName(Text(TrimView(gathered_)));
      break;
    case Destination::StyleSheet:
      if (outer == Destination::StyleSheet) {
        header_.styles.Add(closed.character, closed.paragraph);
        gathered_.clear();
      }
      break;
    case Destination::LevelText:
      header_.lists.SetLevelText(gathered_);
      break;
    case Destination::Label:
      if (outer != Destination::Label) {
        while (!gathered_.empty() && gathered_.back() <= u' ') gathered_.pop_back();
        items_.SetLabel(Text(TrimView(gathered_)));
      }
      break;
    case Destination::NumberBefore:
      numbering_.SetBefore(gathered_);
      break;
    case Destination::NumberAfter:
      numbering_.SetAfter(gathered_);
      break;
    case Destination::Numbering:
      if (outer != Destination::Numbering) Top().paragraph.format.list = numbering_.End();
      break;
    case Destination::Picture:
      if (outer != Destination::Picture) EndPicture();
      break;
    case Destination::ObjectClass:
      if (!objects_.empty()) objects_.back().object.object_class = gathered_;
      break;
    case Destination::ObjectData:
      if (outer != Destination::ObjectData && !objects_.empty())
        objects_.back().object.data = object_data_.Take();
      break;
    default:
      break;
  }
  if (closed.ends_footnote) AddFootnoteBracket(u"]");
  if (closed.ends_field) EndField();
  if (closed.ends_object) EndObject();
  if (closed.ends_text_box && !builder_.ParagraphIsEmpty()) {
    if (closed.within_row || Top().in_footnote) {
      builder_.AddUnit(marks::kLine, formats_.Id());
    } else {
      builder_.EndParagraph({.format = closed.paragraph.format}, formats_.Id());
    }
  }
}

/// The text of a footnote stands at its place, in brackets that are not raised
/// as the note's sign in front of them is.
void Reader::AddFootnoteBracket(TextView bracket) {
  CharacterState& state = Top().character;
  const CharacterState kept = state;
  state.effects &= static_cast<std::uint16_t>(~(kSuperscript | kSubscript));
  state.rise = 0;
  formats_.Change();
  AddText(bracket);
  state = kept;
  formats_.Change();
}

/// A text box stands at its anchor, in paragraphs of its own.
void Reader::BeginApart() {
  Group& group = Top();
  const bool within_row = builder_.InRow() || group.paragraph.in_table;
  if (!builder_.ParagraphIsEmpty()) {
    if (within_row || group.in_footnote) {
      builder_.AddUnit(marks::kLine, formats_.Id());
    } else {
      builder_.EndParagraph({.format = group.paragraph.format}, formats_.Id());
    }
  }
  group.destination = Destination::Body;
  group.paragraph = {};
  group.character = {};
  group.ends_text_box = true;
  group.within_row = within_row;
  formats_.Change();
}

void Reader::EndPicture() {
  Picture picture{picture_words_.Words(), picture_data_.Take()};
  const bool takes_text = Top().TakesContent();
  if (picture.data.empty() || !takes_text || Top().character.hidden) return;
  Inline object;
  object.picture = std::move(picture);
  document_.inlines.push_back(std::move(object));
  builder_.AddUnit(marks::kObject, formats_.Id());
  picture_shown_at_ = builder_.End();
}

/// An object keeps its data where its result is one picture; else the result stands for it.
void Reader::EndObject() {
  Object object = std::move(objects_.back());
  objects_.pop_back();
  const bool is_one_picture = builder_.End() == object.result_begin + 1 && !document_.text.empty() &&
                              document_.text.back() == marks::kObject;
  if (!object.embedded || !is_one_picture) return;
  document_.inlines.back().object = std::make_unique<EmbeddedObject>(std::move(object.object));
}

void Reader::EndField() {
  const Field field = std::move(fields_.back());
  fields_.pop_back();
  if (!field.result_begin || !InBody()) return;
  const TextView result = TextView(document_.text).substr(*field.result_begin);
  if (result.empty()) {
    const std::optional<char16_t> symbol = SymbolOfField(field.instruction);
    if (symbol) AddCharacter(*symbol);
    return;
  }
  const Text target = LinkTarget(field.instruction);
  if (target.empty() || IsSameTarget(result, target)) return;
  builder_.AddText(u" <" + target + u">", document_.runs.back().format);
}

}  // namespace quillary::platform::rtf
