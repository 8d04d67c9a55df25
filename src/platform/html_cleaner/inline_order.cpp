// Pages open and close fonts and effects across each other and across cells.
// The HTML library closes whatever stands inside an end tag that it does not
// expect, and the text behind loses its format; browsers open it again.
#include "platform/html_cleaner/inline_order.h"

#include <algorithm>
#include <deque>
#include <utility>
#include <vector>

#include "platform/html_cleaner/open_inlines.h"
#include "platform/html_cleaner/tags.h"
#include "text/html_elements.h"

namespace quillary::platform {
namespace {

/// Most inline elements that a text may stand in, fonts that others cover
/// apart; each text is compared with them.
constexpr std::size_t kMostInlines = 500;
/// Most blocks that may be open in a cell, and most cells and tables.
constexpr std::size_t kMostBlocks = 8000;
/// Most elements that are opened again, and more where the page is long.
constexpr std::size_t kMostReopened = 200000;

class InlineOrder {
 public:
  explicit InlineOrder(std::string_view page) : page_(page) {
    ordered_.reserve(page.size() + page.size() / 4);
    spaces_.emplace_back();
    places_.push_back(ElementRole::Block);
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
      const bool deep = open.inline_depth() > kMostInlines || open.block_depth() > kMostBlocks ||
                        spaces_.size() > kMostBlocks;
      if (deep || reopened_ + open.reopened() > kMostReopened + page_.size() / 4) return std::nullopt;
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
    const HtmlElement& element = FindHtmlElement(tag.name);
    if (tag.closes) {
      End(element, text);
    } else {
      Start(element, text);
    }
  }

  void Start(const HtmlElement& element, std::string_view tag) {
    OpenInlines& open = spaces_.back();
    switch (element.role) {
      case ElementRole::Anchor:
        // It is a place also without a text, and none stands in another.
        open.End(element.name);
        open.Open(element.name, tag, OpenInlines::Effect::Other, false);
        return OpenText();
      case ElementRole::Toggle:
        return open.Open(element.name, tag, OpenInlines::Effect::Toggle, false);
      case ElementRole::Font:
        return open.Open(element.name, tag, OpenInlines::Effect::Properties, false);
      case ElementRole::Span:
        return open.Open(element.name, tag, OpenInlines::Effect::Properties, true);
      case ElementRole::Step:
        return open.Open(element.name, tag, OpenInlines::Effect::Other, false);
      case ElementRole::Shift:
        return open.Open(element.name, tag, OpenInlines::Effect::Other, true);
      case ElementRole::Content:
        OpenText();
        [[fallthrough]];
      case ElementRole::Other:
        ordered_ += tag;
        return;
      case ElementRole::Raw:
        ordered_ += tag;
        return CopyTo(EndTagOf(page_, element.name, at_));
      case ElementRole::Item:
        open.EndBlock(element.name, true);
        [[fallthrough]];
      case ElementRole::Block:
        open.EndBlock("p", true);
        PutBlock(tag);
        return open.OpenBlock(element.name);
      case ElementRole::Line:
        open.EndBlock("p", true);
        return PutBlock(tag);
      case ElementRole::Cell:
        EndCell();
        PutBlock(tag);
        if (places_.back() == ElementRole::Table) Enter(ElementRole::Cell, spaces_.back().FaceTag());
        return;
      case ElementRole::Row:
        EndCell();
        return PutBlock(tag);
      case ElementRole::Table:
        PutBlock(tag);
        return Enter(ElementRole::Table, open.FaceTag());
    }
  }

  void End(const HtmlElement& element, std::string_view tag) {
    switch (element.role) {
      case ElementRole::Anchor:
      case ElementRole::Toggle:
      case ElementRole::Font:
      case ElementRole::Span:
      case ElementRole::Step:
      case ElementRole::Shift:
        return spaces_.back().End(element.name);
      case ElementRole::Content:
      case ElementRole::Raw:
      case ElementRole::Other:
        ordered_ += tag;
        return;
      case ElementRole::Item:
      case ElementRole::Block:
        // One that is open outside of a cell would end the cell.
        if (element.name != "p" && !spaces_.back().HoldsBlock(element.name)) return;
        spaces_.back().EndBlock(element.name, element.role == ElementRole::Item);
        break;
      case ElementRole::Cell:
      case ElementRole::Row:
        EndCell();
        break;
      case ElementRole::Table:
        EndCell();
        EndTable();
        break;
      case ElementRole::Line:
        break;
    }
    PutBlock(tag);
  }

  void EndCell() {
    if (places_.back() == ElementRole::Cell) Leave();
  }

  // Formatting that was opened between the cells goes on behind the table.
  void EndTable() {
    if (places_.back() != ElementRole::Table) return;
    spaces_.back().GoOnIn(spaces_[spaces_.size() - 2]);
    Leave();
  }

  void Enter(ElementRole place, const std::string& face_tag) {
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
  std::vector<ElementRole> places_;  // of the spaces: page, table or cell
  std::size_t reopened_ = 0;         // in spaces that have ended
  bool behind_block_ = true;
};

}  // namespace

std::optional<std::string> WithInlinesInOrder(std::string_view page) { return InlineOrder(page).Write(); }

}  // namespace quillary::platform
