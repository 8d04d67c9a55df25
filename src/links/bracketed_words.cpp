#include "links/bracketed_words.h"

#include "text/case_folding.h"

namespace quillary::links {
namespace {

constexpr TextView kOpening = u"&lt;";
constexpr TextView kClosing = u"&gt;";

bool IsBracketed(TextView word) {
  return word.size() >= kOpening.size() + kClosing.size() &&
         Equal(word.substr(0, kOpening.size()), kOpening, Compare::IgnoreCase) &&
         Equal(word.substr(word.size() - kClosing.size()), kClosing, Compare::IgnoreCase);
}

std::uint64_t ContentOf(TextView word) {
  std::uint64_t content = 0xcbf29ce484222325;
  for (const char16_t unit : word) content = (content ^ FoldUnit(unit)) * 0x100000001b3;
  return content;
}

}  // namespace

BracketedWords::BracketedWords(PageEditor& page) {
  const TextView text = page.From(1);
  for (std::size_t space = text.find(u' '); space != TextView::npos;) {
    const std::size_t next = text.find(u' ', space + 1);
    if (next == TextView::npos) break;
    const TextView word = text.substr(space + 1, next - space - 1);
    if (IsBracketed(word)) {
      by_content_[ContentOf(word)].push_back(words_.size());
      words_.push_back(static_cast<std::int32_t>(text.size() - (space + 1)));
    }
    space = next;
  }
}

std::int32_t BracketedWords::PositionOf(const PageEditor& page, std::size_t index) const {
  return index < frozen_ ? words_[index] : page.Size() - words_[index] + 1;
}

void BracketedWords::FreezeBefore(const PageEditor& page, std::int32_t before) {
  while (frozen_ < words_.size()) {
    const std::int32_t position = PositionOf(page, frozen_);
    if (position >= before) break;
    words_[frozen_++] = position;
  }
}

std::int32_t BracketedWords::First(const PageEditor& page, TextView text, std::size_t word_at) const {
  const TextView word = text.substr(word_at, text.size() - word_at - 1);
  const auto found = by_content_.find(ContentOf(word));
  if (found == by_content_.end()) return 0;
  for (const std::size_t index : found->second) {
    const std::int32_t start = PositionOf(page, index) - static_cast<std::int32_t>(word_at);
    if (page.StandsAt(start, text, Compare::IgnoreCase)) return start;
  }
  return 0;
}

}  // namespace quillary::links
