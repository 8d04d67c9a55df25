#include "rtf_to_html/hex_escapes.h"

#include "rtf_to_html/byte_maps.rules.h"
#include "rtf_to_html/escape_context.h"
#include "rtf_to_html/foreign_runs.h"
#include "rtf_to_html/hex_escapes.rules.h"
#include "rules/run.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kEscape = u"\\'";

void RunOn(const rules::Chain& chain, Text& text) {
  rules::Rewriting rewriting(std::move(text));
  rules::Run(chain, rewriting);
  text = rewriting.Take();
}

void MapWesternBytesIn(Text& text) {
  if (!Holds(text, kEscape)) return;
  rules::Rewriting rewriting(std::move(text));
  rules::Run(chains::PartEscapesFromWords, rewriting);
  rules::Run(chains::WesternBytes, rewriting);
  text = rewriting.Take();
}

/// A language word in running text sends the whole text through the Turkish map.
bool ChangesLanguage(TextView text) { return Holds(text, u"\\lang1055") || Holds(text, u"\\lang1032"); }

/// The last step of the stage: what the foreign fonts left goes through the map
/// of the language.
void MapBytes(const RtfToHtmlState& state, Text& body, TextView head) {
  if (state.LanguageMode != u"turkish" && !Holds(head, u"lang1055")) {
    if (state.LanguageMode == u"greek" || Holds(head, u"lang1032")) {
      RunOn(chains::GreekBytes, body);
      return;
    }
    if (!ChangesLanguage(body)) {
      RunOn(chains::RemoveWesternLanguages, body);
      MapWesternBytesIn(body);
      return;
    }
  }
  RunOn(chains::TurkishBytes, body);
}

}  // namespace

Text DecodeHexEscapes(Apartment& apartment, TextView text, const EscapeHead& head) {
  const RtfToHtmlState& state = apartment.rtf_to_html;
  Text decoded(text);
  if (state.LanguageMode == u"turkish" || head.turkish) {
    RunOn(chains::TurkishBytes, decoded);
  } else if (state.LanguageMode == u"greek" || head.greek) {
    RunOn(chains::GreekBytes, decoded);
  } else if (ChangesLanguage(decoded)) {
    RunOn(chains::TurkishBytes, decoded);
  } else {
    RunOn(chains::RemoveWesternLanguages, decoded);
    if (state.ForeignCharsets != u"yes") return decoded;
    const int code_page = head.font ? CodePageOfCharset(CharsetOfFont(state, *head.font)) : 0;
    if (code_page == 0) {
      MapWesternBytesIn(decoded);
    } else {
      decoded = NewDecoder(apartment)->ToString(code_page, decoded);
    }
  }
  return decoded;
}

Text DecodeHexEscapes(Apartment& apartment, TextView text, TextView head) {
  return DecodeHexEscapes(apartment, text, ReadEscapeHead(apartment.rtf_to_html, head));
}

Text MapWesternBytes(TextView text) {
  Text mapped(text);
  MapWesternBytesIn(mapped);
  return mapped;
}

void SegmentHexEscapes(Apartment& apartment, Text& body, TextView head) {
  const RtfToHtmlState& state = apartment.rtf_to_html;
  if (!Holds(body, kEscape)) {
    // Nothing to decode; the maps would still take the language words.
    if (Holds(body, u"\\lang")) MapBytes(state, body, head);
    return;
  }
  RunOn(chains::HideEscapedEscapes, body);
  if (state.ForeignCharsets == u"yes" && Holds(body, kEscape)) {
    RunOn(chains::OpenForeignRuns, body);
    DecodeForeignRuns(apartment, body, ReadEscapeHead(state, head));
  }
  RunOn(chains::MoveDegreeSigns, body);
  MapBytes(state, body, head);
}

}  // namespace quillary::modQuillary
