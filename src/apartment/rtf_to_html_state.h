// The state of the RTF to HTML direction. Its driver sets at the start of a
// conversion what has a start value here; the tables of colours, fonts and
// links stay from the document before until a reader rebuilds them.
#pragma once

#include <cstddef>
#include <cstdint>

#include "apartment/rtf_to_html_options.h"
#include "rules/rewriting.h"
#include "text/integer16.h"
#include "text/list.h"
#include "text/text.h"

namespace quillary {

/// A piece of a table's text: a cell whole, or what stands between two cells.
struct CellFragment {
  quillary::Text Text;
  bool IsCell = false;
};

/// Where an attribute was written last, in the part of the page that was
/// searched for it.
struct WrittenAttribute {
  std::size_t at = static_cast<std::size_t>(-1);
  std::size_t searched = 0;
};

/// The language of the text, which decides how its escapes are read.
enum class LanguageModes : std::uint8_t { English, Greek, Turkish };

struct RtfToHtmlState {
  // The settings of this conversion as they came in, and what they mean to its
  // stages. RewriteRtf changes ImageFolder and ImageName.
  Text ConvertImages;
  Text ImageFolder;
  Text ImageFormat;
  Text ImageName;
  Text UseSpanTags;
  Text UseFontTags;
  RtfToHtmlOptions options;
  bool BodyOnly = false;
  bool BodyOnlyFonts = false;

  // The page, from its first tag to the last repair.
  rules::Rewriting HtmlOut;

  // What one segment leaves for the next.
  LanguageModes LanguageMode = LanguageModes::English;
  bool EquationSeen = false;
  bool ForeignCharsets = false;
  bool CentreOpen = false;
  bool ParagraphOpen = false;
  bool IndentOpen = false;
  bool ColourExplicit = true;
  Text PendingIndent;
  Text CarriedIndent;
  Text CurrentFace;
  Text CurrentSize;
  Text CurrentColour;
  WrittenAttribute WrittenFace;
  WrittenAttribute WrittenSize;
  WrittenAttribute WrittenColour;
  Integer16 PictureCounter;
  Integer16 CurrentFontNumber;
  Integer16 ControlSegments;
  Integer16 LongSegments;
  Integer16 SegmentIndex;

  // The tables of the document.
  Integer16 ColourCount;
  TextList ColourTable;  // "#rrggbb" by colour number
  Integer16 BodyStart;
  Integer16 FontCount;
  TextList FontFaces;
  List<std::int16_t> FontCharsets;
  TextList SizeTable;  // by size in points

  // Link recognition; the entries begin at 1.
  TextList LinkPrefixes;
  TextList LinkDelimiters;
  TextList FoundLinks;
  TextList FoundEmails;

  // The table whose cell formats are being balanced; the entries begin at 1.
  List<CellFragment> CellFragments;
  Text CarriedFont;
  bool BoldOn = false;
  bool ItalicOn = false;
  bool UnderlineOn = false;
};

}  // namespace quillary
