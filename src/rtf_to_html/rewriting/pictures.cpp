#include "rtf_to_html/rewriting/pictures.h"

#include <algorithm>
#include <memory>

#include "rules/sentinels.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kPicture = u"{\\pict\\";
constexpr TextView kObject = u"{\\object\\objemb{";
constexpr std::size_t npos = Finder::npos;

// The counter stands one above the limit when a loop has used it up.
constexpr int kUsedUp = kMostPictures + 1;

// Cuts pieces out of a text in one pass. What is kept moves to the front of
// the text as the pass goes on; nothing is copied twice.
class Cutter {
 public:
  explicit Cutter(Text& text) : text_(text) {}

  /// Index of the next `delimiter`, or npos. A delimiter that a cut has put together
  /// from the two sides of its gap is found as well.
  std::size_t Find(TextView delimiter) {
    CloseGapFor(delimiter);
    return Finder(delimiter, Compare::Binary).Next(text_, next_);
  }
  /// Index of `end` at or after `from`, or npos.
  std::size_t FindEnd(TextView end, std::size_t from) const {
    return Finder(end, Compare::Binary).Next(text_, from);
  }

  /// Keeps the text in front of `index`.
  void KeepTo(std::size_t index) {
    if (kept_ != next_) std::copy(At(next_), At(index), At(kept_));
    kept_ += index - next_;
    next_ = index;
  }
  /// Goes on at `index` without keeping what stands in front of it.
  void SkipTo(std::size_t index) { next_ = index; }

  /// Keeps the rest and ends the pass.
  void Finish() {
    KeepTo(text_.size());
    text_.resize(kept_);
  }

 private:
  Text::iterator At(std::size_t index) { return text_.begin() + static_cast<std::ptrdiff_t>(index); }

  // Moves the front of a delimiter that now runs across the gap to its other side.
  void CloseGapFor(TextView delimiter) {
    if (kept_ == next_) return;
    const TextView text(text_);
    const TextView rest = text.substr(next_);
    for (std::size_t front = std::min(delimiter.size() - 1, kept_); front > 0; --front) {
      if (text.substr(kept_ - front, front) != delimiter.substr(0, front)) continue;
      if (!rest.starts_with(delimiter.substr(front))) continue;
      std::copy_backward(At(kept_ - front), At(kept_), At(next_));
      kept_ -= front;
      next_ -= front;
      return;
    }
  }

  Text& text_;
  std::size_t kept_ = 0;  // end of what is kept at the front
  std::size_t next_ = 0;  // where the pass goes on; between the two is the gap
};

void StripPictures(Text& text, int& count) {
  Cutter cutter(text);
  std::size_t start = cutter.Find(kPicture);
  while (start != npos && count <= kMostPictures) {
    ++count;
    const std::size_t end = cutter.FindEnd(u"}", start);
    if (end == npos) {
      count = kUsedUp;  // the same picture would be tried until the counter is used up
      break;
    }
    cutter.KeepTo(start);
    cutter.SkipTo(end + 1);
    start = cutter.Find(kPicture);
  }
  cutter.Finish();
  if (start == npos) count = 1;
}

// The counter is that of the pictures: where they have used it up, no object is
// touched.
void StripObjects(Text& text, int count) {
  Cutter cutter(text);
  for (; count < kUsedUp; ++count) {
    const std::size_t start = cutter.Find(kObject);
    if (start == npos) break;
    const std::size_t end = cutter.FindEnd(u"}}", start);
    if (end == npos) break;
    cutter.KeepTo(start);
    cutter.SkipTo(end + 1);  // the second brace stays
  }
  cutter.Finish();
}

void WritePictures(Apartment& apartment, const Text& text) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  state.ImageFolder += u'\\';
  ReplaceIn(state.ImageFolder, u"\\\\", u"\\");
  if (!apartment.services.picture_extractor) throw Failure(Failure::Kind::Raised);
  const std::unique_ptr<platform::PictureExtractor> extractor = apartment.services.picture_extractor();
  if (!extractor) throw Failure(Failure::Kind::Raised);
  std::erase_if(state.ImageName, [](char16_t unit) { return unit == u'\\' || unit == u'/'; });
  if (TrimView(state.ImageName).empty()) state.ImageName = u"object";
  extractor->Parse(text, state.ImageFolder + state.ImageName, 0, state.options.png_images ? 2 : 1, 100, 1,
                   u"Quillary");
}

