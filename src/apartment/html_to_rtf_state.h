// The state of the HTML to RTF direction. It lives for one conversion: the
// driver sets all of it up anew, and nothing is carried over.
#pragma once

#include <cstdint>

#include "rules/rewriting.h"
#include "text/integer16.h"
#include "text/list.h"
#include "text/text.h"

namespace quillary {

/// The formatting that a FONT or SPAN tag puts in force.
struct FontLevel {
  Integer16 font;    // index into FontList
  Integer16 size;    // in half points
  Integer16 colour;  // of the colour table of the RTF: index into ColourList plus 1
  bool isSpan = false;
  // What this span switched on and must switch off.
  bool bold = false;
  bool italic = false;
  bool underline = false;
  bool strike = false;
};

/// A list whose items are being written.
struct ListLevel {
  bool ordered = false;
  Integer16 counter;    // items so far
  Text type;            // one unit, or none
  bool closed = false;  // no paragraph of an item is open
};

/// An open paragraph.
struct ParaSpan {
  bool set = false;  // it has a span level to close
};

/// A table that is open.
struct TableLevel {
  Text widths;           // of the columns in pixels, separated by single spaces
  Integer16 tableWidth;  // in pixels
  /// The column reached in the row. Each further column of a COLSPAN adds 1000 to it while
  /// the cell is open.
  Integer16 cellCount;
  bool hasBorder = false;
  bool cellOpen = false;
  bool rowOpen = false;
  std::int32_t rowPos = 0;  // of the row's "<TR" in HtmlWork
  bool rowBrace = false;    // the row has a highlight group to close
  bool cellBrace = false;   // the cell has one
  bool centred = false;
  bool inRow = false;
  Integer16 padding;    // twice CELLPADDING
  Integer16 highlight;  // colour of the table's background
  // The edges of the table, in tenths of pixels by CELLSPACING or in pixels by its style.
  Integer16 borderTop;
  Integer16 borderLeft;
  Integer16 borderBottom;
  Integer16 borderRight;
  bool hasBorderStyle = false;
  Integer16 colourTop;
  Integer16 colourLeft;
  Integer16 colourBottom;
  Integer16 colourRight;
};

/// What a selector of a style sheet asks for.
struct StyleRule {
  Text Selector;    // in upper case, without its "." or "#"
  Text Face;        // the first of its family
  Integer16 Size;   // in half points, 0 for none
  Text Colour;      // hexadecimal digits, without "#"
  Text Background;  // the same
  Text Spare;       // never written
  Text ListStyle;   // the TYPE of a list: "1", "a", "A", "i", "I", or as the sheet has it
};

struct StyleSheet {
  Text Name;  // "HTML" for that of the page itself, else its path
  List<StyleRule> TagRules;
  List<StyleRule> ClassRules;
  List<StyleRule> IdRules;
};

struct HtmlToRtfState {
  Text RtfOut;                // the body of the RTF; all handlers append to it
  rules::Rewriting HtmlWork;  // the page: rewritten first, then walked

  // The tables of the RTF. Entry i of ColourList is colour i + 1 there.
  TextList ColourList;  // six hexadecimal digits each
  Integer16 RtfColourCount;
  TextList FontList;
  Integer16 RtfFontCount;

  TextList LanguageStack;  // an entry for each open paragraph, and the base
  Integer16 LanguageCount;

  // What has been written.
  bool TextOnLine = false;  // text since the last break
  bool TextInTable = false;
  bool AfterGap = false;     // the last thing written was text
  bool GapSeen = false;      // a gap between tags that is not empty
  bool PendingPara = false;  // a paragraph that ended in a table owes a break
  bool InHyperlink = false;

  // Lists and paragraphs.
  bool InListItem = false;
  bool ItemClosed = false;
  Integer16 ParasInItem;
  Integer16 QuoteIndent;  // of block quotes, in twips
  List<ListLevel> ListStack;
  List<ParaSpan> ParaSpans;

  // Tables; the entries of the stack begin at 1.
  List<TableLevel> TableStack;
  Integer16 TableDepth;
  Integer16 TableBorderMode;
  double TableScale = 0;
  bool TableFirst = false;  // the document begins with a table

  // Character formatting.
  List<FontLevel> FontStack;
  Integer16 CurrentFont;
  Integer16 RestoreHighlight;
  Integer16 HighlightSpans;
  bool FontHighlight = false;

  List<StyleSheet> StyleSheets;

  Integer16 FetchCount;  // the number of the next file that is downloaded

  // The charset of the page.
  Integer16 DocCharset;
  bool IsUtf8 = false;
  bool IsIso2022Jp = false;
  bool IsGb2312 = false;
};

/// The table that is open. Throws Failure (subscript) outside of tables.
inline TableLevel& OpenLevel(HtmlToRtfState& state) {
  if (state.TableDepth < 1) throw Failure(Failure::Kind::Subscript);
  return state.TableStack.At(state.TableDepth);
}

}  // namespace quillary
