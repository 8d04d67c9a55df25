#include "html_to_rtf/inline/tag_values.h"

#include <algorithm>
#include <charconv>
#include <string>

#include "text/failure.h"

namespace quillary::HTMLRTFConverter {

std::int32_t FirstEnd(TextView tag, std::int32_t from, std::initializer_list<TextView> ends) {
  for (const TextView end : ends) {
    const std::int32_t found = FindText(from, tag, end);
    if (found > 0) return found;
  }
  return 0;
}

TextView ValueBetween(TextView tag, std::int32_t start, std::int32_t end) {
  return end > start ? MidView(tag, start, end - start) : TextView();
}

Text ReadQuotedValue(TextView tag, TextView name) {
  std::int32_t found = FindText(1, tag, Joined({name, u"="}));
  if (found == 0) found = FindText(1, tag, Joined({name, u" ="}));
  if (found == 0) return {};
  TextView rest = MidView(tag, found + Length(Text(name)) + 1);
  rest.remove_prefix(std::min(rest.find_first_not_of(u' '), rest.size()));
  if (rest.starts_with(u'=')) rest = TrimView(rest.substr(1));
  if (rest.starts_with(u'"')) rest.remove_prefix(1);
  return Trim(ValueBetween(rest, 1, FirstEnd(rest, 1, {u"\"", u" ", u">"})));
}

Text ReadSpacedValue(TextView tag, TextView name) {
  const std::int32_t found = FindText(1, tag, name);
  if (found == 0) return {};
  const std::int32_t start = found + static_cast<std::int32_t>(name.size());
  return Text(ValueBetween(tag, start, FirstEnd(tag, start + 1, {u" ", u">"})));
}

Text Without(TextView text, TextView characters) {
  Text kept(text);
  std::erase_if(kept, [&](char16_t unit) { return characters.find(unit) != TextView::npos; });
  return kept;
}

double ToNumber(TextView text) {
  if (!IsNumeric(text)) throw Failure(Failure::Kind::Type);
  text = TrimView(text);
  if (text.starts_with(u'+')) text.remove_prefix(1);
  const std::string digits(text.begin(), text.end());
  double number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

Text NumberText(double number) {
  char digits[400];  // the largest number has 309 digits in front of the point
  return Text(digits, std::to_chars(digits, digits + sizeof digits, number, std::chars_format::fixed).ptr);
}

}  // namespace quillary::HTMLRTFConverter
