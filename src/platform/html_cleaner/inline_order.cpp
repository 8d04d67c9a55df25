// Pages open and close fonts and effects across each other and across cells.
// The HTML library closes whatever stands inside an end tag that it does not
// expect, and the text behind loses its format; browsers open it again.
#include "platform/html_cleaner/inline_order.h"

#include <algorithm>
#include <array>
#include <deque>
#include <utility>
#include <vector>

#include "platform/html_cleaner/open_inlines.h"
#include "platform/html_cleaner/page_text.h"

namespace quillary::platform {
namespace {

/// Most inline elements that a text may stand in, fonts that others cover
/// apart; each text is compared with them.
constexpr std::size_t most_inlines = 500;
/// Most blocks that may be open in a cell, and most cells and tables.
constexpr std::size_t most_blocks = 8000;
/// Most elements that are opened again, and more where the page is long.
constexpr std::size_t most_reopened = 200000;

enum class Kind {
  Anchor,
  Toggle,  // the same twice is the same once
  Font,
  Span,   // a font that ends with its block
  Step,   // the same twice is more
  Shift,  // that too, and ends with its block
  Block,
  Item,  // a block that ends with the next of its kind
  Line,  // a block without an end
  Cell,
  Row,  // between a table and its cells
  Table,
  Content,  // a thing of its own, formatted like a text
  Raw,      // its content is no markup
  Other
};

struct Name {
  std::string_view name;
  Kind kind;
};

constexpr std::array names{
    Name{"a", Kind::Anchor},      Name{"b", Kind::Toggle},         Name{"big", Kind::Step},
    Name{"code", Kind::Toggle},   Name{"em", Kind::Toggle},        Name{"font", Kind::Font},
    Name{"i", Kind::Toggle},      Name{"s", Kind::Toggle},         Name{"small", Kind::Step},
    Name{"strike", Kind::Toggle}, Name{"strong", Kind::Toggle},    Name{"tt", Kind::Toggle},
    Name{"u", Kind::Toggle},      Name{"span", Kind::Span},        Name{"sub", Kind::Shift},
    Name{"sup", Kind::Shift},     Name{"p", Kind::Item},           Name{"li", Kind::Item},
    Name{"dt", Kind::Item},       Name{"dd", Kind::Item},          Name{"hr", Kind::Line},
    Name{"ul", Kind::Block},      Name{"ol", Kind::Block},         Name{"dl", Kind::Block},
    Name{"dir", Kind::Block},     Name{"menu", Kind::Block},       Name{"div", Kind::Block},
    Name{"center", Kind::Block},  Name{"blockquote", Kind::Block}, Name{"form", Kind::Block},
    Name{"h1", Kind::Block},      Name{"h2", Kind::Block},         Name{"h3", Kind::Block},
    Name{"h4", Kind::Block},      Name{"h5", Kind::Block},         Name{"h6", Kind::Block},
    Name{"pre", Kind::Block},     Name{"body", Kind::Block},       Name{"html", Kind::Block},
    Name{"td", Kind::Cell},       Name{"th", Kind::Cell},          Name{"tr", Kind::Row},
    Name{"tbody", Kind::Row},     Name{"thead", Kind::Row},        Name{"tfoot", Kind::Row},
    Name{"table", Kind::Table},   Name{"br", Kind::Content},       Name{"img", Kind::Content},
    Name{"input", Kind::Content}, Name{"title", Kind::Raw},        Name{"script", Kind::Raw},
    Name{"style", Kind::Raw},     Name{"textarea", Kind::Raw}};

Name ElementOf(std::string_view name) {
  const auto known =
      std::find_if(names.begin(), names.end(), [&](const Name& each) { return each.name == name; });
  return known == names.end() ? Name{{}, Kind::Other} : *known;
}

class InlineOrder {
 public:
  explicit InlineOrder(std::string_view page) : page_(page) {
    ordered_.reserve(page.size() + page.size() / 4);
    spaces_.emplace_back();
    places_.push_back(Kind::Block);
  }

  std::optional<std::string> Write() {
    while (at_ < page_.size()) {
      if (page_[at_] != '<') {
        TakeText();
      } else if (page_.substr(at_).starts_with("<!--")) {
        const std::size_t end = page_.find("-->", at_);
        CopyTo(end == std::string_view::npos ? page_.size() : end + 3);
      } else {
        TakeTag();
      }
      const OpenInlines& open = spaces_.back();
      const bool deep = open.inline_depth() > most_inlines || open.block_depth() > most_blocks ||
                        spaces_.size() > most_blocks;
      if (deep || reopened_ + open.reopened() > most_reopened + page_.size() / 4) return std::nullopt;
    }
    spaces_.back().Close(ordered_);
    return std::move(ordered_);
  }

