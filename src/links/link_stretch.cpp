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

bool LinkStretches::Next(bool with_prefix, std::int32_t longest) {
  const std::int32_t cursor = cursor_;
  const TextView rest = page_.From(cursor);
  // A prefix that is nothing but the last unit of the page is none.
  const auto prefix = rest.empty() ? std::nullopt : prefixes_.Next(rest, 0, rest.size() - 1);
  if (!prefix) return false;
  prefix_ = prefix->literal;
  const std::size_t after_prefix = prefix->offset + prefix_.size();
  const std::size_t start = with_prefix ? prefix->offset : after_prefix;
  const std::size_t latest = start + static_cast<std::size_t>(longest);
  const LeftmostLiteral& delimiters =
      prefix_.find(u'\\') == TextView::npos ? delimiters_ : delimiters_of_paths_;
  const auto delimiter = delimiters.Next(rest, after_prefix, latest);
  start_ = cursor + static_cast<std::int32_t>(start);
  end_ = cursor + static_cast<std::int32_t>(delimiter ? delimiter->offset : latest);
  cursor_ = end_;
  // With an empty prefix the scan could stay where it is for ever.
  if (cursor_ == cursor) return false;
  if (page_.StandsAt(end_ - 1, u".", Compare::Binary)) --end_;
  return true;
}

// A full stop that ends the prefix may leave less than nothing.
Text LinkStretches::UpToEnd() const { return page_.Mid(start_, std::max(end_ - start_, 0)); }

Text LinkStretches::ThroughEnd() const { return page_.Mid(start_, end_ - start_ + 1); }

}  // namespace quillary::links
