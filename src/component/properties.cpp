#include "component/properties.h"

namespace quillary::component {
namespace {

constexpr PropertyName kProperties[] = {
    {"Links", &Properties::Links},
    {"CleanRTF", &Properties::CleanRTF},
    {"CleanHTML", &Properties::CleanHTML},
    {"XHTMLOutput", &Properties::XHTMLOutput},
    {"DoDebug", &Properties::DoDebug},
    {"RTF_Text", &Properties::RTF_Text},
    {"Plain_Text", &Properties::Plain_Text},
    {"HTML_Text", &Properties::HTML_Text},
    {"HTML_Title", &Properties::HTML_Title},
    {"HTML_Colour", &Properties::HTML_Colour},
    {"Generator", &Properties::Generator},
    {"ConvertImages", &Properties::ConvertImages},
    {"ImageFolder", &Properties::ImageFolder},
    {"ImageFormat", &Properties::ImageFormat},
    {"ImageName", &Properties::ImageName},
    {"UseSpanTags", &Properties::UseSpanTags},
    {"TableBorders", &Properties::TableBorders},
    {"UseFontTags", &Properties::UseFontTags},
};

}  // namespace

std::span<const PropertyName> AllProperties() { return kProperties; }

void Class_InitProperties(Properties& properties) {
  properties.RTF_Text.clear();
  properties.Plain_Text.clear();
  properties.HTML_Text.clear();
  properties.HTML_Title = u"Morvanta Quillary";
  properties.HTML_Colour = u"white";
  properties.Generator = u"Morvanta Software Corporation Quillary";
  properties.Links = u"yes";
  properties.DoDebug = u"no";
  properties.CleanRTF = u"yes";
  properties.CleanHTML = u"no";
  properties.XHTMLOutput = u"no";
  properties.ConvertImages = u"yes";
  properties.ImageFolder = u"c:\\windows\\temp\\";
  properties.ImageFormat = u"png";
  properties.ImageName = u"object";
  properties.UseSpanTags = u"no";
  properties.UseFontTags = u"yes";
  properties.TableBorders = u"1";
}

}  // namespace quillary::component
