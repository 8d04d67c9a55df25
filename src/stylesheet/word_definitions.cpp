// Pages that a word processor has saved keep their bullets and the face of their paragraphs
// in comments of the style sheet. Here they become FONT tags, and the items of their lists
// paragraphs that begin with the bullet or number.
#include <algorithm>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "html_to_rtf/blocks/element_pairs.h"
#include "html_to_rtf/inline/tag_values.h"
#include "stylesheet/style_sheets.h"
#include "stylesheet/styled_page.h"
#include "text/limits.h"
#include "text/search.h"

namespace quillary::stylesheet {
namespace {

using HTMLRTFConverter::ElementPairs;
using HTMLRTFConverter::Without;

constexpr std::size_t npos = TextView::npos;

/// A text as it is written and in upper case.
struct Stretch {
  TextView written;
  TextView upper;

  Stretch From(std::size_t at) const { return {written.substr(at), upper.substr(at)}; }
  Stretch UpTo(std::size_t at) const { return {written.substr(0, at), upper.substr(0, at)}; }
  /// What stands from after the name up to a semicolon, or to the end; empty without the name.
  TextView Value(TextView name) const {
    const std::size_t at = upper.find(name);
    if (at == npos) return {};
    const TextView rest = written.substr(at + name.size());
    return rest.substr(0, rest.find(u';'));
  }
};

/// What the style sheet says of paragraphs.
struct ParagraphStyle {
  Text class_name;  // in upper case
  Text face;
};

/// A level of a list.
struct ListLevelStyle {
  Text name;
  Text text;  // the bullet
  Text face;
};

std::optional<Stretch> After(Stretch page, TextView heading) {
  const std::size_t at = page.upper.find(heading);
  if (at == npos) return std::nullopt;
  return page.From(at + heading.size());
}

ParagraphStyle ReadParagraphStyle(Stretch head) {
  ParagraphStyle style;
  const std::optional<Stretch> block = After(head, u"/* STYLE DEFINITIONS */");
  if (!block) return style;
  const std::size_t open = block->upper.find(u'{');
  const TextView selectors = block->upper.substr(0, open);
  const std::size_t dot = selectors.find(u'.');
  if (dot != npos) style.class_name = selectors.substr(dot + 1, selectors.find(u',', dot) - dot - 1);
  if (open == npos) return style;
  const Stretch declaration = block->From(open + 1).UpTo(block->upper.find(u'}', open) - open - 1);
  // Nobody asks for the size, but one that is too large fails.
  RoundNumberText(ReplaceAll(ToUpper(declaration.Value(u"FONT-SIZE:")), u"PT", u""));
  style.face = Without(declaration.Value(u"FONT-FAMILY:"), u"\"");
  return style;
}

// A bullet of a symbol font is written as an escape of the private use area.
Text BulletText(TextView value) {
  constexpr TextView kSymbol = u"\\F0";
  if (ToUpper(value).find(kSymbol) != 0) return Text(value);
  return Joined({u"&#X", value.substr(kSymbol.size()), u";"});
}

std::vector<ListLevelStyle> ReadListLevels(Stretch page) {
  std::vector<ListLevelStyle> levels;
  const std::optional<Stretch> block = After(page, u"/* LIST DEFINITIONS */");
  if (!block) return levels;
  Stretch rest = *block;
  for (std::size_t at = rest.upper.find(u'@'); at != npos; at = rest.upper.find(u'@')) {
    const std::size_t open = rest.upper.find(u'{', at);
    const std::size_t close = open == npos ? npos : rest.upper.find(u'}', open);
    if (close == npos) break;
    const Text name = ReplaceAll(Without(rest.upper.substr(at + 1, open - at - 1), u"\t\r\n"), u":", u" ");
    const Stretch declaration = rest.From(open + 1).UpTo(close - open - 1);
    levels.push_back({ReplaceAll(name, u"LIST ", u""), BulletText(declaration.Value(u"MSO-LEVEL-TEXT:")),
                      Without(declaration.Value(u"FONT-FAMILY:"), u"\"")});
    rest = rest.From(close + 1);
  }
  return levels;
}

Text FontTag(TextView face) { return Joined({u"<FONT FACE=\"", face, u"\">"}); }

// A FONT element for what stands in each element whose tag begins so, if its tag asks for one.
template <class TagOf>
void WrapEach(StyledPage& page, TextView opening, TextView name, TagOf&& font_tag_of) {
  const Finder finder(opening, Compare::Binary);
  for (std::size_t at = finder.Next(page.upper(), 0); at != npos;) {
    const std::size_t end = page.TagEnd(at);
    if (end == npos) return;
    const std::size_t units = end + 1 - at;
    const TextView font_tag =
        font_tag_of(Stretch{page.page().substr(at, units), page.upper().substr(at, units)});
    at = finder.Next(page.upper(), font_tag.empty() ? at + 1 : page.Wrap(at, end, name, font_tag));
  }
}

/// The FONT tags of spans, which live until the page is written.
class SpanTags {
 public:
  TextView operator()(Stretch tag) {
    constexpr TextView kFamily = u"FONT-FAMILY:";
    const std::size_t at = tag.upper.find(kFamily);
    if (at == npos || tag.upper.find(u"STYLE") == npos) return {};
    const TextView rest = tag.written.substr(at + kFamily.size());
    std::size_t end = rest.find(u';');
    if (end == npos) end = rest.find(u'\'');
    if (end == npos) return {};
    return *tags_.insert(FontTag(Without(rest.substr(0, end), u"\""))).first;
  }

