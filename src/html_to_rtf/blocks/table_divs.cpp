#include <algorithm>
#include <utility>
#include <vector>

#include "html_to_rtf/blocks/element_pairs.h"
#include "html_to_rtf/blocks/paragraphs.h"
#include "text/failure.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr TextView kParagraph = u"<P NOPARAGRAPH ";
constexpr TextView kParagraphEnd = u"</P>";
constexpr std::int32_t kStartUnits = 4;  // of "<DIV"
// What an element is taken to grow by, whatever its end tag looks like.
constexpr std::int32_t kGrowth = 9;

// Length of the table that begins there.
std::int32_t TableLength(const Text& page, std::int32_t table) {
  const std::int32_t length = Length(ExtractElement(MidView(page, table), u"TABLE"));
  // The table that begins there would be looked for over and over.
  if (length == 0) throw Failure(Failure::Kind::Argument);
  return length;
}

// The stage word by word: every element costs some passes over the page. It goes on where
// a table was reached, of which so many units count.
void ConvertOneByOne(Text& page, std::int32_t table, std::int32_t length) {
  while (true) {
    std::int32_t start = FindText(table, ToUpper(page), u"<DIV");
    while (start > 0 && start < table + length) {
      const std::int32_t end = start + Length(ExtractElement(MidView(page, start), u"DIV"));
      const std::int32_t last = LastPosition(Left(page, end - 1), u"<");
      page = Left(page, last - 1).append(kParagraphEnd).append(MidView(page, end));
      page = Left(page, start - 1).append(kParagraph).append(MidView(page, start + kStartUnits));
      length += kGrowth;
      start = FindText(table, ToUpper(page), u"<DIV");
    }
    table = FindText(table + length, ToUpper(page), u"<TABLE");
    if (table == 0) return;
    length = TableLength(page, table);
  }
}

// The same in one pass, as far as the end tags are plain. Offsets are those of the page as
// it came; changes are noted and made at the end.
class DivConversion {
 public:
  explicit DivConversion(Text& page) : page_(page), divs_(page, u"DIV"), tables_(page, u"TABLE") {
    growth_.resize(divs_.tags().size() + 1);  // entry 0 is unused
  }

  void Run() {
    try {
      std::int32_t from = 0;
      for (std::size_t table = 0; table < tables_.tags().size(); ++table) {
        const ElementPairs::Tag& tag = tables_.tags()[table];
        if (!tag.opens || Now(tag.at) < from) continue;
        const std::int32_t limit = Now(tag.at) + LengthNow(table);
        if (!ConvertIn(tag.at, limit, from)) return;
      }
    } catch (const Failure&) {
      MakeChanges();
      throw;
    }
    MakeChanges();
  }

 private:
  // Where a unit stands after the changes so far, in front of it.
  std::int32_t Now(std::size_t offset) const {
    const auto& tags = divs_.tags();
    const auto after =
        std::lower_bound(tags.begin(), tags.end(), offset,
                         [](const ElementPairs::Tag& tag, std::size_t at) { return tag.at < at; });
    std::int64_t moved = static_cast<std::int64_t>(offset);
    for (auto i = static_cast<std::size_t>(after - tags.begin()); i > 0; i &= i - 1) moved += growth_[i];
    return static_cast<std::int32_t>(moved);
  }

  // Binary indexed sums of what the tags have grown by.
  void Grow(std::size_t tag, std::int32_t units) {
    for (std::size_t i = tag + 1; i < growth_.size(); i += i & (~i + 1)) growth_[i] += units;
  }

  std::int32_t LengthNow(std::size_t table) const {
    const std::size_t end = tables_.EndOf(table);
    const std::size_t close = end == ElementPairs::npos ? end : page_.find(u'>', tables_.tags()[end].at);
    if (close == Text::npos) throw Failure(Failure::Kind::Argument);
    return Now(close + 1) - Now(tables_.tags()[table].at);
  }

  // The elements of a table; `limit` grows with each. Returns false where the rest was done
  // one by one.
  bool ConvertIn(std::size_t table, std::int32_t limit, std::int32_t& from) {
    for (; next_ < divs_.tags().size(); ++next_) {
      const ElementPairs::Tag& tag = divs_.tags()[next_];
      if (!tag.opens || tag.at < table) continue;
      if (Now(tag.at) >= limit) break;
      const std::size_t end = divs_.EndOf(next_);
      if (end == ElementPairs::npos) throw Failure(Failure::Kind::Argument);
      const std::int32_t end_units = PlainEndTag(divs_.tags()[end].at);
      if (end_units == 0) {
        const std::int32_t start = Now(table);
        MakeChanges();
        ConvertOneByOne(page_, start + 1, limit - start);
        return false;
      }
      divs_.Take(next_, end);
      Grow(next_, static_cast<std::int32_t>(kParagraph.size()) - kStartUnits);
      Grow(end, static_cast<std::int32_t>(kParagraphEnd.size()) - end_units);
      limit += kGrowth;
    }
    from = limit;
    return true;
  }

  // Length of an end tag; 0 if it is cut off, so that something else would be replaced.
  std::int32_t PlainEndTag(std::size_t at) const {
    const std::size_t end = page_.find_first_of(u"<>", at + 1);
    if (end == Text::npos || page_[end] == u'<') return 0;
    return static_cast<std::int32_t>(end + 1 - at);
  }

  void MakeChanges() {
    if (std::exchange(made_, true)) return;
    Text changed;
    std::size_t done = 0;
    for (const ElementPairs::Tag& tag : divs_.tags()) {
      if (!tag.taken) continue;
      changed.append(page_, done, tag.at - done).append(tag.opens ? kParagraph : kParagraphEnd);
      done = tag.at + static_cast<std::size_t>(tag.opens ? kStartUnits : PlainEndTag(tag.at));
    }
    if (done > 0) page_ = changed.append(page_, done);
  }

  Text& page_;
  ElementPairs divs_;
  ElementPairs tables_;
  std::vector<std::int32_t> growth_;
  bool made_ = false;
  std::size_t next_ = 0;  // the first DIV tag that no table has reached
};

}  // namespace

void ConvertTableDivs(Text& page) { DivConversion(page).Run(); }

}  // namespace quillary::HTMLRTFConverter
