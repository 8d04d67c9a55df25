// What the settings mean. Some are read with the spaces around them, some not.
#include <gtest/gtest.h>

#include "apartment/rtf_to_html_options.h"
#include "component/conversions.h"
#include "component/entry_options.h"

namespace quillary {
namespace {

using component::Cleaning;
using component::Properties;

struct Reading {
  TextView word;
  bool yes;          // as a flag that is "yes" in any case
  bool yes_trimmed;  // the same between spaces
};

constexpr Reading kReadings[] = {{u"yes", true, true},     {u"YES", true, true},    {u" yes", false, true},
                                 {u"Yes ", false, true},   {u"yess", false, false}, {u"", false, false},
                                 {u"\tyes", false, false}, {u"no", false, false}};

TEST(Options, OfTheStages) {
  for (const auto& [word, yes, yes_trimmed] : kReadings) {
    EXPECT_EQ(ReadOptions(word, u"", u"", u"").convert_images, yes) << testing::PrintToString(Text(word));
    EXPECT_EQ(ReadOptions(u"", u"", word, u"").spans, yes_trimmed) << testing::PrintToString(Text(word));
  }
  EXPECT_TRUE(ReadOptions(u"", u" PNG ", u"", u"").png_images);
  EXPECT_FALSE(ReadOptions(u"", u"jpeg", u"", u"").png_images);
  EXPECT_TRUE(ReadOptions(u"", u"", u"", u" No ").no_fonts);
  EXPECT_FALSE(ReadOptions(u"", u"", u"", u"nono").no_fonts);
}

TEST(Options, OfTheEntryPoints) {
  Properties properties;
  component::Class_InitProperties(properties);
  for (const auto& [word, yes, yes_trimmed] : kReadings) {
    properties.XHTMLOutput = word;
    properties.CleanHTML = u"YES";
    EXPECT_EQ(component::ReadEntryOptions(properties).cleaning, yes ? Cleaning::Xhtml : Cleaning::Html);
    properties.XHTMLOutput = u"no";
    properties.CleanHTML = word;
    EXPECT_EQ(component::ReadEntryOptions(properties).cleaning, yes ? Cleaning::Html : Cleaning::None);
  }
  for (const TextView word : {u"no", u"yes", u" nono", u""}) {
    properties.CleanRTF = word;
    EXPECT_TRUE(component::ReadEntryOptions(properties).round_trip) << testing::PrintToString(Text(word));
  }
  properties.CleanRTF = u"NoNo";
  EXPECT_FALSE(component::ReadEntryOptions(properties).round_trip);
}

TEST(Options, OfANewObjectAreWhateverWasThere) {
  Properties fresh;
  Properties used;
  for (const component::PropertyName& property : component::AllProperties()) used.*property.text = u"used";
  component::Class_InitProperties(fresh);
  component::Class_InitProperties(used);
  for (const component::PropertyName& property : component::AllProperties()) {
    EXPECT_EQ(used.*property.text, fresh.*property.text) << property.name;
  }
}

// An empty word asks for all links, a word with spaces around it does not.
TEST(Options, OfLinks) {
  for (const auto& [word, linked] :
       {std::pair{u"", true}, {u"YES", true}, {u" yes", false}, {u"no", false}}) {
    Apartment apartment;
    Properties properties;
    component::Class_InitProperties(properties);
    properties.Links = word;
    properties.RTF_Text =
        u"{\\rtf1{\\fonttbl{\\f0\\fnil Arial;}}\\pard\\f0 see http://www.example.org today\\par}";
    EXPECT_EQ(Holds(component::ConvertRTF(apartment, properties), u"<a href=\"http://www.example.org\""),
              linked)
        << testing::PrintToString(Text(word));
  }
}

}  // namespace
}  // namespace quillary
