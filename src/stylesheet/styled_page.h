// A page whose elements get FONT tags around what stands in them.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "text/element_ends.h"
#include "text/text.h"

namespace quillary::stylesheet {

/// Two roads lead to the same page. Tags are noted and written together, at the cost of one
/// pass over the page, as long as no new tag can change what a later one sees. A rule where one
/// could is begun anew with each tag written at once.
class StyledPage {
 public:
  enum class Road { Noted, AtOnce };
  /// A tag that must be written at once.
  struct MustBeAtOnce {};

  /// The page may grow to `limit` units.
  StyledPage(Text page, Road road, std::size_t limit);

  /// The page as it is, without what is only noted, and in upper case.
  TextView page() const { return page_; }
  TextView upper() const { return upper_; }

  /// Offset of the last "<" at or before `at`, and of the first ">" at or after it, or npos.
  std::size_t TagStart(std::size_t at) const;
  std::size_t TagEnd(std::size_t at) const;

  /// Puts the FONT tag after the start tag from `start` to `end`, and "</FONT>" in front of the
  /// end tag of its element; an element without an end stays as it is. Gives the offset after
  /// the start tag and what now stands there. Throws MustBeAtOnce, and LimitReached.
  std::size_t Wrap(std::size_t start, std::size_t end, TextView name, TextView font_tag);

  /// Throws MustBeAtOnce if tags are only noted.
  void NeedsAtOnce() const;

  /// Runs a rule over the page: noted if it can be.
  template <class Rule>
  void Run(Rule&& rule) {
    const std::size_t noted = notes_.size();
    try {
      rule();
    } catch (const MustBeAtOnce&) {
      notes_.resize(noted);
      Write();
      road_ = Road::AtOnce;
      rule();
      road_ = Road::Noted;
      Index();
    }
  }

  /// Writes what is noted.
  void Write();
  /// Writes it, and gives the page.
  Text Take();

 private:
  struct Note {
    std::size_t at;
    bool closes;
    std::size_t order;  // the last start tag at a place is the first
    TextView tag;       // lives as long as the rules
  };
  std::size_t WrapAtOnce(std::size_t start, std::size_t end, TextView name, TextView font_tag);
  bool IsInsideTag(std::size_t at) const;
  void Insert(std::size_t at, TextView tag);
  void Index();

  Text page_;
  Text upper_;
  Road road_;
  std::size_t limit_;
  std::vector<std::size_t> starts_;  // of tags, if they are only noted
  std::vector<std::size_t> ends_;
  std::optional<ElementEnds> elements_;
  std::vector<Note> notes_;
  std::size_t noted_units_ = 0;
  int written_ = 0;
};

}  // namespace quillary::stylesheet
