// The state of the RTF to HTML direction. Its driver sets at the start of a
// conversion what has a start value here; the tables of colours, fonts and
// links stay from the document before until a reader rebuilds them.
#pragma once

#include <cstddef>
#include <cstdint>

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

struct RtfToHtmlState {
  // The settings of this conversion. RewriteRtf changes ImageFolder and ImageName.
  Text ConvertImages;
  Text ImageFolder;
  Text ImageFormat;
  Text ImageName;
  Text UseSpanTags;
  Text UseFontTags;
  Text BodyOnly = u"no";
  Text BodyOnlyFonts = u"no";

  // The page as far as it is written.
  Text HtmlOut;

  // What one segment leaves for the next.
  Text LanguageMode = u"english";
  Text EquationSeen = u"no";
  Text ForeignCharsets = u"no";
  Text CentreOpen = u"no";
  Text ParagraphOpen = u"no";
  Text IndentOpen = u"no";
  Text ColourExplicit = u"yes";
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