// Folder and name as they stand between the sentinels, without the number.
Text PathInSentinels(const RtfToHtmlState& state) {
  Text path = state.ImageFolder + state.ImageName;
  ReplaceIn(path, u"\\\\\\", u"\\");
  ReplaceIn(path, u"\\\\", u"\\");
  ReplaceIn(path, u"\\\\", u"\\");
  ReplaceIn(path, u"\\", sentinels::path_backslash);
  return path;
}

void PutSentinels(Apartment& apartment, Text& text) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  if (!Holds(text, kPicture)) return;
  const Text path = PathInSentinels(state);
  const TextView ending = state.options.png_images ? u".png" : u".jpeg";
  const TextView source(text);
  const Finder opening(kPicture, Compare::Binary);
  const Finder closing(u"}", Compare::Binary);
  Text replaced;
  std::size_t from = 0;
  for (int count = 2;; ++count) {
    const std::size_t start = opening.Next(source, from);
    if (start == npos) break;
    if (count > kMostPictures) {
      apartment.stopped_short.pictures = true;
      break;
    }
    const std::size_t end = closing.Next(source, start);
    if (end == npos) break;
    ++state.PictureCounter;
    const Text number = Decimal(count - 2);
    replaced.append(source, from, start - from).append(u" ").append(sentinels::picture_start).append(path);
    replaced.append(3 - number.size(), u'0').append(number).append(ending);
    replaced.append(sentinels::picture_end).append(u" ");
    CheckGrowth(apartment, replaced);
    from = end + 1;
  }
  replaced.append(source, from);
  text = std::move(replaced);
}

void UnwrapObjects(RtfToHtmlState& state, Text& text) {
  if (!Holds(text, kObject)) return;
  if (Holds(text, u"{\\*\\objclass Equation")) state.EquationSeen = true;
  const TextView source(text);
  const Finder object(kObject, Compare::Binary);
  const Finder picture_sentinel(sentinels::picture_start, Compare::Binary);
  Text unwrapped;
  std::size_t from = 0;
  for (int objects = 1; objects <= kMostPictures; ++objects) {
    const std::size_t start = object.Next(source, from);
    if (start == npos) break;
    const std::size_t picture = picture_sentinel.Next(source, start);
    if (picture == npos) break;
    unwrapped.append(source, from, start - from).append(u" ");
    from = picture;
  }
  unwrapped.append(source, from);
  text = std::move(unwrapped);
}

}  // namespace

void ReplacePictures(Apartment& apartment, Text& text) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  state.EquationSeen = false;
  if (!state.options.convert_images) {
    int count = 1;
    StripPictures(text, count);
    apartment.stopped_short.pictures = count == kUsedUp;
    StripObjects(text, count);
    return;
  }
  if (Holds(text, kPicture)) WritePictures(apartment, text);
  PutSentinels(apartment, text);
  UnwrapObjects(state, text);
}

Text ApplyCaps(Text text) {
  constexpr TextView kOn = u"\\caps ";
  constexpr TextView kOff = u"\\caps0 ";
  const Finder find_on(kOn, Compare::Binary);
  const Finder find_off(kOff, Compare::Binary);
  Text result;
  std::size_t from = 0;
  while (true) {
    const std::size_t start = find_on.Next(text, from);
    const std::size_t end = find_off.Next(text, from);
    if (start == npos || end == npos || start >= end || start + result.size() == from) break;
    const Text capitals = ToUpper(TextView(text).substr(start + kOn.size(), end - start - kOn.size()));
    result.append(text, from, start - from).append(capitals);
    from = end + kOff.size();
    // A backslash at the end of the capitals can make a word with what follows.
    if (capitals.ends_with(u'\\')) {
      result.pop_back();
      text[--from] = u'\\';
    }
  }
  return result.append(text, from);
}

}  // namespace quillary::modQuillary
