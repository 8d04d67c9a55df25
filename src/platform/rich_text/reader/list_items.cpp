#include "platform/rich_text/reader/list_items.h"

#include "platform/rich_text/reader/list_labels.h"

namespace quillary::platform::rtf {

void ListItems::Resolve(const ParagraphState& state, bool is_empty, ParagraphEnd& paragraph) {
  Label label;
  std::uint32_t& list = paragraph.format.list;
  if (state.list_override > 0) {
    const ListTables::Item item = tables_.NextItem(state.list_override, state.list_level, label_);
    if (item.is_item) list = document_.ListId(item.format);
    label = item.label;
  } else if (label_ && list == 0) {
    // A label without a list: the control leaves one after the end of a list;
    // else the paragraph is an item all the same.
    if (label_before_reset_ && is_empty) {
      paragraph.stray_bullet = last_list_ != 0;
    } else {
      ListFormat format;
      format.bullet = !HasNumber(*label_);
      if (!format.bullet) SplitLabel(*label_, format);
      list = document_.ListId(format);
      label.text = *label_;
    }
  } else if (list != 0 && !document_.lists[list].bullet) {
    const ListFormat& format = document_.lists[list];
    label.ordinal = list == last_list_ ? last_number_ + 1 : format.start.value_or(1);
    label.text = label_ ? *label_ : format.before + NumberText(label.ordinal, format.style) + format.after;
  }
  last_list_ = list;
  last_number_ = label.ordinal;
  if (list == 0 || document_.lists[list].bullet) return;
  document_.labels.push_back(label);
  paragraph.label = static_cast<std::uint32_t>(document_.labels.size() - 1);
}

}  // namespace quillary::platform::rtf
