#include "rtf_to_html/segments/hex_escapes.h"

#include "rtf_to_html/segments/byte_maps.rules.h"
#include "rtf_to_html/segments/escape_context.h"
#include "rtf_to_html/segments/foreign_runs.h"
#include "rtf_to_html/segments/hex_escapes.rules.h"
#include "rules/run.h"
#include "text/ascii.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kEscape = u"\\'";
constexpr std::size_t kEscapeUnits = 4;

/// The byte of each escape of a text that holds nothing else; empty for any
/// other text.
std::string BytesOfRun(TextView text) {
  std::string bytes;
  if (text.size() % kEscapeUnits != 0) return bytes;
  for (std::size_t at = 0; at < text.size(); at += kEscapeUnits) {
    const int high = HexDigitValue(text[at + 2]);
    const int low = HexDigitValue(text[at + 3]);
    if (text[at] != u'\\' || text[at + 1] != u'\'' || high < 0 || low < 0) return "";
    bytes.push_back(static_cast<char>(high * 16 + low));
  }
  return bytes;
}

/// Applies a byte map to a run of escapes and nothing else; false for any other
/// text. Inside a run no row can meet what another row wrote, so that each
/// escape takes its row at once.
bool MapRun(const rules::Chain& map, Text& text) {
  const std::string bytes = BytesOfRun(text);
  if (bytes.empty()) return false;
  Text mapped;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    mapped +=
        byte < 0x80 ? TextView(text).substr(i * kEscapeUnits, kEscapeUnits) : map.rules[byte - 0x80u].with;
  }
  text = std::move(mapped);
  return true;
}

void RunMap(const rules::Chain& map, Text& text) {
  if (!Holds(text, kEscape) || MapRun(map, text)) return;
  rules::Rewriting rewriting(std::move(text));
  rules::Run(map, rewriting);
  text = rewriting.Take();
}

/// A language word in running text sends the whole text through the Turkish map.
bool ChangesLanguage(TextView text) { return Holds(text, u"\\lang1055") || Holds(text, u"\\lang1032"); }

/// The last step of the stage: what the foreign fonts left goes through the map
/// of the language.
void MapBytes(const RtfToHtmlState& state, rules::Rewriting& body, TextView head) {
  if (state.LanguageMode != LanguageModes::Turkish && !Holds(head, u"lang1055")) {
    if (state.LanguageMode == LanguageModes::Greek || Holds(head, u"lang1032")) {
      rules::Run(chains::GreekBytes, body);
      return;
    }
    if (!ChangesLanguage(body.text())) {
      rules::Run(chains::RemoveWesternLanguages, body);
      rules::Run(chains::PartEscapesFromWords, body);
      rules::Run(chains::WesternBytes, body);
      return;
    }
  }
  rules::Run(chains::TurkishBytes, body);
}

}  // namespace

Text DecodeHexEscapes(Apartment& apartment, TextView text, const EscapeHead& head) {
  const RtfToHtmlState& state = apartment.rtf_to_html;
  Text decoded(text);
  if (state.LanguageMode == LanguageModes::Turkish || head.turkish) {
    RunMap(chains::TurkishBytes, decoded);
  } else if (state.LanguageMode == LanguageModes::Greek || head.greek) {
    RunMap(chains::GreekBytes, decoded);
  } else if (ChangesLanguage(decoded)) {
    RunMap(chains::TurkishBytes, decoded);
  } else {
    if (Holds(decoded, u"\\lang")) {
      rules::Rewriting rewriting = StartRewriting(apartment, std::move(decoded));
      rules::Run(chains::RemoveWesternLanguages, rewriting);
      decoded = rewriting.Take();
    }
    if (!state.ForeignCharsets) return decoded;
    const int code_page = head.font ? EscapeCodePageOfCharset(CharsetOfFont(state, *head.font)) : 0;
    decoded = code_page == 0 ? MapWesternBytes(decoded) : NewDecoder(apartment)->ToString(code_page, decoded);
  }
  return decoded;
}

Text DecodeHexEscapes(Apartment& apartment, TextView text, TextView head) {
  return DecodeHexEscapes(apartment, text, ReadEscapeHead(apartment.rtf_to_html, head));
}

Text MapWesternBytes(TextView text) {
  Text mapped(text);
  if (!Holds(mapped, kEscape) || MapRun(chains::WesternBytes, mapped)) return mapped;
  rules::Rewriting rewriting(std::move(mapped));
  rules::Run(chains::PartEscapesFromWords, rewriting);
  rules::Run(chains::WesternBytes, rewriting);
  return rewriting.Take();
}

void SegmentHexEscapes(Apartment& apartment, Text& body, TextView head) {
  const RtfToHtmlState& state = apartment.rtf_to_html;
  // Without an escape only the maps have work to do: they take language words.
  const bool escapes = Holds(body, kEscape);
  if (!escapes && !Holds(body, u"\\lang")) return;
  rules::Rewriting rewriting = StartRewriting(apartment, std::move(body));
  if (escapes) {
    rules::Run(chains::HideEscapedEscapes, rewriting);
    if (state.ForeignCharsets && rewriting.Holds(kEscape, Compare::Binary)) {
      rules::Run(chains::OpenForeignRuns, rewriting);
      Text runs = rewriting.Take();
      DecodeForeignRuns(apartment, runs, ReadEscapeHead(state, head));
      rewriting.Assign(std::move(runs));
    }
    rules::Run(chains::MoveDegreeSigns, rewriting);
  }
  MapBytes(state, rewriting, head);
  body = rewriting.Take();
}

}  // namespace quillary::modQuillary
