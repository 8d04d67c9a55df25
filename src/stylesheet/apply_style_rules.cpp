// The rules of the sheets as FONT tags of the page. What is applied later stands further
// out, so that the FONT tag of an earlier rule has the last word.
#include <algorithm>
#include <deque>

#include "stylesheet/style_sheets.h"
#include "stylesheet/styled_page.h"
#include "text/search.h"

namespace quillary::stylesheet {
namespace {

constexpr std::size_t npos = TextView::npos;

Text FontTag(const StyleRule& rule) {
  Text tag = u"<FONT";
  const auto add = [&](TextView name, TextView value) {
    tag.append(name).append(u"=\"").append(value) += u'"';
  };
  if (!rule.Face.empty()) add(u" FACE", rule.Face);
  if (!rule.Colour.empty()) add(u" COLOR", rule.Colour);
  if (!rule.Background.empty()) add(u" style", Joined({u"BACKGROUND: ", rule.Background}));
  if (rule.Size > 0) add(u" SIZEPT", Decimal(rule.Size));
  return tag + u">";
}

bool HoldsAttribute(TextView upper_tag, TextView name) {
  for (std::size_t at = upper_tag.find(name); at != npos; at = upper_tag.find(name, at + 1)) {
    const TextView after = upper_tag.substr(at + name.size());
    if (after.starts_with(u'=') || after.starts_with(u" =")) return true;
  }
  return false;
}

// The text up to its first "<" or ">". Texts without one can only be found inside a tag or
// between two, where no new tag ever stands.
TextView Head(TextView text) {
  return text.substr(0, std::min(text.find_first_of(u"<>"), text.size() - 1) + 1);
}
bool HasBrackets(TextView text) { return text.find_first_of(u"<>") != npos; }

// A value in a tag counts once for each time that it stands in it.
void Wrap(StyledPage& page, TextView value, TextView font_tag, TextView attribute) {
  if (value.empty()) return;
  if (HasBrackets(value)) {
    if (!Holds(Head(value), u"\"") && !Holds(page.page(), Head(value), Compare::IgnoreCase)) return;
    page.NeedsAtOnce();
  }
  const Finder finder(value, Compare::IgnoreCase);
  std::size_t known = npos;  // the tag that was looked at last
  std::size_t space = npos;
  for (std::size_t at = finder.Next(page.page(), 0); at != npos;) {
    const std::size_t start = page.TagStart(at);
    const std::size_t end = start == npos ? npos : page.TagEnd(start);
    std::size_t next = at + 1;
    if (start != npos && end == npos) return;  // no tag ends any more
    if (end != npos && at <= end) {
      const TextView tag = page.upper().substr(start, end + 1 - start);
      if (start != known) space = HoldsAttribute(tag, attribute) ? tag.find(u' ') : npos;
      known = start;
      if (space == npos) {
        next = end + 1;
      } else {
        page.Wrap(start, end, tag.substr(1, space - 1), font_tag);
      }
    }
    at = finder.Next(page.page(), next);
  }
}

/// A selector of a tag, which may have a class or an identifier.
struct TagSelector {
  Text tag;
  TextView attribute;
  Text value;

  explicit TagSelector(TextView selector) : tag(ToUpper(selector)) {
    const auto cut = [&](char16_t sign, TextView name) {
      const std::size_t at = tag.find(sign);
      if (at == Text::npos || !attribute.empty()) return;
      attribute = name;
      value = tag.substr(at + 1);
      tag.resize(at);
    };
    cut(u'.', u"CLASS");
    cut(u'#', u"ID");
  }

  // The value stands after an equals sign of whatever attribute.
  bool Fits(TextView upper_tag) const {
    if (attribute.empty()) return true;
    if (value.empty()) return HoldsAttribute(upper_tag, attribute) && upper_tag.find(u'=') != npos;
    for (std::size_t at = upper_tag.find(value); at != npos; at = upper_tag.find(value, at + 1)) {
      TextView before = upper_tag.substr(0, at);
      if (before.ends_with(u'"')) before.remove_suffix(1);
      if (before.ends_with(u' ')) before.remove_suffix(1);
      if (before.ends_with(u'=')) return HoldsAttribute(upper_tag, attribute);
    }
    return false;
  }
};

void Wrap(StyledPage& page, const TagSelector& selector, TextView font_tag) {
  const Text opening = u"<" + selector.tag;
  if (HasBrackets(selector.tag) && !Holds(page.upper(), u"<" + Text(Head(selector.tag)))) return;
  if (!selector.value.empty() && !Holds(page.upper(), selector.value)) return;
  // Tags that are only noted are tags, too.
  if (HasBrackets(selector.tag) || selector.tag.starts_with(u"FONT")) page.Write();
  const Finder finder(opening, Compare::Binary);
  for (std::size_t at = finder.Next(page.upper(), 0); at != npos;) {
    std::size_t next = at + 1;
    const TextView after = page.upper().substr(at + opening.size());
    if (after.starts_with(u' ') || after.starts_with(u'>')) {
      const std::size_t end = page.TagEnd(at);
      if (end == npos) return;
      if (selector.Fits(page.upper().substr(at, end + 1 - at))) {
        next = page.Wrap(at, end, selector.tag, font_tag);
      }
    }
    at = finder.Next(page.upper(), next);
  }
}

// What stands in the page from a new tag could be taken for something else than the tag.
bool IsPlain(TextView font_tag) {
  const Text upper = ToUpper(font_tag.substr(1, font_tag.size() - 2));
  return !HasBrackets(upper) && !HoldsAttribute(upper, u"CLASS") && !HoldsAttribute(upper, u"ID");
}

class Application {
 public:
  Application(Apartment& apartment, Text& page) : sheets_(apartment.html_to_rtf.StyleSheets), page_(page) {
    limit_ = apartment.working_limit;
    for (std::int32_t sheet = 0; sheet <= sheets_.upper(); ++sheet) {
      AddTags(sheets_[sheet].ClassRules);
      AddTags(sheets_[sheet].IdRules);
      AddTags(sheets_[sheet].TagRules);
    }
  }

