#include "html_to_rtf/blocks/lists.h"

#include <utility>

#include "html_to_rtf/blocks/breaks.h"
#include "html_to_rtf/inline/rtf_words.h"

namespace quillary::HTMLRTFConverter {
namespace {

// The first unit of the TYPE attribute; "1" if there is none.
Text TypeOf(TextView tag) {
  const std::int32_t found = FindText(1, ToUpper(tag), u"TYPE");
  if (found == 0) return u"1";
  TextView rest = MidView(tag, found + 4);
  for (const char16_t skipped : {u' ', u'=', u' ', u'"'}) {
    if (rest.starts_with(skipped)) rest.remove_prefix(1);
  }
  return Text(rest.substr(0, 1));
}

void PushList(HtmlToRtfState& state, bool ordered, TextView type) {
  ListLevel level;
  level.ordered = ordered;
  level.type = type;
  level.closed = true;
  state.ListStack.Push(std::move(level));
  state.ParasInItem = 0;
}

constexpr TextView kRomanDigits[] = {u"", u"I", u"II", u"III", u"IV", u"V", u"VI", u"VII", u"VIII", u"IX"};

// Up to 26 only: there are no signs beyond ten.
Text Roman(std::int16_t counter) {
  const Text digits = Decimal(counter);
  const TextView units = kRomanDigits[digits.back() - u'0'];
  if (counter <= 9) return Text(units);
  return Joined({digits.front() == u'1' ? u"X" : u"XX", units});
}

Text Letter(std::int32_t code) {
  if (code < 0) throw Failure(Failure::Kind::Argument);
  return Text(1, static_cast<char16_t>(code));
}

}  // namespace

void OpenOrderedList(HtmlToRtfState& state, TextView tag) {
  PushList(state, true, TypeOf(tag));
  EmitBreak(state, u"<OL>");
}

void OpenBulletList(HtmlToRtfState& state) {
  PushList(state, false, {});
  EmitBreak(state, u"<UL>");
}

void CloseList(HtmlToRtfState& state) {
  if (state.ListStack.upper() > 0) state.ListStack.Pop();
  // Also in a nested list, so that later breaks of the outer one are plain.
  state.InListItem = false;
  ListLevel& level = state.ListStack.Top();
  if (level.closed) return;
  Append(state, u"\\pard");
  level.closed = true;
  AppendTableWords(state);
}

void OpenListItem(HtmlToRtfState& state) {
  state.InListItem = true;
  ListLevel& level = state.ListStack.Top();
  if (!level.closed) EmitBreak(state, u"<LI>");
  ++level.counter;
  Append(state, u" \\plain\\cf1\\li", state.ListStack.upper() * 300 + 400);
  Append(state, u"\\fi-200\\f", state.CurrentFont);
  Append(state, u"\\fs", state.FontStack.Top().size);
  if (level.ordered) {
    Append(state, u" ");
    Append(state, ListLabel(state, level.counter, level.type));
    Append(state, u". ");
  } else {
    Append(state, u" \\u9679\\'3f ");
  }
  state.PendingPara = false;
  state.TextInTable = false;
  level.closed = false;
}

void CloseListItem(HtmlToRtfState& state) {
  if (state.ParasInItem == 0 && !state.ItemClosed) EmitBreak(state, u"</LI>");
  state.ItemClosed = true;
  Append(state, u"\\pard");
  state.ListStack.Top().closed = true;
  state.ParasInItem = 0;
  AppendTableWords(state);
}

Text ListLabel(HtmlToRtfState& state, std::int16_t counter, TextView type) {
  state.ItemClosed = false;
  if (counter < 27) {
    if (type == u"a") return Letter(counter + 96);
    if (type == u"A") return Letter(counter + 64);
    if (type == u"I") return Roman(counter);
    if (type == u"i") return ToLower(Roman(counter));
  }
  return Decimal(counter);
}

}  // namespace quillary::HTMLRTFConverter
