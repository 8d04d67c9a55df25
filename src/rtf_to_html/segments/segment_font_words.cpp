#include "rtf_to_html/segments/segment_font_words.h"

#include <map>

#include "rtf_to_html/segments/control_words.h"
#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_faces.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare kIgnoreCase = Compare::IgnoreCase;
constexpr TextView kSpaceEntity = u"&nbsp;";

// Hands the places of `word` in the body to `convert`, one after the other,
// until it returns false. The body may change meanwhile, so there are at most
// as many rounds as there were places at the start: a tag that itself holds
// the word would go on for ever.
template <class Convert>
void ForEachPlace(rules::Rewriting& body, TextView word, Convert convert) {
  constexpr std::int32_t kReach = 7;
  constexpr std::int32_t kStep = 5;
  if (!body.Holds(word, kIgnoreCase)) return;
  const Finder finder(word, kIgnoreCase);
  std::size_t rounds = 0;
  for (std::size_t at = finder.Next(body.text(), 0); at != Finder::npos;
       at = finder.Next(body.text(), at + 1)) {
    ++rounds;
  }
  std::int32_t place = 1;
  for (; rounds > 0; --rounds) {
    place = FindText(place, body.text(), word, kIgnoreCase);
    if (place == 0 || !convert(MidView(body.text(), place, kReach))) return;
    place += kStep;
  }
}

class FontWords {
 public:
  FontWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body)
      : state_(state), segment_(segment), body_(body), without_fonts_(WithoutFonts(state)) {}

  void ReplaceSizes() {
    tag_.clear();
    done_.clear();
    ForEachPlace(body_, u"\\fs", [this](TextView word) { return ReplaceSize(word); });
  }

  void ReplaceColours() {
    tag_.clear();
    done_.clear();
    ForEachPlace(body_, u"\\cf", [this](TextView word) { return ReplaceColour(word); });
  }

  void ReplaceHighlights() {
    if (!body_.Holds(u"\\highlight", kIgnoreCase)) return;
    Replace(u"\\highlight0", u"</span>");
    tag_.clear();
    for (const std::int32_t number : NumbersAfter(body_.text(), u"\\highlight", state_.ColourCount)) {
      if (number < 1) continue;
      if (const Text* colour = EntryAt(state_.ColourTable, number)) {
        tag_ = u"</span><span style=\"background-color: " + *colour + u"\">";
      }
      ReplaceForms(u"\\highlight" + Decimal(number));
    }
  }

 private:
  // Replaces one spelling in the whole body. Returns whether it was there.
  bool Replace(TextView find, TextView with) { return body_.Replace(find, with, kIgnoreCase); }

  // A word and its number become the tag, with the space after it or without.
  bool ReplaceForms(const Text& word) {
    bool changed = Replace(word + u"&nbsp;&nbsp;&#", tag_ + u"&#");
    changed |= Replace(word + Text(kSpaceEntity), tag_);
    changed |= Replace(word + u" ", tag_);
    changed |= Replace(word, tag_);
    return changed;
  }

  // Whether a number was replaced before without any effect, in the text as it
  // is now: then it has none again.
  bool IsDone(std::int32_t number) const {
    const auto found = done_.find(number);
    return found != done_.end() && found->second == version_;
  }
  void SetDone(std::int32_t number, bool changed) {
    if (changed) {
      ++version_;
    } else {
      done_[number] = version_;
    }
  }

  bool ReplaceSize(TextView word) {
    if (!CutWord(word)) return true;
    const TextView digits = word.substr(3);
    if (!IsNumeric(digits)) return false;
    const std::int32_t number = WholeNumber(digits);
    const std::int32_t points = HalfToEven(number);
    const Text find = u"\\fs" + Decimal(number);
    if (points >= 1) {
      const Text* size = EntryAt(state_.SizeTable, points);
      if (size != nullptr) tag_ = u"<font SIZE=\"" + *size + u"\">";
      segment_.hadFontWord = true;
      if (!without_fonts_) {
        if (!IsDone(number)) SetDone(number, ReplaceSizeForms(find));
        if (size != nullptr) state_.CurrentSize = *size;
        return true;
      }
    }
    if (!IsDone(number)) SetDone(number, RemoveSizeForms(find));
    return true;
  }

  bool ReplaceSizeForms(const Text& word) {
    bool changed = Replace(word + u"&nbsp;&nbsp;&#", tag_ + u"&#");
    changed |= Replace(word + Text(kSpaceEntity), tag_);
    changed |= Replace(word + u" ", tag_);
    changed |= Replace(word + u"\\", tag_ + u"\\");
    return changed;
  }

  bool RemoveSizeForms(const Text& word) {
    bool changed = Replace(word + Text(kSpaceEntity), u"");
    changed |= Replace(word + u" ", u"");
    changed |= Replace(word, u"");
    return changed;
  }

  bool ReplaceColour(TextView word) {
    if (!CutWord(word)) return true;
    const TextView digits = word.substr(3);
    if (!IsNumeric(digits)) return false;
    const std::int32_t number = WholeNumber(digits);
    const Text* colour = EntryAt(state_.ColourTable, number);
    if (colour != nullptr) tag_ = u"<font COLOR=\"" + *colour + u"\">";
    state_.ColourExplicit = true;
    if (!IsDone(number)) SetDone(number, ReplaceForms(u"\\cf" + Decimal(number)));
    if (colour != nullptr) state_.CurrentColour = *colour;
    segment_.hadFontWord = true;
    return true;
  }

  RtfToHtmlState& state_;
  Segment& segment_;
  rules::Rewriting& body_;
  bool without_fonts_;
  Text tag_;  // stays from the round before when a number has no entry
  std::map<std::int32_t, std::size_t> done_;
  std::size_t version_ = 0;
};

}  // namespace

void ReplaceFontWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body) {
  FontWords words(state, segment, body);
  words.ReplaceSizes();
  ReplaceFaces(state, segment, body);
  words.ReplaceColours();
  words.ReplaceHighlights();
}

}  // namespace quillary::modQuillary
