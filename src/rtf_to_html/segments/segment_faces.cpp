#include "rtf_to_html/segments/segment_faces.h"

#include <algorithm>
#include <map>
#include <optional>
#include <span>
#include <vector>

#include "rtf_to_html/segments/control_words.h"
#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/word_pieces.h"
#include "text/failure.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kFontWord = u"\\f";

/// What may stand after a font word, and how much of it goes with the word.
struct Form {
  TextView after;
  std::size_t taken;
};

// In the order in which they are replaced.
constexpr Form kFormsOfNamed[] = {{u"&nbsp;&nbsp;&#", 12}, {u"&nbsp;", 6}, {u" ", 1}, {u"", 0}};
constexpr Form kFormsOfNameless[] = {{u" ", 1}, {u"&nbsp;", 6}};
constexpr Form kFormsWithoutFonts[] = {{u"&nbsp;", 6}, {u"", 0}, {u" ", 0}};

/// The font words of a body, and what becomes of them.
class Faces {
 public:
  Faces(const RtfToHtmlState& state, TextView body, std::size_t limit)
      : state_(state), limit_(limit), without_fonts_(WithoutFonts(state)), pieces_(body, kFontWord) {
    current_ = state.FontCount + 1;
    for (const Id word : pieces_.Words()) Offer(word);
    now_.swap(later_);
  }

  /// The word at or after a place, at most `units` of it; empty if there is none.
  TextView WordFrom(std::size_t& place, std::size_t units) {
    const Id word = pieces_.WordFrom(place);
    return word == 0 ? TextView() : pieces_.Look(word, units);
  }

  /// Replaces every font from the last one down. Returns whether anything changed.
  bool ReplaceAll() {
    bool changed = false;
    while (!now_.empty()) {
      const auto last = std::prev(now_.end());
      current_ = last->first;
      words_ = std::move(last->second);
      now_.erase(last);
      changed |= ReplaceCurrent();
    }
    now_.swap(later_);
    return changed;
  }

  std::size_t Words() const { return pieces_.Words().size(); }
  Text Join() const { return pieces_.Join(); }

  TextView Face(std::int32_t number) const {
    const Text* face = EntryAt(state_.FontFaces, number);
    return face == nullptr ? TextView() : TextView(*face);
  }

 private:
  using Id = WordPieces::Id;

  std::span<const Form> FormsOf(std::int32_t number) const {
    if (Face(number).empty()) return kFormsOfNameless;
    return without_fonts_ ? std::span<const Form>(kFormsWithoutFonts) : kFormsOfNamed;
  }

  static bool StandsIn(TextView after, const Form& form) {
    return Equal(after.substr(0, form.after.size()), form.after, Compare::IgnoreCase);
  }

  // What stands after the word if it names the font.
  std::optional<TextView> After(Id word, const Text& number) {
    if (!pieces_.IsWord(word)) return std::nullopt;
    const TextView digits = pieces_.Look(word, WordPieces::kSight).substr(kFontWord.size());
    if (!digits.starts_with(number)) return std::nullopt;
    return digits.substr(number.size());
  }

  TextView TagOf(std::int32_t number) {
    Text& tag = tags_[number];
    if (tag.empty()) tag.append(u"<font FACE=\"").append(Face(number)).append(u"\">");
    return tag;
  }

  // Notes the fonts that the word names in a form which is replaced: those that
  // are still to come in this run, those that come with the next one.
  void Offer(Id word) {
    const TextView digits = pieces_.Look(word, WordPieces::kSight).substr(kFontWord.size());
    ForEachNumberAt(digits, state_.FontCount, [&](std::int32_t number, std::size_t length) {
      const std::span<const Form> forms = FormsOf(number);
      const TextView after = digits.substr(length);
      if (!std::ranges::any_of(forms, [&](const Form& form) { return StandsIn(after, form); })) return;
      if (number == current_) words_.push_back(word);
      (number < current_ && current_ <= state_.FontCount ? now_ : later_)[number].push_back(word);
    });
  }

  // One form after the other; what a replacement brings is left to the next form.
  bool ReplaceCurrent() {
    const Text number = Decimal(current_);
    const bool tagged = !Face(current_).empty() && !without_fonts_;
    const TextView with = tagged ? TagOf(current_) : TextView();
    bool changed = false;
    for (const Form& form : FormsOf(current_)) {
      std::sort(words_.begin(), words_.end());
      words_.erase(std::unique(words_.begin(), words_.end()), words_.end());
      found_.clear();
      for (const Id word : words_) {
        const auto after = After(word, number);
        if (after && StandsIn(*after, form)) found_.push_back(word);
      }
      if (found_.empty()) continue;
      changed = true;
      const std::size_t units = kFontWord.size() + number.size() + form.taken;
      if (with.size() > units) {
        const std::size_t more = found_.size() * (with.size() - units);
        if (more > limit_ || pieces_.Size() > limit_ - more) throw LimitReached(LimitReached::Limit::Growth);
      }
      for (const Id word : found_) pieces_.Replace(word, units, with, [this](Id touched) { Offer(touched); });
    }
    return changed;
  }

  const RtfToHtmlState& state_;
  std::size_t limit_;
  bool without_fonts_;
  WordPieces pieces_;
  // The words that name a font in a form which is replaced, by the font.
  std::map<std::int32_t, std::vector<Id>> now_;
  std::map<std::int32_t, std::vector<Id>> later_;
  std::map<std::int32_t, Text> tags_;
  std::int32_t current_ = 0;
  std::vector<Id> words_;  // that may name the current font
  std::vector<Id> found_;
};

// The fonts are tried downwards, so the lowest one that the word names stays
// the current one.
void NoteCurrentFont(RtfToHtmlState& state, const Faces& faces, TextView word) {
  const std::vector<std::int32_t> numbers = NumbersAfter(word, kFontWord, state.FontCount);
  if (numbers.empty()) return;
  state.CurrentFontNumber = numbers.front();
  state.CurrentFace = faces.Face(numbers.front());
}

bool HasNamedFont(const RtfToHtmlState& state, const Faces& faces) {
  for (std::int32_t n = 0; n <= state.FontCount; ++n) {
    if (!faces.Face(n).empty()) return true;
  }
  return false;
}

}  // namespace

// There are at most as many rounds as there were words at the start: a face
// that itself holds a font word would go on for ever.
void ReplaceFaces(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body) {
  constexpr std::size_t kReach = 7;
  constexpr std::size_t kStep = 5;
  if (!body.Holds(kFontWord, Compare::IgnoreCase)) return;
  Faces faces(state, body.text(), body.limit());
  const bool named = HasNamedFont(state, faces);
  bool goes_on = true;
  bool changed = false;
  std::size_t place = 0;
  for (std::size_t rounds = faces.Words(); rounds > 0; --rounds, place += kStep) {
    Text word(faces.WordFrom(place, kReach));
    if (word.empty()) break;
    // A letter of another alphabet ends the word as a space does.
    if (word.size() > 3 && word[3] >= 128) word = word.substr(0, 3) + u" ";
    TextView end = word;
    if (!CutWord(end)) continue;
    if (goes_on) {
      segment.hadFontWord |= named;
      goes_on = faces.ReplaceAll();
      changed |= goes_on;
    }
    NoteCurrentFont(state, faces, end);
  }
  if (changed) body.Assign(faces.Join());
}

}  // namespace quillary::modQuillary
