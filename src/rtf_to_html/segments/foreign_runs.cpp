#include "rtf_to_html/segments/foreign_runs.h"

#include <algorithm>
#include <vector>

#include "rules/sentinels.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kEscape = u"\\'";
constexpr std::size_t kEscapeUnits = 4;
constexpr int kNoFont = 99;
constexpr int kDefaultForeignPage = 936;

/// The last font word of a text that grows at its end. Looks at each unit once
/// but for the last few, where a word can still change its meaning with
/// what comes after it.
class FontWords {
 public:
  explicit FontWords(int font_count) : font_count_(font_count) {}

  /// The number of the last font word of `text`, after which an escape
  /// begins. A word ends at a backslash, a space, an ampersand or a bullet.
  std::optional<int> Last(TextView text) {
    std::optional<int> last;
    if (!final_words_.empty()) last = final_words_.back().number;
    for (std::size_t at = finder_.Next(text, looked_at_); at != Finder::npos;
         at = finder_.Next(text, at + 1)) {
      if (first_size_word_ == Finder::npos && text.substr(at + 2).starts_with(u's')) first_size_word_ = at;
      const std::optional<FontNumber> found = ReadFontNumber(text, at, font_count_);
      if (!found || !EndsWord(text, found->end)) continue;
      last = found->number;
      if (at + kLongest <= text.size()) final_words_.push_back({at, found->number});
    }
    if (text.size() >= kLongest) looked_at_ = std::max(looked_at_, text.size() - kLongest + 1);
    return last;
  }

  /// Whether the text that Last saw holds a size word.
  bool SizeWordSeen() const { return first_size_word_ != Finder::npos; }

  /// The text was cut off at this offset.
  void CutAt(std::size_t offset) {
    while (!final_words_.empty() && final_words_.back().at + kLongest > offset) final_words_.pop_back();
    if (first_size_word_ != Finder::npos && first_size_word_ + 3 > offset) first_size_word_ = Finder::npos;
    looked_at_ = std::min(looked_at_, offset < kLongest ? 0 : offset - kLongest + 1);
  }

 private:
  struct Word {
    std::size_t at;
    int number;
  };
  // The word, the digits of a 16-bit number and a bullet after them.
  static constexpr std::size_t kLongest = 2 + 5 + sentinels::bullet.size();

  static bool EndsWord(TextView text, std::size_t end) {
    if (end == text.size()) return true;  // the backslash of the escape
    const char16_t unit = text[end];
    return unit == u'\\' || unit == u' ' || unit == u'&' || text.substr(end).starts_with(sentinels::bullet);
  }

  int font_count_;
  Finder finder_{u"\\f", Compare::Binary};
  std::vector<Word> final_words_;
  std::size_t looked_at_ = 0;
  std::size_t first_size_word_ = Finder::npos;
};

class ForeignRuns {
 public:
  ForeignRuns(Apartment& apartment, Text& body, const EscapeHead& head)
      : apartment_(apartment),
        state_(apartment.rtf_to_html),
        head_(head),
        rest_(body),
        fonts_(state_.FontCount) {
    Attempt([&] { decoder_ = NewDecoder(apartment_); });
    done_.reserve(body.size());
  }

  Text Decoded() {
    while (Round()) {
    }
    done_.append(rest_, at_);
    return std::move(done_);
  }

 private:
  /// One run; false if it was the last.
  bool Round() {
    const std::size_t start = escape_.Next(rest_, at_);
    if (start == Finder::npos) return false;
    done_.append(rest_, at_, start - at_);
    at_ = start;
    const TextView run = RunAt(start);
    if (run.empty()) return false;
    const int font = FontOfRun();
    if (font == kNoFont) return false;

    Text decoded;
    if (!Attempt([&] { decoded = Decode(run, CharsetOfFont(state_, font)); })) return false;
    const bool unchanged = decoded.ends_with(run) && decoded.size() <= run.size() + 1;
    const std::size_t joint = done_.size();
    done_ += decoded;
    at_ += run.size();
    if (unchanged) return false;
    TakeBackEscapes(joint);
    return true;
  }

  TextView RunAt(std::size_t start) const {
    const TextView rest = TextView(rest_).substr(start);
    std::size_t length = 0;
    while (rest.size() - length >= kEscapeUnits && rest.substr(length).starts_with(kEscape)) {
      length += kEscapeUnits;
    }
    return rest.substr(0, length);
  }

  int FontOfRun() {
    int font = kNoFont;
    if (const auto word = fonts_.Last(done_)) {
      font = *word;
    } else if (head_.font) {
      font = *head_.font;
    }
    return font == kNoFont ? int{state_.CurrentFontNumber} : font;
  }

  /// What stands for the run. A single escape is read as the head wants it,
  /// unless it is Eastern European, Greek or Turkish; one that means nothing
  /// becomes a space.
  Text Decode(TextView run, int charset) {
    const bool single = run.size() == kEscapeUnits;
    Text decoded;
    if (charset == 0) {
      decoded = DecodeHexEscapes(apartment_, run, head_);
      if (decoded != run) return decoded;
      if (!single) return u"";
    } else if (single && charset != 238 && charset != 161 && charset != 162) {
      decoded = DecodeHexEscapes(apartment_, run, head_);
    } else {
      if (decoder_ == nullptr) throw Failure(Failure::Kind::Raised);
      const int code_page = EscapeCodePageOfCharset(charset);
      decoded = u' ' + decoder_->ToString(code_page != 0 ? code_page : kDefaultForeignPage, run);
    }
    if (single && decoded == run) decoded = u" ";
    // After the digits of a word the space would only end the word.
    if (decoded == u" " && fonts_.SizeWordSeen() && !done_.empty() &&
        IsNumeric(TextView(done_).substr(done_.size() - 1))) {
      decoded.clear();
    }
    return decoded;
  }

  /// A decoded backslash or apostrophe can spell an escape together with its
  /// neighbours: that goes back to the text still to be read.
  void TakeBackEscapes(std::size_t joint) {
    std::size_t again = escape_.Next(done_, joint > 0 ? joint - 1 : 0);
    if (again == Finder::npos) {
      const bool across = done_.ends_with(u'\\') && at_ < rest_.size() && rest_[at_] == u'\'';
      if (!across) return;
      again = done_.size() - 1;
    }
    const Text tail = done_.substr(again);
    done_.resize(again);
    fonts_.CutAt(again);
    if (tail.size() <= at_) {
      at_ -= tail.size();
      rest_.replace(at_, tail.size(), tail);
    } else {
      rest_.replace(0, at_, tail);
      at_ = 0;
    }
  }

  Apartment& apartment_;
  const RtfToHtmlState& state_;
  const EscapeHead& head_;
  Text done_;  // the body in front of the next escape
  Text rest_;  // the body as it was; from at_ on it is still to be read
  std::size_t at_ = 0;
  Finder escape_{kEscape, Compare::Binary};
  FontWords fonts_;
  std::unique_ptr<platform::CodePageDecoder> decoder_;
};

}  // namespace

void DecodeForeignRuns(Apartment& apartment, Text& body, const EscapeHead& head) {
  body = ForeignRuns(apartment, body, head).Decoded();
}

}  // namespace quillary::modQuillary
