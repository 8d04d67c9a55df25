#include "html_to_rtf/driver/tag_loop.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "html_to_rtf/blocks/breaks.h"
#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/charsets/charsets.h"
#include "html_to_rtf/driver/tag_handlers.h"
#include "html_to_rtf/inline/backgrounds.h"
#include "html_to_rtf/inline/rtf_words.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr std::int32_t kNowhere = std::numeric_limits<std::int32_t>::max();

class TagLoop {
 public:
  explicit TagLoop(Conversion& conversion) : conversion_(conversion), state_(conversion.state()) {}

  void Walk() {
    for (std::int32_t pass = 1; pass <= conversion_.pass_limit; ++pass) {
      if (!NextTag()) return;
      HandleTag();
      if (!NextGap()) return;
      WriteGap();
      CheckGrowth(conversion_.apartment, state_.RtfOut);
    }
  }

 private:
  const Text& page() const { return state_.HtmlWork.text(); }

  // Position of the first ">" from there on, 0 if there is none. Once there is none, there
  // is none further on.
  std::int32_t TagEnd(std::int32_t from) {
    // A cell without a row writes a tag into the page.
    if (std::exchange(known_units_, page().size()) != page().size()) no_end_from_ = kNowhere;
    if (from >= no_end_from_) return 0;
    const std::int32_t end = FindUnit(from, u'>');
    if (end == 0) no_end_from_ = from;
    return end;
  }
  std::int32_t FindUnit(std::int32_t from, char16_t unit) const {
    return static_cast<std::int32_t>(page().find(unit, static_cast<std::size_t>(from) - 1) + 1);
  }

  // A "<" without an end fails here, and what the pass before found stays in force: so its
  // tag is handled and its text is written once more in each pass.
  bool NextTag() {
    const std::int32_t start = FindUnit(cursor_, u'<');
    if (start == 0) return false;
    tag_start_ = start;
    cursor_ = TagEnd(start);
    if (cursor_ > 0) {
      tag_ = Mid(page(), start, cursor_ - start + 1);
      upper_ = ToUpper(tag_);
    } else if (start == 1) {
      tag_.clear();
      upper_.clear();
    }
    return true;
  }

  void HandleTag() {
    for (const TextView property : {u"PAGE-BREAK-BEFORE", u"PAGE-BREAK-AFTER", u"PAGE-BREAK-INSIDE"}) {
      if (!Holds(upper_, property)) continue;
      Append(state_, u"\r\n\\page\r\n");
      break;
    }
    const PageTag tag{tag_, upper_, tag_start_};
    for (const TagHandler& handler : TagHandlers()) {
      if (handler.Takes(upper_)) AttemptOnce(handler.name, [&] { Run(handler, conversion_, tag); });
    }
    for (const TextView source : {u"BACKGROUND-COLOR:", u"BACKGROUND:", u"BACK=", u"BGCOLOR="}) {
      if (!Holds(upper_, source)) continue;
      AttemptOnce("ApplyBackground", [&] { ApplyBackground(conversion_.apartment, upper_); });
      break;
    }
  }

  // The gap reaches from the end of the tag to the next one.
  bool NextGap() {
    if (cursor_ > 0) gap_start_ = TagEnd(cursor_);
    if (gap_start_ == 0) return false;
    cursor_ = FindUnit(gap_start_, u'<');
    return cursor_ > 0;
  }

  void WriteGap() {
    TextView gap = MidView(page(), gap_start_ + 1, cursor_ - gap_start_ - 1);
    if (gap.empty()) return;
    state_.GapSeen = true;
    if (!state_.TextOnLine) gap.remove_prefix(std::min(gap.find_first_not_of(u' '), gap.size()));
    Text run(gap);
    DecodeRun(run);
    if (!run.empty()) {
      state_.TextOnLine = true;
      if (state_.PendingPara) {
        EmitBreak(state_, u"P");  // which clears TextOnLine
        state_.PendingPara = false;
      }
    }
    if (state_.TableDepth > 0) state_.TextInTable = true;
    if (state_.IsGb2312) AttemptOnce("DecodeGb2312Run", [&] { DecodeGb2312Run(run); });
    EncodeHighChars(conversion_.apartment, run);
    AttemptOnce("WriteRun", [&] { WriteRun(run); });
    state_.AfterGap = true;
  }

  void DecodeRun(Text& run) {
    if (state_.TableDepth > 0) std::erase(run, u'\t');
    CollapseSpaces(run);
    ReplaceIn(run, u"\\~", u" ");
    ReplaceIn(run, u"\\", u"\\\\");
    if (state_.IsIso2022Jp) ReplaceIn(run, u"#\\\\#", u"\\");
    ReplaceIn(run, u"{", u"\\{");
    ReplaceIn(run, u"}", u"\\}");
    AttemptOnce("DecodeNumericEntities", [&] { DecodeNumericEntities(run); });
    DecodeNamedEntities(conversion_.apartment, run);
  }

  void WriteRun(const Text& run) {
    const std::int32_t language = LanguageCode(state_, state_.LanguageCount - 1);
    const FontLevel& level = state_.FontStack.Top();
    Append(state_, u"\\lang", language);
    Append(state_, u"\\fs", level.size);
    if (!state_.InHyperlink) Append(state_, u"\\cf", level.colour);
    Append(state_, u" ");
    Append(state_, run);
    conversion_.run_language = language;
  }

  // A page may fail in every one of its tags, and the list of what failed stays short.
  template <class Statement>
  void AttemptOnce(const char* name, Statement&& statement) {
    try {
      statement();
    } catch (const Failure& failure) {
      auto& failed = conversion_.apartment.failed_steps;
      const bool known = std::any_of(failed.begin(), failed.end(), [&](const FailedStep& step) {
        return step.step == name && step.failure == failure.name();
      });
      if (!known) failed.push_back({name, failure.name()});
    }
  }

  Conversion& conversion_;
  HtmlToRtfState& state_;
  std::int32_t cursor_ = 1;
  std::int32_t tag_start_ = 0;
  std::int32_t gap_start_ = 0;
  std::int32_t no_end_from_ = kNowhere;
  std::size_t known_units_ = 0;
  Text tag_;
  Text upper_;
};

}  // namespace

void WalkTags(Conversion& conversion) { TagLoop(conversion).Walk(); }

}  // namespace quillary::HTMLRTFConverter
