#include "text/element_ends.h"

#include <algorithm>
#include <utility>

#include "text/search.h"

namespace quillary {
namespace {

constexpr std::size_t npos = ElementEnd::npos;

// No page has a longer name, or it is no name; and texts so long are not worth sorting by.
constexpr std::size_t kLongestName = 64;

// The offsets whose text after `skip` units begins with the name, in the order of the page.
std::vector<std::size_t> WithName(TextView upper, const std::vector<std::size_t>& sorted, std::size_t skip,
                                  TextView name) {
  const auto head = [&](std::size_t at) { return upper.substr(at + skip, name.size()); };
  const auto first =
      std::partition_point(sorted.begin(), sorted.end(), [&](std::size_t at) { return head(at) < name; });
  const auto last =
      std::partition_point(first, sorted.end(), [&](std::size_t at) { return head(at) == name; });
  std::vector<std::size_t> found(first, last);
  std::sort(found.begin(), found.end());
  return found;
}

}  // namespace

ElementEnd FindElementEnd(TextView upper, std::size_t start, TextView name) {
  const Text opening = Joined({u"<", name});
  const Text closing = Joined({u"</", name});
  const Finder opens(opening, Compare::Binary);
  const Finder closes(closing, Compare::Binary);
  std::size_t last = npos;
  std::size_t close = closes.Next(upper, start + 1);
  std::size_t open = opens.Next(upper, start + 1);
  for (std::size_t depth = 1; depth > 0 && close != npos;) {
    if (open == npos || open >= close) {
      --depth;
      last = close;
      close = closes.Next(upper, last + 1);
    } else {
      ++depth;
      last = open;
      open = opens.Next(upper, last + 1);
    }
  }
  const std::size_t end = last == npos ? npos : upper.find(u'>', last);
  return end == npos ? ElementEnd() : ElementEnd{last, end + 1};
}

ElementEnds::ElementEnds(TextView upper) : upper_(upper) {
  for (std::size_t at = upper.find_first_of(u"<>"); at != npos; at = upper.find_first_of(u"<>", at + 1)) {
    if (upper[at] == u'>') {
      tag_ends_.push_back(at);
      continue;
    }
    by_open_.push_back(at);
    if (upper.substr(at + 1, 1) == u"/") by_close_.push_back(at);
  }
  const auto sort_by = [upper](std::vector<std::size_t>& tags, std::size_t skip) {
    std::sort(tags.begin(), tags.end(), [&](std::size_t left, std::size_t right) {
      return upper.substr(left + skip, kLongestName) < upper.substr(right + skip, kLongestName);
    });
  };
  sort_by(by_open_, 1);
  sort_by(by_close_, 2);
}

ElementEnd ElementEnds::Of(std::size_t start, TextView name) {
  if (name.size() > kLongestName) return {};
  // "<" is the start of every end tag too, and "</" that of "<//".
  if (name.empty() || name.front() == u'/') return FindElementEnd(upper_, start, name);
  const Named& named = Elements(name);
  const auto element = std::lower_bound(named.elements.begin(), named.elements.end(), start,
                                        [](const Element& left, std::size_t at) { return left.open < at; });
  if (element == named.elements.end() || element->open != start) return {};
  if (element->close != npos) return EndAt(element->close);
  const bool later = named.last_close != npos && named.last_close > start;
  return later ? EndAt(named.last_close) : ElementEnd();
}

ElementEnd ElementEnds::EndAt(std::size_t close) const {
  const auto end = std::lower_bound(tag_ends_.begin(), tag_ends_.end(), close);
  return end == tag_ends_.end() ? ElementEnd() : ElementEnd{close, *end + 1};
}

const ElementEnds::Named& ElementEnds::Elements(TextView name) {
  const auto [place, fresh] = named_.try_emplace(Text(name));
  Named& named = place->second;
  if (!fresh) return named;
  const std::vector<std::size_t> opens = WithName(upper_, by_open_, 1, name);
  const std::vector<std::size_t> closes = WithName(upper_, by_close_, 2, name);
  std::vector<std::size_t> open;  // the elements, by number, that are open
  auto next = opens.begin();
  const auto open_before = [&](std::size_t at) {
    for (; next != opens.end() && *next < at; ++next) {
      open.push_back(named.elements.size());
      named.elements.push_back({*next, npos});
    }
  };
  for (const std::size_t close : closes) {
    open_before(close);
    named.last_close = close;
    if (open.empty()) continue;
    named.elements[open.back()].close = close;
    open.pop_back();
  }
  open_before(npos);
  return named;
}

}  // namespace quillary
