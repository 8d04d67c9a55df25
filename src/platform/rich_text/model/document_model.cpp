#include "platform/rich_text/model/document_model.h"

namespace quillary::platform::rtf {
namespace {

void Append(Text& key, std::int32_t number) {
  key += static_cast<char16_t>(static_cast<std::uint32_t>(number) >> 16);
  key += static_cast<char16_t>(static_cast<std::uint32_t>(number) & 0xFFFF);
}

template <class Value>
std::uint32_t Id(std::unordered_map<Text, std::uint32_t>& ids, const Text& key, std::vector<Value>& values,
                 const Value& value) {
  const auto [entry, is_new] = ids.try_emplace(key, static_cast<std::uint32_t>(values.size()));
  if (is_new) values.push_back(value);
  return entry->second;
}

}  // namespace

std::uint32_t Document::TabsId(const std::vector<TabStop>& stops) {
  if (stops.empty()) return 0;
  Text key;
  for (const TabStop& stop : stops) {
    Append(key, stop.position);
    Append(key, static_cast<std::int32_t>(stop.kind));
  }
  return Id(tab_ids_, key, tabs, stops);
}

std::uint32_t Document::ListId(const ListFormat& format) {
  Text key;
  Append(key, format.bullet ? 1 : 0);
  Append(key, static_cast<std::int32_t>(format.style));
  Append(key, format.font ? *format.font : -1);
  Append(key, format.indent);
  Append(key, format.start ? *format.start : -1);
  Append(key, static_cast<std::int32_t>(format.before.size()));
  key += format.before;
  key += format.after;
  return Id(list_ids_, key, lists, format);
}

std::uint32_t Document::RowId(const Text& words) { return Id(row_ids_, words, rows, words); }

}  // namespace quillary::platform::rtf
