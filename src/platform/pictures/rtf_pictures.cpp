#include "platform/pictures/rtf_pictures.h"

#include <algorithm>
#include <iterator>

#include "text/ascii.h"
#include "text/encodings.h"

namespace quillary::platform {
namespace {

struct KindWord {
  TextView word;
  PictureKind kind;
};
constexpr KindWord kKinds[] = {
    {u"pngblip", PictureKind::Png},   {u"jpegblip", PictureKind::Jpeg},
    {u"dibitmap", PictureKind::Dib},  {u"wbitmap", PictureKind::DeviceBitmap},
    {u"wmetafile", PictureKind::Wmf}, {u"emfblip", PictureKind::Emf},
};

struct NumberWord {
  TextView word;
  std::int32_t RtfPicture::*number;
};
constexpr NumberWord kNumbers[] = {
    {u"picw", &RtfPicture::width},
    {u"pich", &RtfPicture::height},
    {u"picwgoal", &RtfPicture::goal_width},
    {u"pichgoal", &RtfPicture::goal_height},
    {u"picscalex", &RtfPicture::scale_x},
    {u"picscaley", &RtfPicture::scale_y},
    {u"wbmwidthbytes", &RtfPicture::row_bytes},
    {u"wbmbitspixel", &RtfPicture::bits},
};

class Reader {
 public:
  Reader(TextView rtf, std::size_t at) : rtf_(rtf), at_(at) {}

  RtfPicture Read() {
    ++at_;  // its brace
    for (int depth = 1; at_ < rtf_.size() && depth > 0;) {
      const char16_t unit = rtf_[at_];
      if (unit == u'\\') {
        ReadWord(depth);
        continue;
      }
      ++at_;
      if (unit == u'{') ++depth;
      if (unit == u'}') --depth;
      if (depth == 1) ReadDigit(unit);
    }
    return std::move(picture_);
  }

 private:
  void ReadDigit(char16_t unit) {
    const int digit = HexDigitValue(unit);
    if (digit < 0) return;
    if (half_ < 0) {
      half_ = digit;
      return;
    }
    picture_.bytes += static_cast<char>(half_ << 4 | digit);
    half_ = -1;
  }

  void ReadWord(int depth) {
    const std::size_t start = ++at_;
    while (at_ < rtf_.size() && IsAsciiLetter(rtf_[at_])) ++at_;
    const TextView word = rtf_.substr(start, at_ - start);
    if (word.empty()) {
      at_ = std::min(at_ + 1, rtf_.size());
      return;
    }
    const bool negative = at_ < rtf_.size() && rtf_[at_] == u'-';
    if (negative) ++at_;
    std::int64_t number = 0;
    for (; at_ < rtf_.size() && IsAsciiDigit(rtf_[at_]); ++at_) {
      number = std::min<std::int64_t>(number * 10 + (rtf_[at_] - u'0'), 0x7FFFFFFF);
    }
    if (at_ < rtf_.size() && rtf_[at_] == u' ') ++at_;
    if (word == u"bin" && !negative) return ReadRaw(static_cast<std::size_t>(number), depth);
    if (depth == 1) TakeWord(word, static_cast<std::int32_t>(negative ? -number : number));
  }

  void ReadRaw(std::size_t count, int depth) {
    const TextView raw = rtf_.substr(at_, count);
    at_ += raw.size();
    if (depth != 1) return;
    std::transform(raw.begin(), raw.end(), std::back_inserter(picture_.bytes),
                   [](char16_t unit) { return static_cast<char>(RawByte(unit)); });
  }

  void TakeWord(TextView word, std::int32_t number) {
    for (const KindWord& kind : kKinds) {
      if (word == kind.word) picture_.kind = kind.kind;
    }
    for (const NumberWord& row : kNumbers) {
      if (word == row.word) picture_.*row.number = number;
    }
  }

  TextView rtf_;
  std::size_t at_;
  int half_ = -1;  // the first digit of a byte
  RtfPicture picture_;
};

}  // namespace

RtfPicture ReadPicture(TextView rtf, std::size_t start) { return Reader(rtf, start).Read(); }

}  // namespace quillary::platform
