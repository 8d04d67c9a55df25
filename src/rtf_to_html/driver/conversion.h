// One conversion on its way through the steps.
#pragma once

#include "apartment/apartment.h"
#include "rtf_to_html/driver/convert_to_html.h"

namespace quillary::modQuillary {

struct Conversion {
  Conversion(Apartment& in_apartment, const ConversionTexts& of_caller)
      : apartment(in_apartment), texts(of_caller) {}

  Apartment& apartment;
  ConversionTexts texts;
  bool all_links = false;  // or only those that a word processor left in brackets
  bool debug_dump = false;
  Text tables;           // the part of the source that is searched for colour and font table
  bool go_back = false;  // the step asks to run again from its `back_to` on

  RtfToHtmlState& state() { return apartment.rtf_to_html; }
  rules::Rewriting& page() { return apartment.rtf_to_html.HtmlOut; }
};

}  // namespace quillary::modQuillary
