#include "html_to_rtf/inline/font_sizes.h"

#include <cmath>
#include <utility>

#include "html_to_rtf/inline/css_values.rules.h"
#include "html_to_rtf/inline/tag_values.h"
#include "rules/run.h"

namespace quillary::HTMLRTFConverter {
namespace {

struct HtmlSize {
  TextView step;
  TextView half_points;
};

constexpr HtmlSize kHtmlSizes[] = {{u"1", u"15"}, {u"2", u"20"},  {u"3", u"24"},  {u"4", u"27"},
                                   {u"5", u"36"}, {u"6", u"48"},  {u"7", u"72"},  {u"8", u"72"},
                                   {u"9", u"72"}, {u"10", u"72"}, {u"11", u"72"}, {u"12", u"72"}};

}  // namespace

Text HtmlFontSize(TextView text, bool rounded) {
  for (const auto& [step, half_points] : kHtmlSizes) {
    if (text == step) return Text(half_points);
  }
  if (rounded) return NumberText(ToNumber(text) * 2);
  return HtmlFontSize(NumberText(std::nearbyint(ToNumber(Without(text, u"'")) * 10) / 10), true);
}

Text ReadCssFontSize(const Apartment& apartment, TextView tag) {
  constexpr TextView kName = u"FONT-SIZE:";
  const std::int32_t found = FindText(1, tag, kName);
  if (found == 0) return {};
  const std::int32_t start = found + static_cast<std::int32_t>(kName.size());
  Text value = Without(ToUpper(ValueBetween(tag, start, FirstEnd(tag, start, {u";", u" ", u">"}))), u"\"'");
  return rules::RunOver(chains::CssSizeNames, StartRewriting(apartment, std::move(value)));
}

}  // namespace quillary::HTMLRTFConverter
