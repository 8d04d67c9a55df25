#include "html_to_rtf/blocks/element_pairs.h"

#include "text/case_folding.h"

namespace quillary::HTMLRTFConverter {
namespace {

bool StartsWithName(TextView text, TextView name) {
  if (text.size() < name.size()) return false;
  for (std::size_t i = 0; i < name.size(); ++i) {
    if (UpperUnit(text[i]) != name[i]) return false;
  }
  return true;
}

}  // namespace

ElementPairs::ElementPairs(TextView page, TextView name) {
  std::vector<std::size_t> open;
  for (std::size_t at = page.find(u'<'); at != TextView::npos; at = page.find(u'<', at + 1)) {
    const bool opens = page.substr(at + 1, 1) != u"/";
    if (!StartsWithName(page.substr(at + (opens ? 1 : 2)), name)) continue;
    tags_.push_back({at, opens});
    const std::size_t tag = tags_.size() - 1;
    if (opens) {
      open.push_back(tag);
      continue;
    }
    last_end_ = tag;
    if (open.empty()) continue;
    tags_[tag].partner = open.back();
    tags_[open.back()].partner = tag;
    open.pop_back();
  }
}

std::size_t ElementPairs::EndOf(std::size_t start) const {
  if (tags_[start].partner != npos) return tags_[start].partner;
  return last_end_ != npos && last_end_ > start ? last_end_ : npos;
}

void ElementPairs::Take(std::size_t start, std::size_t end) {
  // The element that the end tag is taken away from has none any more.
  const std::size_t robbed = tags_[end].partner;
  if (robbed != npos) tags_[robbed].partner = npos;
  tags_[start].taken = true;
  tags_[end].taken = true;
  while (last_end_ != npos && (tags_[last_end_].opens || tags_[last_end_].taken)) {
    last_end_ = last_end_ == 0 ? npos : last_end_ - 1;
  }
}

}  // namespace quillary::HTMLRTFConverter
