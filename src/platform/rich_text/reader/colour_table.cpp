#include "platform/rich_text/reader/colour_table.h"

#include <algorithm>
#include <limits>

namespace quillary::platform::rtf {
namespace {

constexpr std::size_t kMostColours = std::numeric_limits<std::uint16_t>::max() - 1;

std::uint8_t Component(const Token& token) {
  return static_cast<std::uint8_t>(std::clamp(token.number, 0, 255));
}

}  // namespace

void ColourTable::ReadWord(const Token& token) {
  switch (token.keyword) {
    case Keyword::Red:
      if (!entry_) entry_.emplace();
      entry_->red = Component(token);
      break;
    case Keyword::Green:
      if (!entry_) entry_.emplace();
      entry_->green = Component(token);
      break;
    case Keyword::Blue:
      if (!entry_) entry_.emplace();
      entry_->blue = Component(token);
      break;
    default:
      break;
  }
}

void ColourTable::ReadText(TextView text) {
  for (const char16_t unit : text) {
    if (unit == u';') EndEntry();
  }
}

void ColourTable::EndEntry() {
  std::uint16_t id = 0;
  if (entry_ && document_.colours.size() < kMostColours) {
    const auto key = static_cast<std::uint32_t>((entry_->red << 16) | (entry_->green << 8) | entry_->blue);
    const auto [place, is_new] =
        ids_.try_emplace(key, static_cast<std::uint16_t>(document_.colours.size() + 1));
    if (is_new) document_.colours.push_back(*entry_);
    id = place->second;
  }
  entries_.push_back(id);
  entry_.reset();
}

std::uint16_t ColourTable::Id(std::int32_t number) const {
  if (number < 0 || static_cast<std::size_t>(number) >= entries_.size()) return 0;
  return entries_[static_cast<std::size_t>(number)];
}

bool ColourTable::IsWhite(std::int32_t number) const {
  const std::uint16_t id = Id(number);
  return id != 0 && document_.colours[id - std::size_t{1}] == Colour{255, 255, 255};
}

}  // namespace quillary::platform::rtf
