#include "links/page_editor.h"

#include <algorithm>

#include "text/case_folding.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::links {
namespace {

// Room for the first dozens of anchors.
constexpr std::size_t kLeastGap = 4096;

}  // namespace

PageEditor::PageEditor(Text text) : buffer_(std::move(text)) { Length(buffer_); }

char16_t PageEditor::At(std::size_t offset) const {
  return buffer_[offset < gap_begin_ ? offset : offset + (gap_end_ - gap_begin_)];
}

Text PageEditor::Copy(std::size_t offset, std::size_t count) const {
  const TextView page(buffer_);
  Text result;
  if (offset < gap_begin_) {
    result = page.substr(offset, std::min(count, gap_begin_ - offset));
    offset += result.size();
    count -= result.size();
  }
  offset += gap_end_ - gap_begin_;
  if (count > 0 && offset < page.size()) result += page.substr(offset, count);
  return result;
}

bool PageEditor::StandsAt(std::size_t offset, TextView text, Compare mode) const {
  if (offset + text.size() > Size()) return false;
  for (const char16_t wanted : text) {
    const char16_t unit = At(offset++);
    if (unit != wanted && (mode == Compare::Binary || FoldUnit(unit) != FoldUnit(wanted))) return false;
  }
  return true;
}

bool PageEditor::StandsBefore(std::size_t offset, TextView text, Compare mode) const {
  return offset >= text.size() && StandsAt(offset - text.size(), text, mode);
}

TextView PageEditor::From(std::size_t offset) {
  if (offset < gap_begin_) MoveGap(offset);
  const std::size_t after_gap = gap_end_ + (offset - gap_begin_);
  return after_gap < buffer_.size() ? TextView(buffer_).substr(after_gap) : TextView();
}

void PageEditor::Replace(std::size_t offset, std::size_t count, TextView with) {
  MoveGap(offset);
  gap_end_ += std::min(count, buffer_.size() - gap_end_);
  if (gap_end_ - gap_begin_ < with.size()) Widen(with.size());
  std::copy(with.begin(), with.end(), buffer_.begin() + static_cast<std::ptrdiff_t>(gap_begin_));
  gap_begin_ += with.size();
}

Text PageEditor::Take() {
  buffer_.erase(gap_begin_, gap_end_ - gap_begin_);
  gap_begin_ = gap_end_ = 0;
  return std::move(buffer_);
}

void PageEditor::MoveGap(std::size_t offset) {
  if (gap_begin_ == gap_end_) {
    gap_begin_ = gap_end_ = std::min(offset, buffer_.size());
    return;
  }
  const auto at = [this](std::size_t index) { return buffer_.begin() + static_cast<std::ptrdiff_t>(index); };
  if (offset < gap_begin_) {
    const std::size_t units = gap_begin_ - offset;
    std::copy_backward(at(offset), at(gap_begin_), at(gap_end_));
    gap_begin_ -= units;
    gap_end_ -= units;
  } else {
    const std::size_t units = std::min(offset - gap_begin_, buffer_.size() - gap_end_);
    std::copy(at(gap_end_), at(gap_end_ + units), at(gap_begin_));
    gap_begin_ += units;
    gap_end_ += units;
  }
}

void PageEditor::Widen(std::size_t units) {
  const std::size_t size = Size();
  if (size + units > limits::kWorkingUnits) throw LimitReached(LimitReached::Limit::Growth);
  const std::size_t more = units + kLeastGap + size / 8;
  buffer_.insert(gap_end_, more, u'\0');
  gap_end_ += more;
}

}  // namespace quillary::links