 private:
  void TakeText() {
    const std::size_t end = std::min(page_.find('<', at_), page_.size());
    const std::string_view text = page_.substr(at_, end - at_);
    // A block takes no blanks at its start.
    if (!behind_block_ || text.find_first_not_of(" \t\r\n") != std::string_view::npos) OpenText();
    CopyTo(end);
  }

  void TakeTag() {
    const Tag tag = ReadTag(page_, at_);
    const std::string_view text = page_.substr(at_, tag.end - at_);
    at_ = tag.end;
    const Name element = ElementOf(tag.name);
    if (tag.closes) {
      End(element, text);
    } else {
      Start(element, text);
    }
  }

  void Start(const Name& element, std::string_view tag) {
    OpenInlines& open = spaces_.back();
    switch (element.kind) {
      case Kind::Anchor:
        // It is a place also without a text, and none stands in another.
        open.End(element.name);
        open.Open(element.name, tag, OpenInlines::Effect::Other, false);
        return OpenText();
      case Kind::Toggle:
        return open.Open(element.name, tag, OpenInlines::Effect::Toggle, false);
      case Kind::Font:
        return open.Open(element.name, tag, OpenInlines::Effect::Properties, false);
      case Kind::Span:
        return open.Open(element.name, tag, OpenInlines::Effect::Properties, true);
      case Kind::Step:
        return open.Open(element.name, tag, OpenInlines::Effect::Other, false);
      case Kind::Shift:
        return open.Open(element.name, tag, OpenInlines::Effect::Other, true);
      case Kind::Content:
        OpenText();
        [[fallthrough]];
      case Kind::Other:
        ordered_ += tag;
        return;
      case Kind::Raw:
        ordered_ += tag;
        return CopyTo(EndTagOf(page_, element.name, at_));
      case Kind::Item:
        open.EndBlock(element.name, true);
        [[fallthrough]];
      case Kind::Block:
        open.EndBlock("p", true);
        PutBlock(tag);
        return open.OpenBlock(element.name);
      case Kind::Line:
        open.EndBlock("p", true);
        return PutBlock(tag);
      case Kind::Cell:
        EndCell();
        PutBlock(tag);
        if (places_.back() == Kind::Table) Enter(Kind::Cell, spaces_.back().FaceTag());
        return;
      case Kind::Row:
        EndCell();
        return PutBlock(tag);
      case Kind::Table:
        PutBlock(tag);
        return Enter(Kind::Table, open.FaceTag());
    }
  }

  void End(const Name& element, std::string_view tag) {
    switch (element.kind) {
      case Kind::Anchor:
      case Kind::Toggle:
      case Kind::Font:
      case Kind::Span:
      case Kind::Step:
      case Kind::Shift:
        return spaces_.back().End(element.name);
      case Kind::Content:
      case Kind::Raw:
      case Kind::Other:
        ordered_ += tag;
        return;
      case Kind::Item:
      case Kind::Block:
        // One that is open outside of a cell would end the cell.
        if (element.name != "p" && !spaces_.back().HoldsBlock(element.name)) return;
        spaces_.back().EndBlock(element.name, element.kind == Kind::Item);
        break;
      case Kind::Cell:
      case Kind::Row:
        EndCell();
        break;
      case Kind::Table:
        EndCell();
        EndTable();
        break;
      case Kind::Line:
        break;
    }
    PutBlock(tag);
  }

  void EndCell() {
    if (places_.back() == Kind::Cell) Leave();
  }

  // Formatting that was opened between the cells goes on behind the table.
  void EndTable() {
    if (places_.back() != Kind::Table) return;
    spaces_.back().GoOnIn(spaces_[spaces_.size() - 2]);
    Leave();
  }

  void Enter(Kind place, const std::string& face_tag) {
    spaces_.emplace_back(face_tag);
    places_.push_back(place);
  }
  void Leave() {
    spaces_.back().Close(ordered_);
    reopened_ += spaces_.back().reopened();
    spaces_.pop_back();
    places_.pop_back();
  }

  void OpenText() {
    spaces_.back().Write(ordered_);
    behind_block_ = false;
  }
  void PutBlock(std::string_view tag) {
    spaces_.back().Close(ordered_);
    ordered_ += tag;
    behind_block_ = true;
  }
  void CopyTo(std::size_t end) {
    ordered_ += page_.substr(at_, end - at_);
    at_ = end;
  }

  std::string_view page_;
  std::string ordered_;
  std::size_t at_ = 0;
  std::deque<OpenInlines> spaces_;
  std::vector<Kind> places_;  // of the spaces: page, table or cell
  std::size_t reopened_ = 0;  // in spaces that have ended
  bool behind_block_ = true;
};

}  // namespace

std::optional<std::string> WithInlinesInOrder(std::string_view page) { return InlineOrder(page).Write(); }

}  // namespace quillary::platform
