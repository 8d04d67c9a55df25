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

PageEditor::PageEditor(Text text) : buffer_(std::move(text)) { Size(); }

std::int32_t PageEditor::Size() const { return Length(TextView(buffer_).substr(gap_end_ - gap_begin_)); }

char16_t PageEditor::At(std::int32_t position) const {
  const auto offset = static_cast<std::size_t>(position) - 1;
  return buffer_[offset < gap_begin_ ? offset : offset + (gap_end_ - gap_begin_)];
}

Text PageEditor::Mid(std::int32_t start, std::int32_t count) const {
  if (start < 1 || count < 0) throw Failure(Failure::Kind::Argument);
  const TextView page(buffer_);
  auto offset = static_cast<std::size_t>(start) - 1;
  auto units = static_cast<std::size_t>(count);
  Text result;
  if (offset < gap_begin_) {
    result = page.substr(offset, std::min(units, gap_begin_ - offset));
    offset += result.size();
    units -= result.size();
  }
  offset += gap_end_ - gap_begin_;
  if (units > 0 && offset < page.size()) result += page.substr(offset, units);
  return result;
}

bool PageEditor::StandsAt(std::int32_t start, TextView text, Compare mode) const {
  if (start < 1 || std::int64_t{start} - 1 + Length(text) > Size()) return false;
  for (const char16_t wanted : text) {
    const char16_t unit = At(start++);
    if (unit != wanted && (mode == Compare::Binary || FoldUnit(unit) != FoldUnit(wanted))) return false;
  }
  return true;
}

TextView PageEditor::From(std::int32_t start) {
  const auto offset = static_cast<std::size_t>(start) - 1;
  if (offset < gap_begin_) MoveGap(offset);
  const std::size_t after_gap = gap_end_ + (offset - gap_begin_);
  return after_gap < buffer_.size() ? TextView(buffer_).substr(after_gap) : TextView();
}

void PageEditor::Replace(std::int32_t start, std::int32_t count, TextView with) {
  MoveGap(static_cast<std::size_t>(start) - 1);
  gap_end_ += std::min(static_cast<std::size_t>(count), buffer_.size() - gap_end_);
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
  const std::size_t size = buffer_.size() - (gap_end_ - gap_begin_);
  if (size + units > limits::kWorkingUnits) throw LimitReached(LimitReached::Limit::Growth);
  const std::size_t more = units + kLeastGap + size / 8;
  buffer_.insert(gap_end_, more, u'\0');
  gap_end_ += more;
}

}  // namespace quillary::links
