// The driver and the conversions of the public class with what surrounds them:
// services that fail, limits, state that stays, documents that are none.
#include <gtest/gtest.h>

#include "component/conversions.h"
#include "fake_services.h"
#include "quillary/Quillaryv8.h"

namespace {

using quillary::Apartment;
using quillary::Failure;
using quillary::Holds;
using quillary::LimitReached;
using quillary::Text;
using quillary::TextView;
using quillary::component::Properties;
using namespace quillary::testing;
namespace component = quillary::component;

const Text kLetter =
    u"{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}{\\f1\\fnil\\fcharset2 Symbol;}}\r\n"
    u"{\\colortbl ;\\red0\\green0\\blue255;}\r\n\\viewkind4\\uc1\\pard\\plain\\f0\\fs20 Dear \\b Ms\\b0  "
    u"Okafor,\r\n"
    u"\\par {\\pict\\wmetafile8 0102}after\\cf1  it\\cf0\r\n\\par }\r\n";

Properties NewProperties(Text rtf = kLetter) {
  Properties properties;
  component::Class_InitProperties(properties);
  properties.RTF_Text = std::move(rtf);
  return properties;
}

TEST(Driver, ShowsThePageAfterEachStep) {
  Apartment apartment;
  apartment.services = ControlOnly();
  std::vector<std::string> steps;
  std::vector<Text> pages;
  apartment.trace = [&](std::string_view step, TextView page, std::string_view failure) {
    steps.emplace_back(step);
    pages.emplace_back(page);
    EXPECT_EQ(failure, "") << step;
  };
  Properties properties = NewProperties();
  properties.ConvertImages = u"no";
  const Text page = component::ConvertRTF(apartment, properties);
  const auto place = [&](const char* step) {
    return std::find(steps.begin(), steps.end(), step) - steps.begin();
  };
  EXPECT_LT(place("ReadColourTable"), place("WriteHead"));
  EXPECT_LT(place("WriteBodyTag"), place("RewriteRtf"));
  EXPECT_LT(place("RewriteRtf"), place("BalanceTables"));
  EXPECT_LT(place("CloseDocument"), place("ResolvePictureMarks"));
  EXPECT_FALSE(Holds(pages[static_cast<std::size_t>(place("WriteBodyTag"))], u"Okafor"));
  EXPECT_TRUE(Holds(pages[static_cast<std::size_t>(place("RewriteRtf"))], u"Okafor"));
  EXPECT_EQ(pages.back(), page);
  EXPECT_TRUE(apartment.failed_steps.empty());
}

TEST(Driver, ShowsTheStepThatFails) {
  Apartment apartment;
  std::string shown;
  apartment.trace = [&](std::string_view step, TextView, std::string_view failure) {
    if (!failure.empty()) shown += std::string(step) + " " + std::string(failure) + ";";
  };
  // A picture, and nothing to extract it with.
  Properties properties = NewProperties(u"{\\rtf1\\plain\\pard x}");
  properties.CleanRTF = u"nono";
  properties.ImageFormat = u"png";
  apartment.services.picture_extractor = nullptr;
  properties.RTF_Text.insert(properties.RTF_Text.size() - 1, u"{\\pict\\pngblip 00}");
  component::ConvertRTF(apartment, properties);
  EXPECT_EQ(shown, "RewriteRtf raised;");
  ASSERT_EQ(apartment.failed_steps.size(), 1U);
  // The next conversion starts without failures.
  properties.RTF_Text = u"{\\rtf1\\plain\\pard x}";
  component::ConvertRTF(apartment, properties);
  EXPECT_TRUE(apartment.failed_steps.empty());
}

Text Repeat(TextView piece, int times) {
  Text text;
  for (int i = 0; i < times; ++i) text += piece;
  return text;
}

TEST(Driver, ClosesWhatIsOpenButNotTooMuch) {
  struct Case {
    Text title;  // which is not escaped
    Text closed;
  };
  const Text crlf = u"\r\n";
  const Case cases[] = {
      {Repeat(u"<TABLE", 4), crlf + Repeat(u"</table>", 4)},
      {Repeat(u"<table", 5), u""},
      {Repeat(u"<Font", 8), crlf + Repeat(u"</font>", 8)},
      {Repeat(u"<font", 9), u""},
      {u"<table</table</table", u""},
      {u"<font<table", crlf + u"</table>" + crlf + u"</font>"},
      // Counting stops at 181 on both sides.
      {Repeat(u"<table", 200) + Repeat(u"</table", 197), u""},
      {Repeat(u"<table", 182) + Repeat(u"</table", 177), crlf + Repeat(u"</table>", 4)},
  };
  for (const Case& each : cases) {
    Apartment apartment;
    Text closed;
    apartment.trace = [&](std::string_view step, TextView page, std::string_view) {
      if (step == "CloseDocument") closed = page;
    };
    Properties properties = NewProperties(u"");
    properties.CleanRTF = u"nono";
    properties.HTML_Title = each.title;
    component::ConvertRTF(apartment, properties);
    EXPECT_TRUE(closed.ends_with(u"#FFFFFF\">" + each.closed + u"\r\n</body>\r\n</html>\r\n"))
        << each.title.size();
  }
}

TEST(Driver, AMissingPictureExtractorCostsTheBodyAndNothingElse) {
  for (const bool throws : {true, false}) {
    Apartment apartment;
    apartment.services = ControlOnly();
    if (throws)
      apartment.services.picture_extractor = []() -> std::unique_ptr<quillary::platform::PictureExtractor> {
        throw Failure(Failure::Kind::Raised);
      };
    Properties properties = NewProperties();
    const Text page = component::ConvertRTF(apartment, properties);
    EXPECT_TRUE(page.starts_with(u"<html>"));
    EXPECT_TRUE(page.ends_with(u"\r\n</body>\r\n</html>\r\n"));
    EXPECT_FALSE(Holds(page, u"Okafor"));
    EXPECT_EQ(properties.RTF_Text, u"");
    properties.RTF_Text = kLetter;
    properties.ConvertImages = u"no";
    EXPECT_TRUE(Holds(component::ConvertRTF(apartment, properties), u"Okafor"));
  }
}

TEST(Driver, TablesStayForADocumentWithoutAny) {
  Apartment apartment;
  apartment.services = ControlOnly();
  Properties properties = NewProperties();
  component::ConvertRTF(apartment, properties);
  properties.RTF_Text = u"{\\rtf1\\plain\\f0\\cf1 x}";
  component::ConvertRTF(apartment, properties);
  EXPECT_EQ(apartment.rtf_to_html.FontFaces[0], u"Arial");
  EXPECT_EQ(apartment.rtf_to_html.ColourCount, 0);
  EXPECT_EQ(apartment.rtf_to_html.ColourTable[1], u"#0000ff");
  // Tables that begin beyond the first part of a document are not found.
  properties.RTF_Text =
      u"{\\rtf1" + Text(20000, u' ') + u"{\\fonttbl{\\f0\\fnil\\fcharset0 Tahoma;}}\\plain x}";
  component::ConvertRTF(apartment, properties);
  EXPECT_EQ(apartment.rtf_to_html.FontFaces[0], u"Arial");
}

TEST(Driver, GrowthEndsAConversionAndTheNextOneIsWhole) {
  Apartment apartment;
  apartment.services = ControlOnly();
  apartment.working_limit = 1000;
  Properties properties = NewProperties(u"{\\rtf1\\plain " + Text(2000, u'x') + u"}");
  properties.HTML_Text = u"before";
  EXPECT_THROW(component::ConvertRTF(apartment, properties), LimitReached);
  EXPECT_EQ(properties.HTML_Text, u"before");
  EXPECT_EQ(apartment.working_limit, 1000u);
  properties.RTF_Text = kLetter;
  properties.ConvertImages = u"no";
  EXPECT_TRUE(Holds(component::ConvertRTF(apartment, properties), u"Okafor"));
  // A long path is written once for each picture.
  apartment.working_limit = 100000;
  Text pictures;
  for (int i = 0; i < 64; ++i) pictures += u"{\\pict\\x 0}";
  properties = NewProperties(u"{\\rtf1\\plain " + pictures + u"}");
  properties.ImageFolder = Text(20000, u'd');
  apartment.services.picture_extractor = [] {
    return std::make_unique<quillary::testing::SilentExtractor>();
  };
  EXPECT_THROW(component::ConvertRTF(apartment, properties), LimitReached);
}

TEST(Driver, SaysWhereACountStoppedShort) {
  Apartment apartment;
  apartment.services = ControlOnly();
  apartment.services.picture_extractor = [] {
    return std::make_unique<quillary::testing::SilentExtractor>();
  };
  for (const int count : {64, 65}) {
    Text rtf = u"{\\rtf1\\plain x";
    for (int i = 0; i < count; ++i) rtf += u"{\\pict\\x 0}";
    Properties properties = NewProperties(rtf + u"}");
    component::ConvertRTF(apartment, properties);
    EXPECT_EQ(apartment.stopped_short.pictures, count == 65);
    EXPECT_FALSE(apartment.stopped_short.segments);
  }
}

TEST(Driver, CountsWhatClosesThePageToo) {
  Apartment apartment;
  apartment.services = ControlOnly();
  const auto convert = [&] {
    Properties properties = NewProperties(u"");
    properties.CleanRTF = u"nono";
    return component::ConvertRTF(apartment, properties);
  };
  apartment.working_limit = convert().size();
  EXPECT_NO_THROW(convert());
  --apartment.working_limit;
  EXPECT_THROW(convert(), LimitReached);
}

TEST(Driver, TheDumpIsWrittenOrAMessageShown) {
  const auto diagnostics = std::make_shared<FakeDiagnostics>();
  Apartment apartment;
  apartment.services = ControlOnly();
  apartment.services.diagnostics = diagnostics;
  for (const TextView debug : {u"no", u" yes", u"YES"}) {
    Properties properties = NewProperties(u"{\\rtf1 x}");
    properties.DoDebug = debug;
    component::ConvertRTF(apartment, properties);
  }
  EXPECT_EQ(diagnostics->dumps, std::vector<Text>{u"{\\rtf1 x}"});
  diagnostics->fails = true;
  Properties properties = NewProperties();
  properties.DoDebug = u"yes";
  properties.ConvertImages = u"no";
  EXPECT_TRUE(Holds(component::ConvertRTF(apartment, properties), u"Okafor"));
  EXPECT_EQ(diagnostics->messages, std::vector<Text>{u"Error, unable to create rtftext.txt file"});
}

TEST(Conversions, TheControlIsUsedUnlessSwitchedOff) {
  Apartment apartment;
  apartment.services = ControlOnly(true);
  for (const TextView off : {u"nono", u"NONO"}) {
    Properties properties = NewProperties(u"{\\rtf1\\plain\\''B0 x}");
    properties.CleanRTF = off;
    EXPECT_TRUE(Holds(component::ConvertRTF(apartment, properties), u"x"));
    EXPECT_THROW(component::ConvertPlainHTML(apartment, properties), Failure);
    EXPECT_THROW(component::ConvertRTFPlain(apartment, properties), Failure);
  }
  for (const TextView on : {u"no", u" nono", u""}) {
    Properties properties = NewProperties();
    properties.CleanRTF = on;
    properties.HTML_Text = u"before";
    EXPECT_THROW(component::ConvertRTF(apartment, properties), Failure);
    EXPECT_THROW(component::ConvertRawHtml(apartment, properties), Failure);
    EXPECT_THROW(component::ConvertNoBody(apartment, properties), Failure);
    EXPECT_EQ(properties.HTML_Text, u"before");
    EXPECT_EQ(properties.RTF_Text, kLetter);
  }
}

TEST(Conversions, PlainTextComesOutOfTheControl) {
  Apartment apartment;
  apartment.services = ControlOnly();
  Properties properties = NewProperties(Text(10000, u' ') + u"\\''b0 \\''B0 ");
  EXPECT_EQ(component::ConvertRTFPlain(apartment, properties),
            u"plain:" + Text(10000, u' ') + u"\\b0 \\''B0 ");
  EXPECT_EQ(properties.RTF_Text, Text(10000, u' ') + u"\\b0 \\''B0 ");
  EXPECT_EQ(properties.Plain_Text, u"");
  properties.Plain_Text = u"some words";
  EXPECT_TRUE(Holds(component::ConvertPlainHTML(apartment, properties), u"some words"));
  EXPECT_EQ(properties.Plain_Text, u"");
}

TEST(Conversions, WhatTheCleanerMakesIsTheResult) {
  constexpr TextView kHighlight = u"&nbsp;</font><span style=\"background-color: #ffff00\">";
  constexpr TextView kMended = u"&nbsp;<span style=\"background-color: #ffff00\">";
  Apartment apartment;
  apartment.services = ControlOnly();
  const Text type = u"<!DOCTYPE html PUBLIC \"-//W3C//DTD HTML 3.2//EN\">\r\n";
  const Text page = type + u"<body a><b>" + Text(kHighlight) + u"</body></html>";
  apartment.services.html_cleaner = [&] { return std::make_unique<FakeCleaner>(page); };
  const auto convert = [&](const auto& conversion, TextView clean, TextView xhtml) {
    Properties properties = NewProperties();
    properties.CleanHTML = clean;
    properties.XHTMLOutput = xhtml;
    return std::pair(conversion(apartment, properties), properties.HTML_Text);
  };
  EXPECT_TRUE(Holds(convert(component::ConvertRTF, u"Yes", u"no").first, kHighlight));
  EXPECT_TRUE(convert(component::ConvertRTF, u"no", u"YES").first.starts_with(u"xhtml"));
  EXPECT_TRUE(Holds(convert(component::ConvertRawHtml, u"yes", u"yes").first, kMended));
  EXPECT_FALSE(Holds(convert(component::ConvertRTF, u"yes", u"yes").second, u"xhtml"));
  EXPECT_TRUE(convert(component::ConvertRTF, u" yes", u"1").first.starts_with(u"<html>"));
  EXPECT_EQ(convert(component::ConvertNoBody, u"yes", u"no"),
            std::pair(u"<b>" + Text(kHighlight), u"<b>" + Text(kHighlight)));
  EXPECT_EQ(convert(component::ConvertNoBody, u"no", u"yes"),
            std::pair(u"<b>" + Text(kMended), u"<b>" + Text(kHighlight)));
  // The end tags are cut by their length where they do not stand together.
  apartment.services.html_cleaner = [] { return std::make_unique<FakeCleaner>(u"<body>not so short"); };
  EXPECT_EQ(convert(component::ConvertNoBody, u"yes", u"no").first, u"cle\r\n");
  apartment.services.html_cleaner = [] { return std::make_unique<FakeCleaner>(u"short"); };
  EXPECT_THROW(convert(component::ConvertNoBody, u"yes", u"no"), Failure);
  apartment.services.html_cleaner = nullptr;
  EXPECT_THROW(convert(component::ConvertRTF, u"yes", u"no"), Failure);
}

TEST(Conversions, FragmentsHaveNoShell) {
  Apartment apartment;
  apartment.services = ControlOnly();
  for (const auto& conversion : {component::ConvertNoBody, component::ConvertRawHtml}) {
    Properties properties = NewProperties();
    properties.ConvertImages = u"no";
    const Text fragment = conversion(apartment, properties);
    EXPECT_TRUE(Holds(fragment, u"Okafor"));
    for (const TextView tag : {u"<body", u"</html", u"<head"}) {
      EXPECT_FALSE(Holds(fragment, tag, quillary::Compare::IgnoreCase));
    }
    EXPECT_EQ(fragment, properties.HTML_Text);
  }
}

TEST(Conversions, TheHeaderIsCutOutAndTheDocumentStays) {
  Apartment apartment;
  apartment.services = ControlOnly();
  Properties properties = NewProperties(u"{\\rtf1{\\headerr \\pard\\plain\\f0 top of page}}{\\rest}");
  const Text before = properties.RTF_Text;
  const Text page = component::ConvertRTFHeader(apartment, properties);
  EXPECT_TRUE(Holds(page, u"top of pag")) << "the text in front of the brace run, but for its last unit";
  EXPECT_FALSE(Holds(page, u"rest"));
  EXPECT_EQ(properties.RTF_Text, before);
  properties.RTF_Text = u"{\\rtf1{\\header\\pard\\plain\\f0 Torvane MR#: 7 MR#: 8}{\\footer x}}";
  const Text sheet = component::ConvertRTFHeader(apartment, properties);
  EXPECT_EQ(quillary::CountOccurrences(sheet, u"<b>MR#:</b>"), 1);
  EXPECT_FALSE(Holds(properties.HTML_Text, u"<b>MR#:</b>"));
}

TEST(BadInput, GivesAPageAndNeverACrash) {
  constexpr TextView kSentinels[] = {u"¢iûJjK9±Í", u"K9iûJ±¢jÍ ™", u"¤þÞÚ§", u"iåçë|æ¢¦l6¢i±ÍÉ|Ü",
                                     u"Viåçëæ¢djkiÍÉV"};
  std::vector<Text> inputs = {u"",
                              u"no rtf at all",
                              u"{",
                              u"}",
                              u"\\",
                              u"{\\rtf1",
                              Text(3, u'\0'),
                              Text(50000, u'{'),
                              Text(1, char16_t{0xD800})};
  Text all;
  for (const TextView sentinel : kSentinels) {
    inputs.emplace_back(sentinel);
    all += sentinel;
  }
  inputs.push_back(all);
  for (std::size_t length = 0; length < kLetter.size(); length += 7)
    inputs.push_back(kLetter.substr(0, length));
  const auto apartment = quillary::MakeApartment();
  apartment->services = ControlOnly();
  for (const Text& input : inputs) {
    quillary::Quillaryv8 converter(apartment);
    converter.RTF_Text(input);
    const Text page = converter.ConvertRTF();
    EXPECT_TRUE(page.starts_with(u"<html>\r\n")) << input.size();
    EXPECT_TRUE(Holds(page, u"</html>")) << input.size();
    EXPECT_EQ(converter.RTF_Text(), u"");
    EXPECT_EQ(converter.HTML_Colour(), u"FFFFFF");
  }
}

TEST(BadInput, AMegabyteInAnyProperty) {
  for (const auto& property : component::AllProperties()) {
    Apartment apartment;
    apartment.services = ControlOnly();
    apartment.services.html_cleaner = [] { return std::make_unique<FakeCleaner>(Text(100, u'x')); };
    Properties properties = NewProperties();
    properties.*(property.text) = Text(1 << 20, u'7');
    EXPECT_TRUE(Holds(component::ConvertRTF(apartment, properties), u"</html>")) << property.name;
  }
}

TEST(PublicClass, ThrowsItsOwnExceptions) {
  const auto apartment = quillary::MakeApartment();
  apartment->services = ControlOnly(true);
  quillary::Quillaryv8 converter(apartment);
  converter.RTF_Text(u"x");
  try {
    converter.ConvertRTF();
    FAIL() << "the control refuses";
  } catch (const quillary::ConversionFailed& failed) {
    EXPECT_EQ(failed.kind(), quillary::ConversionFailed::Kind::Raised);
    EXPECT_EQ(failed.code(), 7u);
    EXPECT_EQ(failed.source(), "control");
    EXPECT_STREQ(failed.what(), "refused");
  }
  apartment->working_limit = 10;
  converter.CleanRTF(u"nono");
  EXPECT_THROW(converter.ConvertRTF(), quillary::ConversionLimit);
  EXPECT_EQ(converter.ImageFolder(), u"c:\\windows\\temp\\");
  quillary::Quillaryv8 moved = std::move(converter);
  EXPECT_EQ(moved.RTF_Text(), u"x");
}

}  // namespace
