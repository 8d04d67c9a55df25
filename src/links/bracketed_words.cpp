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
  const TextView text = page.From(0);
  for (std::size_t space = text.find(u' '); space != TextView::npos;) {
    const std::size_t next = text.find(u' ', space + 1);
    if (next == TextView::npos) break;
    const TextView word = text.substr(space + 1, next - space - 1);
    if (IsBracketed(word)) {
      by_content_[ContentOf(word)].push_back(words_.size());
      words_.push_back(text.size() - (space + 1));
    }
    space = next;
  }
}

std::size_t BracketedWords::OffsetOf(const PageEditor& page, std::size_t index) const {
  return index < frozen_ ? words_[index] : page.Size() - words_[index];
}

void BracketedWords::FreezeBefore(const PageEditor& page, std::size_t before) {
  while (frozen_ < words_.size()) {
    const std::size_t offset = OffsetOf(page, frozen_);
    if (offset >= before) break;
    words_[frozen_++] = offset;
  }
}

std::size_t BracketedWords::First(const PageEditor& page, TextView text, std::size_t word_at) const {
  const TextView word = text.substr(word_at, text.size() - word_at - 1);
  const auto found = by_content_.find(ContentOf(word));
  if (found == by_content_.end()) return TextView::npos;
  for (const std::size_t index : found->second) {
    const std::size_t offset = OffsetOf(page, index);
    if (offset >= word_at && page.StandsAt(offset - word_at, text, Compare::IgnoreCase))
      return offset - word_at;
  }
  return TextView::npos;
}

}  // namespace quillary::links
