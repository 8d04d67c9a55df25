#include "stylesheet/styled_page.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include "text/failure.h"
#include "text/limits.h"

namespace quillary::stylesheet {
namespace {

constexpr std::size_t npos = TextView::npos;
constexpr TextView kFontEnd = u"</FONT>";

}  // namespace

StyledPage::StyledPage(Text page, Road road, std::size_t limit)
    : page_(std::move(page)), upper_(ToUpper(page_)), road_(road), limit_(limit) {
  Index();
}

void StyledPage::Index() {
  if (road_ == Road::AtOnce) return;
  starts_.clear();
  ends_.clear();
  for (std::size_t at = page_.find_first_of(u"<>"); at != npos; at = page_.find_first_of(u"<>", at + 1)) {
    (page_[at] == u'<' ? starts_ : ends_).push_back(at);
  }
  elements_.emplace(upper_);
}

std::size_t StyledPage::TagStart(std::size_t at) const {
  if (road_ == Road::AtOnce) return page_.rfind(u'<', at);
  const auto next = std::upper_bound(starts_.begin(), starts_.end(), at);
  return next == starts_.begin() ? npos : *std::prev(next);
}

std::size_t StyledPage::TagEnd(std::size_t at) const {
  if (road_ == Road::AtOnce) return page_.find(u'>', at);
  const auto end = std::lower_bound(ends_.begin(), ends_.end(), at);
  return end == ends_.end() ? npos : *end;
}

// Where a tag has begun that has not ended. A "<" that is only meant as itself begins none.
bool StyledPage::IsInsideTag(std::size_t at) const {
  const std::size_t start = at == 0 ? npos : TagStart(at - 1);
  if (start == npos || TagEnd(start) < at) return false;
  const TextView inside = TextView(page_).substr(start + 1, at - start);
  return !inside.starts_with(u' ') || inside.find(u'=') != npos;
}

void StyledPage::NeedsAtOnce() const {
  if (road_ == Road::Noted) throw MustBeAtOnce();
}

std::size_t StyledPage::Wrap(std::size_t start, std::size_t end, TextView name, TextView font_tag) {
  if (road_ == Road::AtOnce) return WrapAtOnce(start, end, name, font_tag);
  // New FONT tags would count among the elements of such a name.
  if (TextView(u"FONT").starts_with(name)) NeedsAtOnce();
  const ElementEnd element = elements_->Of(start, name);
  if (!element.found()) return end + 1;
  if (IsInsideTag(element.tag)) NeedsAtOnce();
  noted_units_ += font_tag.size() + kFontEnd.size();  // those of rules begun anew count twice
  if (page_.size() + noted_units_ > limit_) throw LimitReached(LimitReached::Limit::Growth);
  notes_.push_back({end + 1, false, notes_.size(), font_tag});
  notes_.push_back({element.tag, true, notes_.size(), kFontEnd});
  return end + 1;
}

std::size_t StyledPage::WrapAtOnce(std::size_t start, std::size_t end, TextView name, TextView font_tag) {
  if (++written_ > limits::kStyledInsideTags) throw LimitReached(LimitReached::Limit::Nesting);
  const ElementEnd element = FindElementEnd(upper_, start, name);
  if (!element.found()) return end + 1;
  if (page_.size() + font_tag.size() > limit_) throw LimitReached(LimitReached::Limit::Growth);
  Insert(element.tag, kFontEnd);
  Insert(end + 1, font_tag);
  return end + 1 + font_tag.size();
}

void StyledPage::Insert(std::size_t at, TextView tag) {
  page_.insert(at, tag);
  upper_.insert(at, ToUpper(tag));
}

void StyledPage::Write() {
  if (notes_.empty()) return;
  std::sort(notes_.begin(), notes_.end(), [](const Note& left, const Note& right) {
    return std::tie(left.at, left.closes, right.order) < std::tie(right.at, right.closes, left.order);
  });
  Text written;
  written.reserve(page_.size() + noted_units_);
  std::size_t done = 0;
  for (const Note& note : notes_) {
    written.append(page_, done, note.at - done).append(note.tag);
    done = note.at;
  }
  written.append(page_, done);
  notes_.clear();
  noted_units_ = 0;
  page_ = std::move(written);
  upper_ = ToUpper(page_);
  Index();
}

Text StyledPage::Take() {
  Write();
  return std::move(page_);
}

}  // namespace quillary::stylesheet
