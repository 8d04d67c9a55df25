// Pages open and close fonts and effects across each other and across cells.
// The HTML library closes whatever stands inside an end tag that it does not
// expect, and the text after it loses its format; browsers open it again.
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
    scopes_.emplace_back();
    scope_roles_.push_back(ElementRole::Block);
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
      const OpenInlines& open = scopes_.back();
      const bool deep = open.inline_depth() > kMostInlines || open.block_depth() > kMostBlocks ||
                        scopes_.size() > kMostBlocks;
      if (deep || reopened_ + open.reopened() > kMostReopened + page_.size() / 4) return std::nullopt;
    }
    scopes_.back().Close(ordered_);
    return std::move(ordered_);
  }

 private:
  void TakeText() {
    const std::size_t end = std::min(page_.find('<', at_), page_.size());
    const std::string_view text = page_.substr(at_, end - at_);
    // A block takes no white space at its start.
    if (!after_block_ || text.find_first_not_of(" \t\r\n") != std::string_view::npos) OpenText();
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
    OpenInlines& open = scopes_.back();
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
        if (scope_roles_.back() == ElementRole::Table) Enter(ElementRole::Cell, scopes_.back().FaceTag());
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
        return scopes_.back().End(element.name);
      case ElementRole::Content:
      case ElementRole::Raw:
      case ElementRole::Other:
        ordered_ += tag;
        return;
      case ElementRole::Item:
      case ElementRole::Block:
        // One that is open outside of a cell would end the cell.
        if (element.name != "p" && !scopes_.back().HoldsBlock(element.name)) return;
        scopes_.back().EndBlock(element.name, element.role == ElementRole::Item);
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
    if (scope_roles_.back() == ElementRole::Cell) Leave();
  }

  // Formatting that was opened between the cells goes on after the table.
  void EndTable() {
    if (scope_roles_.back() != ElementRole::Table) return;
    scopes_.back().GoOnIn(scopes_[scopes_.size() - 2]);
    Leave();
  }

  void Enter(ElementRole role, const std::string& face_tag) {
    scopes_.emplace_back(face_tag);
    scope_roles_.push_back(role);
  }
  void Leave() {
    scopes_.back().Close(ordered_);
    reopened_ += scopes_.back().reopened();
    scopes_.pop_back();
    scope_roles_.pop_back();
  }

  void OpenText() {
    scopes_.back().Write(ordered_);
    after_block_ = false;
  }
  void PutBlock(std::string_view tag) {
    scopes_.back().Close(ordered_);
    ordered_ += tag;
    after_block_ = true;
  }
  void CopyTo(std::size_t end) {
    ordered_ += page_.substr(at_, end - at_);
    at_ = end;
  }

  std::string_view page_;
  std::string ordered_;
  std::size_t at_ = 0;
  std::deque<OpenInlines> scopes_;
  std::vector<ElementRole> scope_roles_;  // of the scopes: page, table or cell
  std::size_t reopened_ = 0;              // in scopes that have ended
  bool after_block_ = true;
};

}  // namespace

std::optional<std::string> WithInlinesInOrder(std::string_view page) { return InlineOrder(page).Write(); }

}  // namespace quillary::platform
