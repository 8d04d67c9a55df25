#include "platform/rich_text/reader/pictures.h"

#include <utility>

namespace quillary::platform::rtf {

Opening Pictures::Open(Keyword keyword, Group& group) {
  // The same picture once more, for readers that do not know the first form.
  if (keyword == Keyword::Nonshppict)
    return shown_at_ == document_.text.size() ? Opening::Skip : Opening::Done;
  if (keyword == Keyword::Shppict) return Opening::Done;
  if (keyword != Keyword::Pict || !group.TakesContent()) return Opening::None;
  group.destination = Destination::Picture;
  words_ = PictureWords{};
  data_.Take();
  return Opening::Done;
}

void Pictures::End(const Group& outer) {
  Inline content;
  content.picture = {words_.Words(), data_.Take()};
  if (content.picture.data.empty() || !outer.TakesContent() || outer.character.hidden) return;
  body_.AddInline(std::move(content));
  shown_at_ = document_.text.size();
}

}  // namespace quillary::platform::rtf
