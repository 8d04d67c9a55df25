// Where the sheets of a page are, and StripStyleBlocks, which takes them out of it.
#include <algorithm>
#include <optional>
#include <string>

#include "stylesheet/cut_blocks.h"
#include "stylesheet/style_sheets.h"
#include "text/failure.h"
#include "text/limits.h"

namespace quillary::stylesheet {
namespace {

// The text of the first STYLE element, without what hides it from old browsers.
std::optional<Text> OwnSheet(TextView page, TextView upper) {
  const std::size_t style = upper.find(u"<STYLE");
  const std::size_t start = style == TextView::npos ? style : upper.find(u'>', style);
  const std::size_t end = start == TextView::npos ? start : upper.find(u"</STYLE>", start + 1);
  if (end == TextView::npos) return std::nullopt;
  const TextView sheet = page.substr(start + 1, end - start - 1);
  return ReplaceAll(ReplaceAll(sheet, u"<!--", u""), u"-->", u"");
}

// The value of HREF, or of whatever attribute follows it first.
Text LinkedPath(TextView tag, TextView upper, TextView folder) {
  const std::int32_t equals = FindText(FindText(1, upper, u"HREF"), upper, u"=");
  TextView rest = MidView(tag, equals + 1);
  rest.remove_prefix(std::min(rest.find_first_not_of(u' '), rest.size()));
  Text path(rest.substr(0, rest.find(u' ')));
  std::erase_if(path, [](char16_t unit) { return unit == u'>' || unit == u'"'; });
  return path.find(u':') == Text::npos ? Joined({folder, u"\\", path}) : path;
}

bool IsStyleSheet(TextView upper) {
  return Holds(upper, u"STYLESHEET") && Holds(upper, u"TEXT/CSS") && Holds(upper, u"HREF");
}

void ReadLinkedSheet(Apartment& apartment, const Text& path, TextView folder) {
  List<StyleSheet>& sheets = apartment.html_to_rtf.StyleSheets;
  if (!sheets[0].Name.empty()) sheets.Push({});
  sheets.Top().Name = path;
  const auto& files = apartment.services.files;
  if (!files || !files->LiesIn(folder, path)) return;
  Text sheet = ReadWholeFile(apartment, path);
  ParseStyleRules(apartment, sheet);
}

}  // namespace

void StripStyleBlocks(Text& text) {
  CutBlocks(text, u"<!--", u"-->", 0);
  CutBlocks(text, u"<STYLE", u"</STYLE>", 0);
}

void CollectStyleSheets(Apartment& apartment, TextView text, TextView folder) {
  if (!Holds(text, u"<STYLE", Compare::IgnoreCase) && !Holds(text, u"<LINK", Compare::IgnoreCase)) return;
  const Text upper_page = ToUpper(text);
  const TextView upper = upper_page;
  if (std::optional<Text> sheet = OwnSheet(text, upper)) {
    apartment.html_to_rtf.StyleSheets.At(0).Name = u"HTML";
    ParseStyleRules(apartment, *sheet);
  }
  int links = 0;
  for (std::size_t at = upper.find(u"<LINK"); at != TextView::npos; at = upper.find(u"<LINK", at + 1)) {
    const std::size_t end = upper.find(u'>', at);
    if (end == TextView::npos) return;
    if (++links > limits::kLinkedStyleSheets) throw LimitReached(LimitReached::Limit::Input);
    const std::size_t units = end + 1 - at;
    if (!IsStyleSheet(upper.substr(at, units))) continue;
    ReadLinkedSheet(apartment, LinkedPath(text.substr(at, units), upper.substr(at, units), folder), folder);
  }
}

Text ReadWholeFile(Apartment& apartment, TextView path) {
  if (!apartment.services.files) return {};
  const std::optional<std::string> bytes = apartment.services.files->Read(path, limits::kStyleSheetBytes);
  if (!bytes) return {};
  Text text(bytes->size(), u'\0');
  std::transform(bytes->begin(), bytes->end(), text.begin(),
                 [](char byte) { return static_cast<char16_t>(static_cast<unsigned char>(byte)); });
  return text;
}

}  // namespace quillary::stylesheet
