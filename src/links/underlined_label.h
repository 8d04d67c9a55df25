// What the repairs of underlined labels have in common: finding the run that
// ends somewhere, taking the font tags off its label, and replacing it.
#pragma once

#include <initializer_list>

#include "text/text.h"

namespace quillary::links {

inline constexpr std::size_t kNowhere = TextView::npos;

inline constexpr TextView kUnderline = u"<u>";

/// A repair gives up after so many runs.
inline constexpr int kMostRepairs = 250;

/// 0-based offset of the last `find` that stands whole in the text from `from`
/// up to `end`, or nowhere. Case is ignored for all but its first unit, which
/// has none.
std::size_t LastWithin(TextView text, std::size_t from, std::size_t end, TextView find,
                       Compare mode = Compare::IgnoreCase);

/// Moves the font tags at the front of a label to `fonts`, at most `most` of
/// them. Every time all of `fonts` is removed from the label, and with
/// `drop_blue` the blue that belongs to the look of a link. False if something
/// other than a font tag is in the way.
bool TakeFontTags(Text& label, Text& fonts, int most, bool drop_blue);

void RemoveEach(Text& text, std::initializer_list<TextView> finds);

struct Replacements {
  int count = 0;
  std::size_t first = kNowhere;  // 0-based
};

/// Replaces all of `find` between two 0-based offsets. A single one is replaced
/// in place. The same text over and over is no reason to copy the page.
Replacements ReplaceWithin(Text& page, TextView find, TextView with, Compare mode, std::size_t from = 0,
                           std::size_t end = kNowhere);

}  // namespace quillary::links
