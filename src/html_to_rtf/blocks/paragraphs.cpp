#include "html_to_rtf/blocks/paragraphs.h"

#include <algorithm>

#include "html_to_rtf/blocks/breaks.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/spans.h"
#include "html_to_rtf/inline/tag_values.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr std::int32_t kQuoteStep = 720;  // twips

// The break that a paragraph begins with. One that stands for a DIV in a cell pays no debt.
void BreakInFront(HtmlToRtfState& state, TextView tag) {
  if (state.PendingPara && !Holds(tag, u"NOPARAGRAPH")) {
    EmitBreak(state, u"P");
    state.PendingPara = false;
  }
  const bool inside_table = state.TableDepth > 0;
  if (inside_table ? state.AfterGap : state.TextOnLine) EmitBreak(state, u"P");
}

Text Alignment(TextView tag) {
  for (const TextView name : {u"TEXT-ALIGN:", u"ALIGN =", u"ALIGN="}) {
    const std::int32_t found = FindText(1, tag, name);
    if (found == 0) continue;
    const std::int32_t start = found + static_cast<std::int32_t>(name.size());
    return Trim(
        Without(ValueBetween(tag, start, FirstEnd(tag, start + 4, {u";", u"\"", u" ", u">"})), u"\"'="));
  }
  return {};
}

void WriteAlignment(HtmlToRtfState& state, TextView tag) {
  const Text alignment = ToUpper(Alignment(tag));
  if (alignment == u"LEFT") Append(state, u"\\ql");
  if (alignment == u"RIGHT") Append(state, u"\\qr");
  if (alignment == u"CENTER") Append(state, u"\\qc");
  if (alignment == u"JUSTIFY") Append(state, u"\\qj");
}

Text Language(TextView tag) {
  constexpr TextView kName = u"LANG=";
  const std::int32_t found = FindText(1, tag, kName);
  if (found == 0) return {};
  const std::int32_t start = found + static_cast<std::int32_t>(kName.size());
  return Without(ValueBetween(tag, start, FirstEnd(tag, start + 1, {u"\"", u" ", u">"})), u"\"");
}

// A language of two letters, or what the paragraph stands in.
void PushLanguage(HtmlToRtfState& state, TextView tag) {
  const Text language = Language(tag);
  const Text below = language.empty() ? state.LanguageStack.Top() : Text();
  state.LanguageStack.Push({});
  ++state.LanguageCount;
  state.LanguageStack.Top() = language.empty() ? below : ToUpper(Left(language, 2));
}

void WriteQuoteIndent(HtmlToRtfState& state) {
  Append(state, u"\\li", state.QuoteIndent);
  Append(state, u"\\ri720\\sb100\\sa100\r\n");
}

}  // namespace

void OpenParagraph(Apartment& apartment, TextView tag) {
  HtmlToRtfState& state = apartment.html_to_rtf;
  state.ParaSpans.Push({false});
  if (Holds(tag, u"STYLE")) {
    // The end of the paragraph takes one of the two entries; the other one stays for good.
    state.ParaSpans.Push({true});
    OpenSpan(apartment, tag);
  }
  BreakInFront(state, tag);
  if (state.TableDepth > 0) Append(state, u"\\ql");
  if (state.ParasInItem > 0 && state.InListItem) Append(state, u" \\plain\\cf1\\fi900 ");
  ++state.ParasInItem;
  WriteAlignment(state, tag);
  PushLanguage(state, tag);
}

void CloseParagraph(HtmlToRtfState& state, TextView tag) {
  if (state.ParaSpans.Top().set) CloseSpan(state);
  state.ParaSpans.Pop();
  if (state.LanguageCount > 1) {
    state.LanguageStack.Pop();
    state.LanguageCount += -1;
  }
  if (state.TableDepth < 1) {
    EmitBreak(state, tag);
    Append(state, u"\\ql");
  } else {
    state.PendingPara = true;
  }
}

void OpenBlockquote(HtmlToRtfState& state) {
  state.QuoteIndent += kQuoteStep;
  Append(state, state.QuoteIndent == kQuoteStep ? u"\\pard" : u"\\par \\pard");
  AppendTableWords(state);
  WriteQuoteIndent(state);
}

void CloseBlockquote(HtmlToRtfState& state) {
  state.QuoteIndent = std::max(state.QuoteIndent - kQuoteStep, 0);
  Append(state, u"\\par \\pard\r\n");
  AppendTableWords(state);
  if (state.QuoteIndent != 0) {
    WriteQuoteIndent(state);
  } else {
    Append(state, u"\\li0\\ri0\\sb100\\sa100\r\n");
  }
}

}  // namespace quillary::HTMLRTFConverter
