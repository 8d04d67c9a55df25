#include "platform/rich_text/reader/objects.h"

#include <memory>
#include <utility>

#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {

Opening Objects::Open(const Token& token, Group& group) {
  if (token.keyword == Keyword::Object) {
    if (!group.TakesContent()) return Opening::None;
    open_.emplace_back();
    group.ends_object = true;
    group.destination = Destination::Nowhere;
    return Opening::Done;
  }
  if (open_.empty()) return Opening::Done;
  Object& object = open_.back();
  switch (token.keyword) {
    case Keyword::Objemb:
      object.embedded = true;
      break;
    case Keyword::Objw:
      object.object.width = Twips(token.number);
      break;
    case Keyword::Objh:
      object.object.height = Twips(token.number);
      break;
    case Keyword::Result:
      if (!group.TakesContent()) break;
      group.destination = Destination::Body;
      object.result_begin = document_.text.size();
      break;
    default:
      return Opening::None;
  }
  return Opening::Done;
}

void Objects::SetClass(const Text& name) {
  if (!open_.empty()) open_.back().object.object_class = name;
}

void Objects::EndData() {
  if (!open_.empty()) open_.back().object.data = data_.Take();
}

void Objects::End() {
  Object object = std::move(open_.back());
  open_.pop_back();
  const Text& text = document_.text;
  const bool is_one_picture =
      text.size() == object.result_begin + 1 && !text.empty() && text.back() == structure::kObject;
  if (!object.embedded || !is_one_picture) return;
  document_.inlines.back().object = std::make_unique<EmbeddedObject>(std::move(object.object));
}

}  // namespace quillary::platform::rtf