 private:
  std::set<Text> tags_;
};

Text WrapFaces(Text page, const ParagraphStyle& style) {
  const std::size_t limit = limits::kWorkingUnits;
  const Text font_tag = FontTag(style.face);
  const auto of_class = [&](Stretch tag) {
    const bool is_of_class = tag.upper.find(u"CLASS") != npos && tag.upper.find(style.class_name) != npos;
    return is_of_class ? TextView(font_tag) : TextView();
  };
  SpanTags span_tags;
  StyledPage styled(std::move(page), StyledPage::Road::Noted, limit);
  const auto wrap = [&](TextView opening, TextView name) {
    styled.Run([&] {
      if (style.face.find_first_of(u"<>") != npos) styled.NeedsAtOnce();
      WrapEach(styled, opening, name, of_class);
    });
  };
  wrap(u"<P ", u"P");
  wrap(u"<LI ", u"LI");
  styled.Run([&] { WrapEach(styled, u"<SPAN ", u"SPAN", [&](Stretch tag) { return span_tags(tag); }); });
  return styled.Take();
}

/// The items of lists as paragraphs. The tags of the lists stay.
class Lists {
 public:
  Lists(const Text& page, const std::vector<ListLevelStyle>& levels, TextView list, TextView other)
      : page_(page), upper_(ToUpper(page)), levels_(levels), list_(list), other_(other) {}

  // A list with one of the other kind in it stays as it is, but not the lists in it. What
  // stands inside a list that is done has nothing left to do.
  Text Rewrite() {
    ElementEnds ends(upper_);
    const Text opening = u"<" + Text(list_);
    std::size_t next = 0;
    for (std::size_t at = upper_.find(opening); at != npos; at = upper_.find(opening, next)) {
      next = at + 1;
      const ElementEnd end = ends.Of(at, list_);
      if (!end.found() || upper_.find(u"<" + Text(other_), at) < end.after) continue;
      RewriteItems(at, end.after);
      next = end.after;
    }
    std::sort(changes_.begin(), changes_.end(),
              [](const Change& left, const Change& right) { return left.from < right.from; });
    Text written;
    std::size_t done = 0;
    for (const Change& change : changes_) {
      if (change.from < done) continue;  // tags inside of a tag
      written.append(page_, done, change.from - done).append(change.text);
      done = change.end;
    }
    return written.append(page_, done);
  }

 private:
  struct Change {
    std::size_t from;
    std::size_t end;
    Text text;
  };

  void RewriteItems(std::size_t from, std::size_t end) {
    const TextView upper = TextView(upper_).substr(from, end - from);
    ElementPairs items(upper, u"LI");
    int number = 0;
    for (std::size_t i = 0; i < items.tags().size(); ++i) {
      if (!items.tags()[i].opens) continue;
      const std::size_t last = items.EndOf(i);
      if (last == ElementPairs::npos) continue;
      const std::size_t at = items.tags()[i].at;
      const std::size_t tag_end = upper.find(u'>', at);
      const std::size_t close = items.tags()[last].at;
      const std::size_t close_end = upper.find(u'>', close);
      if (close_end == npos) continue;
      const ListLevelStyle* level = LevelOf(upper.substr(at, tag_end - at));
      if (level == nullptr) continue;
      items.Take(i, last);
      changes_.push_back({from + at, from + tag_end + 1, Start(*level, ++number)});
      changes_.push_back({from + close, from + close_end + 1, u"</P>"});
    }
  }

  Text Start(const ListLevelStyle& level, int number) const {
    if (list_ == u"OL") return Joined({u"<P>", Decimal(number), u". "});
    return Joined({u"<P>", FontTag(level.face), level.text, u" </FONT>"});
  }

  // The level is named by the first two words of the property.
  const ListLevelStyle* LevelOf(TextView upper_tag) const {
    constexpr TextView kProperty = u"MSO-LIST:";
    const std::size_t at = upper_tag.find(kProperty);
    if (at == npos) return nullptr;
    const TextView value = upper_tag.substr(at + kProperty.size());
    const std::size_t first = value.find(u' ');
    const std::size_t second = first == npos ? npos : value.find(u' ', first + 1);
    if (second == npos) return nullptr;
    const auto found = std::find_if(levels_.begin(), levels_.end(), [&](const ListLevelStyle& level) {
      return level.name == value.substr(0, second);
    });
    return found == levels_.end() ? nullptr : &*found;
  }

  const Text& page_;
  Text upper_;
  const std::vector<ListLevelStyle>& levels_;
  TextView list_;
  TextView other_;
  std::vector<Change> changes_;
};

}  // namespace

void ReadWordDefinitions(Text& page) {
  const Text upper = ToUpper(page);
  const std::size_t body = upper.rfind(u"<BODY");
  if (body == npos) return;
  const Stretch whole{page, upper};
  const ParagraphStyle style = ReadParagraphStyle(whole.UpTo(body));
  const std::vector<ListLevelStyle> levels = ReadListLevels(whole);
  StripStyleBlocks(page);
  page = WrapFaces(std::move(page), style);
  page = Lists(page, levels, u"UL", u"OL").Rewrite();
  page = Lists(page, levels, u"OL", u"UL").Rewrite();
  ReplaceIn(page, u"</OL>", u"</UL>");
  ReplaceIn(page, u"</ol>", u"</ul>");
  ReplaceIn(page, u"<OL", u"<UL");
  ReplaceIn(page, u"<ol", u"<ul");
}

}  // namespace quillary::stylesheet
