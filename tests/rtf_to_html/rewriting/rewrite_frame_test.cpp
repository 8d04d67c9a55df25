// The one-pass cuts of pictures, objects and capitals against a literal reference implementation
// that begins anew at the head of the text for every hit.
#include <gtest/gtest.h>

#include <random>

#include "apartment/apartment.h"
#include "fake_services.h"
#include "rtf_to_html/rewriting/pictures.h"
#include "rules/sentinels.h"

namespace {

using quillary::Apartment;
using quillary::Decimal;
using quillary::FindText;
using quillary::Holds;
using quillary::Left;
using quillary::Mid;
using quillary::ReplaceAll;
using quillary::Text;
using quillary::TextView;
using quillary::modQuillary::ReplacePictures;
namespace sentinels = quillary::sentinels;

constexpr TextView kPicture = u"{\\pict\\";
constexpr TextView kObject = u"{\\object\\objemb{";

void StripByTheLetter(Text& text) {
  int count = 1;
  while (true) {
    if (!Holds(text, kPicture)) {
      count = 1;
      break;
    }
    if (count > 65) break;
    const auto start = FindText(1, text, kPicture);
    const auto end = FindText(start + 3, text, u"}");
    ++count;
    if (end > start) text = Left(text, start - 1) + Mid(text, end + 1);
  }
  while (Holds(text, kObject) && count < 66) {
    ++count;
    const auto start = FindText(1, text, kObject);
    const auto end = FindText(start + 3, text, u"}}");
    if (end > start) text = Left(text, start - 1) + Mid(text, end + 1);
  }
}

void MarkByTheLetter(Text& text, const Text& folder, const Text& name) {
  int count = 1;
  while (Holds(text, kPicture)) {
    if (++count > 65) break;
    const auto start = FindText(1, text, kPicture);
    const auto end = FindText(start + 3, text, u"}");
    if (end <= start) break;
    const int number = count - 2;
    Text path = folder + name + (number < 10 ? u"00" : u"0") + Decimal(number) + u".jpeg";
    path = ReplaceAll(path, u"\\\\\\", u"\\");
    path = ReplaceAll(path, u"\\\\", u"\\");
    path = ReplaceAll(path, u"\\\\", u"\\");
    path = ReplaceAll(path, u"\\", sentinels::path_backslash);
    text = Left(text, start - 1) + u" " + Text(sentinels::picture_start) + path +
           Text(sentinels::picture_end) + u" " + Mid(text, end + 1);
  }
  int objects = 0;
  while (Holds(text, kObject)) {
    ++objects;
    const auto start = FindText(1, text, kObject);
    const auto end = FindText(start + 3, text, sentinels::picture_start);
    if (objects > 65 || end <= start) break;
    text = Left(text, start - 1) + u" " + Mid(text, end);
  }
}

Text CapsByTheLetter(Text text) {
  std::int32_t from = 1;
  while (FindText(from, text, u"\\caps0 ") > 0) {
    const auto on = FindText(from, text, u"\\caps ");
    const auto off = FindText(from, text, u"\\caps0 ");
    if (on <= 1 || on >= off) break;
    text = Left(text, on - 1) + quillary::ToUpper(Mid(text, on + 6, off - on - 6)) + Mid(text, off + 7);
    from = on;
  }
  return text;
}

class Glue {
 public:
  Text Make(std::initializer_list<TextView> pieces, int most) {
    Text text;
    for (int i = Upto(most); i > 0; --i)
      text += *(pieces.begin() + Upto(static_cast<int>(pieces.size()) - 1));
    return text;
  }

 private:
  int Upto(int highest) { return std::uniform_int_distribution(0, highest)(random_); }
  std::mt19937 random_{20240607};
};

TEST(RewriteFrame, PicturesAndObjectsGoAsTheLetterSays) {
  Glue glue;
  for (int round = 0; round < 4000; ++round) {
    // Now and then long enough to use up the counters.
    const int most = round % 40 == 0 ? 500 : 12;
    const Text text = glue.Make(
        {kPicture, u"}", kObject, u"}}", u"{\\pi", u"ct\\", u"a", u"{\\object\\obj", u"emb{"}, most);
    Text expected = text;
    StripByTheLetter(expected);
    Apartment apartment;
    apartment.rtf_to_html.options.convert_images = false;
    Text stripped = text;
    ReplacePictures(apartment, stripped);
    ASSERT_EQ(expected, stripped) << round;

    expected = text;
    MarkByTheLetter(expected, u"c:\\\\d\\", u"pic");
    apartment.rtf_to_html.options.convert_images = true;
    apartment.rtf_to_html.ImageFolder = u"c:\\\\d";
    apartment.rtf_to_html.ImageName = u"/pic\\";
    apartment.services.picture_extractor = [] {
      return std::make_unique<quillary::testing::SilentExtractor>();
    };
    Text replaced = text;
    ReplacePictures(apartment, replaced);
    ASSERT_EQ(expected, replaced) << round;
  }
}

TEST(RewriteFrame, CapitalsAsTheLetterSays) {
  Glue glue;
  for (int round = 0; round < 4000; ++round) {
    const Text text = glue.Make({u"\\caps ", u"\\caps0 ", u"a", u"\\", u"caps ", u"caps0 ", u"ß"}, 14);
    ASSERT_EQ(CapsByTheLetter(text), quillary::modQuillary::ApplyCaps(text)) << round;
  }
}

TEST(RewriteFrame, TheExtractorIsAskedOnceForAllPictures) {
  class Recorder final : public quillary::platform::PictureExtractor {
   public:
    explicit Recorder(std::vector<Text>& calls) : calls_(calls) {}
    std::int32_t Parse(TextView rtf, TextView prefix, std::int16_t origin, std::int16_t format,
                       std::int16_t quality, std::int16_t pages, TextView) override {
      calls_.push_back(Text(rtf) + u"|" + Text(prefix) + u"|" + Decimal(origin) + Decimal(format) +
                       Decimal(quality) + Decimal(pages));
      return 0;
    }

   private:
    std::vector<Text>& calls_;
  };
  std::vector<Text> calls;
  Apartment apartment;
  apartment.services.picture_extractor = [&] { return std::make_unique<Recorder>(calls); };
  apartment.rtf_to_html.options.convert_images = true;
  apartment.rtf_to_html.ImageFolder = u"out\\";
  apartment.rtf_to_html.options.png_images = true;
  apartment.rtf_to_html.ImageName = u" \\ ";
  Text text = u"{\\pict\\a}{\\pict\\b}";
  const Text whole = text;
  ReplacePictures(apartment, text);
  EXPECT_EQ(calls, std::vector<Text>{whole + u"|out\\object|021001"});
}

}  // namespace
