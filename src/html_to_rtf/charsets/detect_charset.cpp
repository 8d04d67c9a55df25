#include <algorithm>

#include "html_to_rtf/charsets/charsets.h"
#include "text/search.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr std::size_t npos = TextView::npos;

struct FontCharset {
  TextView name;
  std::int16_t number;
};

constexpr FontCharset kFontCharsets[] = {
    {u"GB2312", 134},     {u"CSGB2312", 134},    {u"SHIFT_JIS", 128},   {u"MS_KANJI", 128},
    {u"CSSHIFTJIS", 128}, {u"ISO-2022-KR", 129}, {u"CSISO2022KR", 129}, {u"EUC-KR", 129},
    {u"CSEUCKR", 129},    {u"BIG5", 136},        {u"CSBIG5", 136},
};

/// The next occurrence of a text at or after places that only move forward.
class Ahead {
 public:
  Ahead(TextView text, TextView find)
      : text_(text), finder_(find, Compare::Binary), hit_(finder_.Next(text, 0)) {}
  std::size_t From(std::size_t at) {
    if (hit_ < at) hit_ = finder_.Next(text_, at);
    return hit_;
  }

 private:
  TextView text_;
  Finder finder_;
  std::size_t hit_;
};

// The value reaches to its quotation mark, or to a semicolon in front of it; without a
// quotation mark to the end of the tag, so that it is known only where it comes last. No known
// one is as long as this.
TextView CharsetValue(TextView rest, std::size_t quote) {
  constexpr std::size_t kTooLong = 16;
  if (quote >= rest.size()) return rest;
  return rest.substr(0, std::min(rest.substr(0, kTooLong).find(u';'), quote));
}

void TakeCharset(HtmlToRtfState& state, TextView value) {
  for (const FontCharset& charset : kFontCharsets) {
    if (value == charset.name) state.DocCharset = charset.number;
  }
  if (value == u"GB2312") state.IsGb2312 = true;
  if (value == u"UTF-8") state.IsUtf8 = true;
  if (value == u"ISO-2022-JP") state.IsIso2022Jp = true;
}

}  // namespace

bool DetectCharset(HtmlToRtfState& state, TextView text) {
  state.DocCharset = 0;
  const Text upper = ToUpper(text);
  const std::size_t body = upper.rfind(u"<BODY");
  if (body == npos) return false;
  const TextView head = TextView(upper).substr(0, body);
  constexpr TextView kCharset = u"CHARSET=";
  constexpr TextView kWordProcessor = u"NAME=GENERATOR CONTENT=\"MICROSOFT WORD";
  Ahead charset(head, kCharset);
  Ahead generator(head, kWordProcessor);
  Ahead tag_ends(head, u">");
  Ahead quotes(head, u"\"");
  std::size_t taken = npos;
  bool of_word_processor = false;
  for (std::size_t at = head.find(u"<META"); at != npos; at = head.find(u"<META", at + 1)) {
    const std::size_t end = tag_ends.From(at);
    if (end == npos) break;
    const std::size_t hit = charset.From(at);
    if (state.DocCharset == 0 && hit != taken && hit < end && end - hit >= kCharset.size()) {
      taken = hit;  // tags without an end of their own hold the same
      const std::size_t start = hit + kCharset.size();
      TakeCharset(state, CharsetValue(head.substr(start, end - start), quotes.From(start) - start));
    }
    const std::size_t word_processor = generator.From(at);
    if (word_processor < end && end - word_processor >= kWordProcessor.size()) of_word_processor = true;
  }
  return of_word_processor;
}

}  // namespace quillary::HTMLRTFConverter