  void Run() {
    if (tags_.empty()) return;  // only sheets that could not be read
    const StyledPage::Road road = plain_ ? StyledPage::Road::Noted : StyledPage::Road::AtOnce;
    StyledPage page(page_, road, limit_);
    std::size_t tag = 0;
    for (std::int32_t sheet = 0; sheet <= sheets_.upper(); ++sheet) {
      RunSheet(sheets_[sheet], page, road, tag);
    }
    page_ = page.Take();
  }

 private:
  void AddTags(const List<StyleRule>& rules) {
    for (std::int32_t i = 0; rules.sized() && i <= rules.upper(); ++i) {
      tags_.push_back(FontTag(rules[i]));
      plain_ = plain_ && IsPlain(tags_.back());
    }
  }

  void RunSheet(const StyleSheet& sheet, StyledPage& page, StyledPage::Road road, std::size_t& tag) {
    const auto each = [](const List<StyleRule>& rules, auto&& action) {
      for (std::int32_t i = 0; rules.sized() && i <= rules.upper(); ++i) action(rules[i]);
    };
    const auto wrap_named = [&](const List<StyleRule>& rules, TextView attribute) {
      each(rules, [&](const StyleRule& rule) {
        page.Run([&] { Wrap(page, rule.Selector, tags_[tag], attribute); });
        ++tag;
      });
    };
    const auto wrap_tags = [&](const StyleRule& rule) {
      page.Run([&] { Wrap(page, TagSelector(rule.Selector), tags_[tag]); });
    };
    wrap_named(sheet.ClassRules, u"CLASS");
    wrap_named(sheet.IdRules, u"ID");
    const std::size_t first = tag;
    const auto is_compound = [](const StyleRule& rule) { return rule.Selector.find_first_of(u".#") != npos; };
    each(sheet.TagRules, [&](const StyleRule& rule) {
      if (is_compound(rule)) wrap_tags(rule);
      ++tag;
    });
    tag = first;
    each(sheet.TagRules, [&](const StyleRule& rule) {
      if (Holds(rule.Selector, u"OL") && !rule.ListStyle.empty()) {
        Text text = page.Take();
        ApplyListStyle(text, rule.Selector, Joined({u"TYPE=", rule.ListStyle}));
        page = StyledPage(std::move(text), road, limit_);
      }
      if (!is_compound(rule)) wrap_tags(rule);
      ++tag;
    });
  }

  const List<StyleSheet>& sheets_;
  Text& page_;
  std::size_t limit_;
  std::deque<Text> tags_;  // of all rules, in the order of their sheets and kinds
  bool plain_ = true;
};

}  // namespace

void ApplyStyleRules(Apartment& apartment, Text& page) { Application(apartment, page).Run(); }

void WrapByAttribute(Apartment& apartment, Text& page, TextView value, TextView font_tag,
                     TextView attribute) {
  StyledPage styled(page, StyledPage::Road::AtOnce, apartment.working_limit);
  Wrap(styled, value, font_tag, ToUpper(attribute));
  page = styled.Take();
}

void WrapTagRule(Apartment& apartment, Text& page, TextView selector, TextView font_tag) {
  StyledPage styled(page, StyledPage::Road::AtOnce, apartment.working_limit);
  Wrap(styled, TagSelector(selector), font_tag);
  page = styled.Take();
}

void ApplyListStyle(Text& page, TextView selector, TextView type_attribute) {
  const std::int32_t depth = CountOccurrences(selector, u"OL");
  if (depth == 0) return;
  const Text upper = ToUpper(page);
  const Text addition = Joined({u" ", type_attribute, u" "});
  const Finder lists(u"<OL", Compare::Binary);
  const Finder ends(u"</OL", Compare::Binary);
  Text written;
  std::size_t done = 0;
  std::int32_t open = 1;
  std::size_t end = ends.Next(upper, 0);
  for (std::size_t at = lists.Next(upper, 0); at != npos;) {
    if (open == depth) {
      written.append(page, done, at + 3 - done).append(addition);
      done = at + 3;
    }
    const std::size_t next = lists.Next(upper, at + 1);
    for (; end < at; end = ends.Next(upper, end + 1)) continue;
    for (; end < next; end = ends.Next(upper, end + 1)) --open;
    ++open;
    at = next;
  }
  page = written.append(page, done);
}

}  // namespace quillary::stylesheet
