#include "links/link_stretch.h"

#include <algorithm>

#include "links/link_lists.h"
#include "text/failure.h"

namespace quillary::links {

LinkStretches::LinkStretches(const RtfToHtmlState& state, PageEditor& page)
    : page_(page),
      prefixes_(state.LinkPrefixes, state.LinkPrefixes.upper()),
      delimiters_(state.LinkDelimiters, state.LinkDelimiters.upper() - kDelimitersOfAddressesOnly),
      delimiters_of_paths_(delimiters_.Without(u"\\")) {
  // Delimiters are looked for from the page's last unit on where there is no
  // prefix, and an empty page has none.
  if (page.Size() == 0) throw Failure(Failure::Kind::Argument);
}

bool LinkStretches::Next(bool with_prefix, std::size_t longest) {
  const std::size_t cursor = cursor_;
  const TextView rest = page_.From(cursor);
  // A prefix that is nothing but the last unit of the page is none.
  const auto prefix = rest.empty() ? std::nullopt : prefixes_.Next(rest, 0, rest.size() - 1);
  if (!prefix) return false;
  prefix_ = prefix->literal;
  const std::size_t after_prefix = prefix->offset + prefix_.size();
  const std::size_t start = with_prefix ? prefix->offset : after_prefix;
  const std::size_t latest = start + longest;
  const LeftmostLiteral& delimiters =
      prefix_.find(u'\\') == TextView::npos ? delimiters_ : delimiters_of_paths_;
  const auto delimiter = delimiters.Next(rest, after_prefix, latest);
  start_ = cursor + start;
  end_ = cursor + (delimiter ? delimiter->offset : latest);
  cursor_ = end_;
  // With an empty prefix the scan could stay where it is for ever.
  if (cursor_ == cursor) return false;
  if (page_.StandsBefore(end_, u".", Compare::Binary)) --end_;
  return true;
}

// A full stop that ends the prefix may leave less than nothing.
Text LinkStretches::UpToEnd() const { return page_.Copy(start_, std::max(end_, start_) - start_); }

Text LinkStretches::ThroughEnd() const { return page_.Copy(start_, end_ + 1 - start_); }

}  // namespace quillary::links
