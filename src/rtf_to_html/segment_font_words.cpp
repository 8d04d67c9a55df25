// The words of size, font, colour and highlight that are left in the body.
// Each is looked at where it stands, but replaced in the whole body at once.
#include <algorithm>
#include <map>
#include <vector>

#include "rtf_to_html/control_words.h"
#include "rtf_to_html/segment.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr Compare ignore_case = Compare::IgnoreCase;
constexpr TextView blank_entity = u"&nbsp;";

bool IsDigit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

// Cuts a word off where it ends: at a blank if there is one, else at a
// backslash, else at an ampersand, else at a tag. Returns whether it ends.
bool CutWord(TextView& word) {
  for (const char16_t end : {u' ', u'\\', u'&', u'<'}) {
    const std::size_t at = word.find(end, 2);
    if (at != TextView::npos) {
      word = word.substr(0, at);
      return true;
    }
  }
  return false;
}

// Hands the places of `word` in the body to `convert`, one after the other,
// until it returns false. The body may change meanwhile, so there are at most
// as many rounds as there were places at the start: a tag that itself holds
// the word would go on for ever.
template <class Convert>
void ForEachPlace(rules::Rewriting& body, TextView word, Convert convert) {
  constexpr std::int32_t reach = 7;
  constexpr std::int32_t step = 5;
  if (!body.Holds(word, ignore_case)) return;
  const Finder finder(word, ignore_case);
  std::size_t rounds = 0;
  for (std::size_t at = finder.Next(body.text(), 0); at != Finder::npos;
       at = finder.Next(body.text(), at + 1)) {
    ++rounds;
  }
  std::int32_t place = 1;
  for (; rounds > 0; --rounds) {
    place = FindText(place, body.text(), word, ignore_case);
    if (place == 0 || !convert(MidView(body.text(), place, reach))) return;
    place += step;
  }
}

// The numbers from 0 to `last`, in rising order, that stand behind `word`
// somewhere in the text. "12" counts as 1 and as 12.
std::vector<std::int32_t> NumbersBehind(TextView text, TextView word, std::int32_t last) {
  std::vector<std::int32_t> numbers;
  const Finder finder(word, ignore_case);
  for (std::size_t at = finder.Next(text, 0); at != Finder::npos; at = finder.Next(text, at + 1)) {
    std::int32_t number = 0;
    for (std::size_t digit = at + word.size(); digit < text.size() && IsDigit(text[digit]); ++digit) {
      number = number * 10 + (text[digit] - u'0');
      if (number > last) break;
      numbers.push_back(number);
      if (number == 0) break;  // no number begins with a nought
    }
  }
  std::sort(numbers.begin(), numbers.end());
  numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
  return numbers;
}

