// HTML to RTF: the scans that read ahead against their reference implementations, and what
// a conversion does when a step fails or the page is hostile.
#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "component/conversions.h"
#include "html_to_rtf/blocks/paragraphs.h"
#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/driver/convert_html_document.h"
#include "html_to_rtf/inline/fonts.h"
#include "html_to_rtf/reference.h"
#include "text/encodings.h"

namespace quillary::HTMLRTFConverter {
namespace {

using Pieces = std::vector<TextView>;

/// Texts glued of pieces.
class Glue {
 public:
  Glue(Pieces pieces, unsigned seed) : pieces_(std::move(pieces)), random_(seed) {}
  Text Next(std::size_t most) {
    Text text;
    for (std::size_t count = random_() % most; count > 0; --count)
      text += pieces_[random_() % pieces_.size()];
    return text;
  }

 private:
  Pieces pieces_;
  std::mt19937 random_;
};

template <class Scan, class Reference>
void ExpectSame(const Scan& scan, const Reference& reference, const Text& text) {
  Text fast = text;
  Text slow = text;
  const bool fast_ended = Attempt([&] { scan(fast); });
  ASSERT_EQ(fast_ended, Attempt([&] { reference(slow); })) << ToUtf8(text);
  ASSERT_EQ(fast, slow) << ToUtf8(text);
}

TEST(Scans, AgreeWithTheirReferenceImplementations) {
  Glue divs({u"<table>", u"</table>", u"<TABLE x", u"</table", u"<div>", u"<div>", u"<DIV a>", u"</div>",
             u"</div>", u"</DIV >", u"</div", u">", u"<b>", u"x", u"<", u" "},
            1);
  Glue fonts({u"<font>", u"<FONT>", u"<font a>", u"<font a>", u"<font", u">", u"x", u"<b>"}, 2);
  Glue entities(
      {u"&#", u"&#x", u"&#X", u"4", u"1", u"E9", u";", u";", u"&", u"#", u"x", u"65;", u" ", u"&#66;"}, 3);
  Glue bytes({u"\u00c3", u"\u00a9", u"\u00e2\u201a\u00ac", u"\u00e2", u"\u0080", u"a", u"-", u"\u00c1",
              u"\u00f0", u"\u0416"},
             4);
  Apartment apartment;
  apartment.html_to_rtf.IsUtf8 = true;
  for (int i = 0; i < 20000 && !testing::Test::HasFatalFailure(); ++i) {
    ExpectSame(ConvertTableDivs, reference::ConvertTableDivs, divs.Next(24));
    ExpectSame(DropRepeatedFontTags, reference::DropRepeatedFontTags, fonts.Next(12));
    ExpectSame(DecodeNumericEntities, reference::DecodeNumericEntities, entities.Next(14));
    ExpectSame([&](Text& text) { EncodeHighChars(apartment, text); }, reference::EncodeUtf8, bytes.Next(10));
  }
}

Text Repeated(TextView piece, std::size_t times) {
  Text text;
  for (; times > 0; --times) text += piece;
  return text;
}

// Each of these takes minutes if some part of the loop costs a pass over the page.
TEST(ConvertHtmlDocument, CostsWhatThePageIsLong) {
  const Text pages[] = {
      Repeated(u"<p align=center><b>some words</b> and <font color=red>more</font></p>\r\n", 30000),
      u"<table><tr><td>" + Repeated(u"<div>a<div>b</div></div>", 40000) + u"</table>",
      u"<table>" + Repeated(u"<div>", 60000) + Repeated(u"</div>", 30000) + u"</table>",
      Repeated(u"<font size=2>", 100000),
      Repeated(u"&#8364;", 200000),
      Repeated(u"&#x41", 200000),
      Repeated(u"<ul><li>", 100000),
      Repeated(u"</p></li></ul></font></span></a>", 30000),
      Repeated(u"\u00e9\u2026ab", 200000),
      Repeated(u"a<", 200000),
  };
  for (const Text& page : pages) {
    Apartment apartment;
    Text html = page;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(ConvertHtmlDocument(apartment, html, u"", u"", 1).empty());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10))
        << ToUtf8(page.substr(0, 40));
  }
}

TEST(ConvertHtmlDocument, EndsATagThatNothingEndsAtTheLimitOfGrowth) {
  Apartment apartment;
  apartment.working_limit = 100000;
  Text html = u"</body></html><body>" + Repeated(u"words ", 1000) + u"<b>" + Repeated(u"words ", 1000) + u"<";
  EXPECT_THROW(ConvertHtmlDocument(apartment, html, u"", u"", 1), LimitReached);
  EXPECT_EQ(apartment.working_limit, 100000u);
}

TEST(ConvertHtmlDocument, NotesEachFailureOnce) {
  Apartment apartment;
  Text html = Repeated(u"a</p>&#x;<font size=x>b", 50);
  ConvertHtmlDocument(apartment, html, u"", u"", 1);
  std::vector<std::string> failed;
  for (const FailedStep& step : apartment.failed_steps)
    failed.push_back(std::string(step.step) + " " + step.failure);
  EXPECT_EQ(failed, (std::vector<std::string>{"CloseParagraph subscript", "DecodeNumericEntities type",
                                              "OpenFont type"}));
}

TEST(ConvertHtmlDocument, ShowsTheTextAfterEachStep) {
  Apartment apartment;
  std::string steps;
  apartment.trace = [&](std::string_view step, TextView text, std::string_view failure) {
    steps.append(step).append(text.empty() ? " -" : "").append(failure).append(" ");
  };
  Text html = u"a";
  ConvertHtmlDocument(apartment, html, u"", u"", 1);
  EXPECT_TRUE(steps.starts_with("SupplyFrame DecodeCyrillic StartState ")) << steps;
  EXPECT_TRUE(steps.ends_with("WalkTags RestoreArabicRuns AssembleDocument ")) << steps;
}

TEST(ConvertHTML2RTF, SetsItsProperties) {
  const struct {
    TextView before;
    TextView after;
  } borders[] = {{u"0", u"0"},    {u"1", u"1"}, {u" YES ", u"1"}, {u"No", u"0"},
                 {u" no ", u"0"}, {u"2", u"1"}, {u" 0 ", u"1"},   {u"", u"1"}};
  for (const auto& [before, after] : borders) {
    Apartment apartment;
    component::Properties properties;
    component::Class_InitProperties(properties);
    properties.HTML_Text = u"<p>a";
    properties.RTF_Text = u"before";
    properties.TableBorders = before;
    const Text rtf = component::ConvertHTML2RTF(apartment, properties);
    EXPECT_TRUE(rtf.starts_with(u"{\\rtf1"));
    EXPECT_EQ(properties.RTF_Text, rtf);
    EXPECT_EQ(properties.HTML_Text, u"");
    EXPECT_EQ(properties.TableBorders, after) << ToUtf8(before);
    EXPECT_EQ(apartment.html_to_rtf.TableBorderMode, after == u"1" ? 1 : 0);
  }
}

}  // namespace
}  // namespace quillary::HTMLRTFConverter
