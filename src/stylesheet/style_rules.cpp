// A sheet cut into rules, and the declarations of a rule.
#include <algorithm>
#include <optional>
#include <utility>

#include "html_to_rtf/inline/colours.h"
#include "html_to_rtf/inline/tag_values.h"
#include "stylesheet/cut_blocks.h"
#include "stylesheet/style_sheets.h"
#include "text/failure.h"

namespace quillary::stylesheet {
namespace {

using HTMLRTFConverter::NormaliseCssColour;
using HTMLRTFConverter::ReadRgb;
using HTMLRTFConverter::ToNumber;
using HTMLRTFConverter::Without;

constexpr std::size_t npos = TextView::npos;

struct Declarations {
  TextView written;
  Text upper;

  // What stands after the colon that follows the name, up to the semicolon.
  TextView ValueAfter(std::size_t name_end) const {
    const std::size_t colon = upper.find(u':', name_end);
    return colon == npos ? TextView() : UpToSemicolon(colon + 1);
  }
  TextView UpToSemicolon(std::size_t start) const {
    const TextView rest = written.substr(start);
    return TrimView(rest.substr(0, rest.find(u';')));
  }
  TextView Value(TextView name) const {
    const std::size_t at = upper.find(name);
    return at == npos ? TextView() : ValueAfter(at + name.size());
  }
};

// The value of COLOR itself, and of no name that ends like it.
TextView ColourValue(const Declarations& declarations) {
  constexpr TextView kName = u"COLOR";
  std::size_t at = declarations.upper.find(kName);
  while (at != npos && at > 0 && declarations.upper[at - 1] == u'-')
    at = declarations.upper.find(kName, at + 1);
  return at == npos ? TextView() : declarations.ValueAfter(at + kName.size());
}

Text ReadColour(const Apartment& apartment, TextView value) {
  if (value.empty()) return {};
  Text colour(value);
  if (Holds(colour, u"#")) {
    colour = Without(colour, u"#");
  } else if (Holds(colour, u"RGB", Compare::IgnoreCase)) {
    colour = ReadRgb(ToUpper(colour));
  } else {
    NormaliseCssColour(apartment, colour);
  }
  if (colour.size() != 3) return colour;
  return {colour[0], colour[0], colour[1], colour[1], colour[2], colour[2]};
}

Text ReadFace(TextView value) { return Trim(Without(value.substr(0, value.find(u',')), u"\"")); }

// Only points are a size.
Integer16 ReadSize(TextView value) {
  if (!Holds(value, u"pt")) return 0;
  Integer16 size = RoundNumberText(ReplaceAll(value, u"pt", u""));
  size = std::int64_t{size} * 2;
  return size;
}

// The short form: a size, then a face, which may stand in quotation marks.
void ReadFont(TextView value, StyleRule& rule) {
  const TextView font = TrimView(value.substr(0, value.find(u',')));
  TextView face = font;
  if (face.ends_with(u'"')) {
    face.remove_suffix(1);
    face = face.substr(face.rfind(u'"') + 1);
  } else {
    face = face.substr(face.rfind(u' ') + 1);
  }
  rule.Face = Trim(face);
  const std::size_t points = font.find(u"pt");
  if (points == npos) return;
  const TextView in_front = font.substr(0, points);
  const TextView size = in_front.substr(in_front.rfind(u' ') + 1);
  if (IsNumeric(size)) rule.Size = ToInteger16(HTMLRTFConverter::NumberText(ToNumber(size) * 2));
}

Text ReadListStyle(TextView value) {
  constexpr std::pair<TextView, TextView> kTypes[] = {{u"DECIMAL", u"1"},
                                                      {u"LOWER-ALPHA", u"a"},
                                                      {u"UPPER-ALPHA", u"A"},
                                                      {u"LOWER-ROMAN", u"i"},
                                                      {u"UPPER-ROMAN", u"I"}};
  const Text upper = ToUpper(value);
  for (const auto& [word, type] : kTypes) {
    if (upper == word) return Text(type);
  }
  return Text(value);
}

StyleRule ReadDeclarations(const Apartment& apartment, TextView text) {
  const Declarations declarations{text, ToUpper(text)};
  StyleRule rule;
  rule.Face = ReadFace(declarations.Value(u"FONT-FAMILY"));
  rule.Size = ReadSize(declarations.Value(u"FONT-SIZE"));
  constexpr TextView kShortForm = u"FONT:";
  const std::size_t font = declarations.upper.find(kShortForm);
  if (font != npos) ReadFont(declarations.UpToSemicolon(font + kShortForm.size()), rule);
  rule.Colour = ReadColour(apartment, ColourValue(declarations));
  rule.Background = ReadColour(apartment, declarations.Value(u"BACKGROUND-COLOR"));
  rule.ListStyle = ReadListStyle(declarations.Value(u"LIST-STYLE"));
  return rule;
}

/// Declarations, which are read for the first of their selectors, and once for all of them.
struct Block {
  TextView text;
  std::optional<StyleRule> rule = {};
};

void AddRule(Apartment& apartment, TextView selector, Block& block) {
  selector = TrimView(selector);
  if (selector.find(u':') != npos) return;
  if (!block.rule) block.rule = ReadDeclarations(apartment, block.text);
  StyleRule rule = *block.rule;
  StyleSheet& sheet = apartment.html_to_rtf.StyleSheets.Top();
  List<StyleRule>* rules = &sheet.TagRules;
  if (selector.starts_with(u'.')) rules = &sheet.ClassRules;
  if (selector.starts_with(u'#')) rules = &sheet.IdRules;
  if (rules != &sheet.TagRules) selector.remove_prefix(1);
  rule.Selector = ToUpper(selector);
  const std::int32_t place = rules->sized() ? rules->upper() + 1 : 0;
  rules->Grow(place);
  rules->Set(place, std::move(rule));
}

Text SelectorList(TextView text) {
  Text list = Trim(Without(text, u"\r\n\t"));
  const auto doubled = [](char16_t left, char16_t right) { return left == u'.' && right == u'.'; };
  list.erase(std::unique(list.begin(), list.end(), doubled), list.end());
  return list;
}

}  // namespace

void AddStyleRule(Apartment& apartment, TextView selector, TextView declarations) {
  Block block{declarations};
  AddRule(apartment, selector, block);
}

namespace {

// A long value under many selectors would take more than a page may grow to.
void CheckRules(const Apartment& apartment, const Block& block, TextView selectors) {
  const auto names = static_cast<std::size_t>(std::count(selectors.begin(), selectors.end(), u','));
  if (block.text.size() * names > apartment.working_limit) throw LimitReached(LimitReached::Limit::Growth);
}

// Reads the rules from `at` on, which is moved after what is read.
void ReadRules(Apartment& apartment, TextView sheet, std::size_t& at) {
  for (std::size_t open = sheet.find(u'{'); open != npos; open = sheet.find(u'{', at)) {
    const Text list = SelectorList(sheet.substr(at, open - at));
    at = open + 1;
    const std::size_t close = sheet.find(u'}', at);
    if (close == npos) return;
    Block block{TrimView(sheet.substr(at, close - at))};
    at = close + 1;
    CheckRules(apartment, block, list);
    TextView selectors = list;
    if (selectors.ends_with(u',')) selectors.remove_suffix(1);
    for (std::size_t comma = selectors.find(u','); comma != npos; comma = selectors.find(u',')) {
      AddRule(apartment, selectors.substr(0, comma), block);
      selectors.remove_prefix(comma + 1);
    }
    AddRule(apartment, selectors, block);
  }
}

}  // namespace

void ParseStyleRules(Apartment& apartment, Text& text) {
  CutBlocks(text, u"/*", u"*/", 2);
  ReplaceIn(text, u"\r\n", u" ");
  std::size_t at = 0;
  try {
    ReadRules(apartment, text, at);
  } catch (const Failure&) {
    text.erase(0, at);
    throw;
  }
  text.erase(0, at);
}

}  // namespace quillary::stylesheet
