#include "component/conversions.h"
#include "component/convert_rtf_header.rules.h"
#include "component/entry_options.h"
#include "component/run_driver.h"
#include "rules/run.h"

namespace quillary::component {
namespace {

std::int32_t Find(std::int32_t start, TextView text, TextView find) {
  return FindText(start, text, find, Compare::IgnoreCase);
}

// Ten units from here on the text of the header begins; 0 or less if there is
// no header.
std::int32_t HeaderStart(TextView rtf) {
  std::int32_t start = Find(1, rtf, u"{\\headerf ");
  if (start == 0) start = Find(1, rtf, u"{\\header ");
  if (start > 0) return start;
  start = Find(1, rtf, u"{\\header\\");
  if (start > 0) return start - 2;
  return Find(1, rtf, u"{\\headerr ") - 1;
}

// The footer follows, or else a run of braces ends the header.
std::int32_t HeaderEnd(TextView rtf, std::int32_t start) {
  for (const TextView end : {u"{\\footerf ", u"{\\footer ", u"{\\footer\\", u"}}{"}) {
    const std::int32_t found = Find(start, rtf, end);
    if (found > 0) return found;
  }
  return 0;
}

// Fonts and colours of the document are not carried over: the numbers in the
// header's text refer to these.
Text HeaderDocument(const Text& header) {
  return u"{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang2057{\\fonttbl{\\f0\\fswiss\\fprq2\\fcharset 0 Arial;}"
         u"{\\f1\\fnil\\fcharset0 Times New Roman;}{\\f2\\fnil\\fcharset2 Symbol;}}\r\n"
         u"{\\colortbl ;\\red0\\green0\\blue255;}\r\n"
         u"\\viewkind4\\uc1\\pard\\lang1033\\fs20 \r\n"
         u"\\par \r\n" +
         header + u"\r\n\\par }";
}

}  // namespace

Text ConvertRTFHeader(Apartment& apartment, Properties& properties) {
  const EntryOptions options = ReadEntryOptions(properties);
  const Text rtf = rules::RunOver(chains::HeaderBreaks, properties.RTF_Text);
  const std::int32_t start = HeaderStart(rtf);
  if (start < 1) return {};
  const std::int32_t end = HeaderEnd(rtf, start);
  if (end == 0) return {};
  Text document = rules::RunOver(chains::HeaderStart, HeaderDocument(Mid(rtf, start + 10, end - start - 11)));
  if (options.round_trip) RichTextRoundTrip(apartment, document);
  properties.HTML_Text = RunDriver(apartment, properties, document, u"no");
  if (!Holds(properties.HTML_Text, u"Torvane", Compare::IgnoreCase)) return properties.HTML_Text;
  return rules::RunOver(chains::TransferHeader, properties.HTML_Text);
}

}  // namespace quillary::component
