#include "platform/rich_text/reader/rtf_picture_words.h"

#include <algorithm>
#include <utility>

#include "platform/rich_text/reader/byte_text.h"
#include "text/ascii.h"

namespace quillary::platform::rtf {

void PictureWords::Read(const Token& token) {
  const auto kind = [&](TextView word, bool numbered) {
    kind_ = Text(word);
    if (numbered) kind_ += Decimal(token.has_number ? token.number : 8);
  };
  const auto measure = [&](Measure which) { measures_[which] = token.number; };
  switch (token.keyword) {
    case Keyword::Wmetafile:
      return kind(u"\\wmetafile", true);
    case Keyword::Pmmetafile:
      return kind(u"\\pmmetafile", true);
    case Keyword::Dibitmap:
      return kind(u"\\dibitmap", true);
    case Keyword::Wbitmap:
      return kind(u"\\wbitmap", true);
    case Keyword::Emfblip:
      return kind(u"\\emfblip", false);
    case Keyword::Pngblip:
      return kind(u"\\pngblip", false);
    case Keyword::Jpegblip:
      return kind(u"\\jpegblip", false);
    case Keyword::Macpict:
      return kind(u"\\macpict", false);
    case Keyword::Wbmbitspixel:
      bitmap_ += u"\\wbmbitspixel" + Decimal(token.number);
      return;
    case Keyword::Wbmplanes:
      bitmap_ += u"\\wbmplanes" + Decimal(token.number);
      return;
    case Keyword::Wbmwidthbytes:
      bitmap_ += u"\\wbmwidthbytes" + Decimal(token.number);
      return;
    case Keyword::Picw:
      return measure(kWidth);
    case Keyword::Pich:
      return measure(kHeight);
    case Keyword::Picwgoal:
      return measure(kShownWidth);
    case Keyword::Pichgoal:
      return measure(kShownHeight);
    case Keyword::Picscalex:
      return measure(kScaleX);
    case Keyword::Picscaley:
      return measure(kScaleY);
    case Keyword::Piccropl:
      return measure(kLeft);
    case Keyword::Piccropr:
      return measure(kRight);
    case Keyword::Piccropt:
      return measure(kTop);
    case Keyword::Piccropb:
      return measure(kBottom);
    default:
      return;
  }
}

Text PictureWords::Words() const {
  constexpr std::array<TextView, kMeasures> kNames = {
      u"\\picw",      u"\\pich",     u"\\picwgoal", u"\\pichgoal", u"\\picscalex",
      u"\\picscaley", u"\\piccropl", u"\\piccropr", u"\\piccropt", u"\\piccropb"};
  constexpr std::int32_t kFullScale = 100;
  Text words = kind_.empty() ? Text(u"\\wbitmap0") : kind_;
  words += bitmap_;
  for (std::size_t index = 0; index < kMeasures; ++index) {
    const bool is_scale = index == kScaleX || index == kScaleY;
    if (measures_[index] == 0 || (is_scale && measures_[index] == kFullScale)) continue;
    words.append(kNames[index]);
    words += Decimal(measures_[index]);
  }
  return words;
}

void HexBytes::Add(TextView digits) {
  for (const char16_t unit : digits) {
    const int digit = HexDigitValue(unit);
    if (digit < 0) continue;
    if (pending_ < 0) {
      pending_ = digit;
    } else {
      bytes_ += static_cast<char>(pending_ * 16 + digit);
      pending_ = -1;
    }
  }
}

void HexBytes::AddRaw(TextView bytes) {
  bytes_.reserve(bytes_.size() + bytes.size());
  for (const char16_t unit : bytes) {
    const int byte = RawByte(unit);
    bytes_ += static_cast<char>(byte < 0 ? unit : byte);
  }
}

std::string HexBytes::Take() {
  pending_ = -1;
  return std::exchange(bytes_, {});
}

}  // namespace quillary::platform::rtf