class FontWords {
 public:
  FontWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body)
      : state_(state), segment_(segment), body_(body), without_fonts_(WithoutFonts(state)) {}

  void ReplaceSizes() {
    tag_.clear();
    settled_.clear();
    ForEachPlace(body_, u"\\fs", [this](TextView word) { return ReplaceSize(word); });
  }

  void ReplaceFonts() {
    bool changed = true;
    ForEachPlace(body_, u"\\f", [&](TextView word) {
      Text cut(word);
      // A letter of another alphabet ends the word as a blank does.
      if (cut.size() > 3 && !IsDigit(cut[3]) && cut[3] >= 128) cut = cut.substr(0, 3) + u" ";
      TextView end = cut;
      if (!CutWord(end)) return true;
      if (changed) changed = ReplaceAllFonts();
      NoteCurrentFont(end);
      return true;
    });
  }

  void ReplaceColours() {
    tag_.clear();
    settled_.clear();
    ForEachPlace(body_, u"\\cf", [this](TextView word) { return ReplaceColour(word); });
  }

  void ReplaceHighlights() {
    if (!body_.Holds(u"\\highlight", ignore_case)) return;
    Replace(u"\\highlight0", u"</span>");
    tag_.clear();
    for (const std::int32_t number : NumbersBehind(body_.text(), u"\\highlight", state_.ColourCount)) {
      if (number < 1) continue;
      if (const Text* colour = EntryAt(state_.ColourTable, number)) {
        tag_ = u"</span><span style=\"background-color: " + *colour + u"\">";
      }
      ReplaceForms(u"\\highlight" + Decimal(number));
    }
  }

 private:
  // Replaces one spelling in the whole body. Returns whether it was there.
  bool Replace(TextView find, TextView with) { return body_.Replace(find, with, ignore_case); }

  // A word and its number become the tag, with the blank behind it or without.
  bool ReplaceForms(const Text& word) {
    bool changed = Replace(word + u"&nbsp;&nbsp;&#", tag_ + u"&#");
    changed |= Replace(word + Text(blank_entity), tag_);
    changed |= Replace(word + u" ", tag_);
    changed |= Replace(word, tag_);
    return changed;
  }

  // Whether a number was replaced before without any effect, in the text as it
  // is now: then it has none again.
  bool IsSettled(std::int32_t number) const {
    const auto found = settled_.find(number);
    return found != settled_.end() && found->second == version_;
  }
  void Settle(std::int32_t number, bool changed) {
    if (changed) {
      ++version_;
    } else {
      settled_[number] = version_;
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
        if (!IsSettled(number)) Settle(number, ReplaceSizeForms(find));
        if (size != nullptr) state_.CurrentSize = *size;
        return true;
      }
    }
    if (!IsSettled(number)) Settle(number, RemoveSizeForms(find));
    return true;
  }

  bool ReplaceSizeForms(const Text& word) {
    bool changed = Replace(word + u"&nbsp;&nbsp;&#", tag_ + u"&#");
    changed |= Replace(word + Text(blank_entity), tag_);
    changed |= Replace(word + u" ", tag_);
    changed |= Replace(word + u"\\", tag_ + u"\\");
    return changed;
  }

  bool RemoveSizeForms(const Text& word) {
    bool changed = Replace(word + Text(blank_entity), u"");
    changed |= Replace(word + u" ", u"");
    changed |= Replace(word, u"");
    return changed;
  }

  // The face of a font; an unknown font has an empty one.
  TextView Face(std::int32_t number) const {
    const Text* face = EntryAt(state_.FontFaces, number);
    return face == nullptr ? TextView() : TextView(*face);
  }

  // Replaces every font from the last one down. Only numbers that stand in the
  // body are tried; what a replacement brings may spell further ones, so they
  // are taken anew behind each. Returns whether anything changed.
  bool ReplaceAllFonts() {
    const std::int32_t last = state_.FontCount;
    for (std::int32_t n = 0; n <= last && !segment_.hadFontWord; ++n) {
      if (!Face(n).empty()) segment_.hadFontWord = true;
    }
    bool changed = false;
    std::vector<std::int32_t> numbers = NumbersBehind(body_.text(), u"\\f", last);
    while (!numbers.empty()) {
      const std::int32_t number = numbers.back();
      if (ReplaceFont(number)) {
        changed = true;
        numbers = NumbersBehind(body_.text(), u"\\f", number - 1);
      } else {
        numbers.pop_back();
      }
    }
    return changed;
  }

  bool ReplaceFont(std::int32_t number) {
    const Text word = u"\\f" + Decimal(number);
    const TextView face = Face(number);
    bool changed = false;
    if (face.empty()) {
      changed |= Replace(word + u" ", u"");
      changed |= Replace(word + Text(blank_entity), u"");
    } else if (without_fonts_) {
      changed |= Replace(word + Text(blank_entity), u"");
      changed |= Replace(word, u"");
      changed |= Replace(word + u" ", u" ");
    } else {
      tag_ = u"<font FACE=\"" + Text(face) + u"\">";
      changed |= ReplaceForms(word);
    }
    return changed;
  }

  // The fonts are tried downwards, so the lowest one that the word names
  // stays the current one.
  void NoteCurrentFont(TextView word) {
    const std::vector<std::int32_t> numbers = NumbersBehind(word, u"\\f", state_.FontCount);
    if (numbers.empty()) return;
    state_.CurrentFontNumber = numbers.front();
    state_.CurrentFace = Face(numbers.front());
  }

  bool ReplaceColour(TextView word) {
    if (!CutWord(word)) return true;
    const TextView digits = word.substr(3);
    if (!IsNumeric(digits)) return false;
    const std::int32_t number = WholeNumber(digits);
    const Text* colour = EntryAt(state_.ColourTable, number);
    if (colour != nullptr) tag_ = u"<font COLOR=\"" + *colour + u"\">";
    state_.ColourExplicit = u"yes";
    if (!IsSettled(number)) Settle(number, ReplaceForms(u"\\cf" + Decimal(number)));
    if (colour != nullptr) state_.CurrentColour = *colour;
    segment_.hadFontWord = true;
    return true;
  }

  RtfToHtmlState& state_;
  Segment& segment_;
  rules::Rewriting& body_;
  bool without_fonts_;
  Text tag_;  // stays from the round before when a number has no entry
  std::map<std::int32_t, std::size_t> settled_;
  std::size_t version_ = 0;
};

}  // namespace

void ReplaceFontWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body) {
  FontWords words(state, segment, body);
  words.ReplaceSizes();
  words.ReplaceFonts();
  words.ReplaceColours();
  words.ReplaceHighlights();
}

}  // namespace quillary::modQuillary
