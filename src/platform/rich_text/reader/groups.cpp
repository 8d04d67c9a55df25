#include "platform/rich_text/reader/groups.h"

namespace quillary::platform::rtf {
namespace {

// A group that is nested deeper than this does not restore the formatting of
// the group around it.
constexpr std::size_t kDeepest = 200000;

}  // namespace

bool Group::HoldsCharactersOnly() const {
  switch (destination) {
    case Destination::FontAlternative:
    case Destination::LevelText:
    case Destination::NumberBefore:
    case Destination::NumberAfter:
    case Destination::ObjectClass:
    case Destination::ObjectData:
    case Destination::FieldInstruction:
      return true;
    default:
      return false;
  }
}

bool Groups::Open() {
  if (groups_.size() >= kDeepest) {
    ++lost_;
    return false;
  }
  Group group = groups_.back();
  group.ends_text_box = group.ends_footnote = group.ends_field = group.ends_object = false;
  if (group.destination == Destination::StyleSheet) {
    group.character = {};
    group.paragraph = {};
  }
  groups_.push_back(group);
  return true;
}

std::optional<Group> Groups::Close() {
  if (lost_ > 0) {
    --lost_;
    return std::nullopt;
  }
  const Group closed = groups_.back();
  groups_.pop_back();
  return closed;
}

}  // namespace quillary::platform::rtf
