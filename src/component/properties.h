// The eighteen texts of a converter.
#pragma once

#include <span>

#include "text/text.h"

namespace quillary::component {

struct Properties {
  Text Links;
  Text CleanRTF;
  Text CleanHTML;
  Text XHTMLOutput;
  Text DoDebug;
  Text RTF_Text;
  Text Plain_Text;
  Text HTML_Text;
  Text HTML_Title;
  Text HTML_Colour;
  Text Generator;
  Text ConvertImages;
  Text ImageFolder;
  Text ImageFormat;
  Text ImageName;
  Text UseSpanTags;
  Text TableBorders;
  Text UseFontTags;
};

/// A property by its name, for everything that goes over all of them.
struct PropertyName {
  const char* name;
  Text Properties::*text;
};

/// All properties, in the order of the interface.
std::span<const PropertyName> AllProperties();

/// Gives all properties the values of a new object.
void Class_InitProperties(Properties& properties);

}  // namespace quillary::component
