// The groups of an RTF text that are open, and what holds in each of them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>
#include <vector>

#include "platform/rich_text/reader/character_state.h"
#include "platform/rich_text/reader/paragraph_state.h"

namespace quillary::platform::rtf {

/// Where the text of a group goes.
enum class Destination : std::uint8_t {
  Body,
  Nowhere,  // no text of its own, but groups that may hold some
  FontTable,
  FontAlternative,
  ColourTable,
  StyleSheet,
  ListTable,
  LevelText,
  ListOverrides,
  Label,
  Numbering,
  NumberBefore,
  NumberAfter,
  Picture,
  ObjectClass,
  ObjectData,
  FieldInstruction,
  AnsiAndUnicode,  // its first group is for readers that know no Unicode
};

struct Group {
  CharacterState character;
  ParagraphState paragraph;
  Destination destination = Destination::Body;
  std::int32_t fallback_length = 1;  // \uc
  bool html_only = false;            // \htmlrtf: for readers that show no HTML
  bool in_equation = false;
  bool in_footnote = false;  // its paragraphs are separated by a space
  bool within_row = false;   // a text box in a cell: its paragraphs and tables are lines of the cell
  // What the end of the group ends.
  bool ends_text_box = false;
  bool ends_footnote = false;
  bool ends_field = false;
  bool ends_object = false;

  /// Whether text, pictures, fields and the like may begin in it.
  bool TakesContent() const {
    return destination == Destination::Body || destination == Destination::Nowhere;
  }
  /// Whether it holds nothing but characters: of its words only those count that name one.
  bool HoldsCharactersOnly() const;
};

/// What a part of the reader makes of a word that may give its group content of another kind.
enum class Opening : std::uint8_t {
  None,  // nothing: it is no such word
  Done,  // the group is open, or the word means nothing there
  Skip,  // the rest of the group is passed over
};

/// The stack of open groups. It is bounded; the lowest group is the text around the document's.
class Groups {
 public:
  Groups() : groups_(1) {}

  Group& Top() { return groups_.back(); }
  const Group& Top() const { return groups_.back(); }
  bool InBody() const { return groups_.back().destination == Destination::Body; }
  /// Whether the document's own group is the only one that is open.
  bool AtDocument() const { return lost_ == 0 && groups_.size() <= 2; }

  /// Closes the document's own group, which is kept for what may follow; false if it was closed before.
  bool CloseDocument() { return !std::exchange(document_closed_, true); }

  /// Opens a group in the formatting of the one around it; false for one that is nested too deep to be kept.
  bool Open();
  /// Closes a group and gives it; nothing for one that was not kept.
  std::optional<Group> Close();

 private:
  std::vector<Group> groups_;
  std::size_t lost_ = 0;  // open groups beyond the deepest that is kept
  bool document_closed_ = false;
};

}  // namespace quillary::platform::rtf
