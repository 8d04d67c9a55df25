#include "html_to_rtf/driver/tag_handlers.h"

#include "html_to_rtf/blocks/breaks.h"
#include "html_to_rtf/blocks/lists.h"
#include "html_to_rtf/blocks/paragraphs.h"
#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/images/images.h"
#include "html_to_rtf/inline/anchors.h"
#include "html_to_rtf/inline/fonts.h"
#include "html_to_rtf/inline/rtf_words.h"
#include "html_to_rtf/inline/spans.h"
#include "html_to_rtf/tables/tables.h"

namespace quillary::HTMLRTFConverter {
namespace {

void Anchor(Conversion& conversion, const PageTag& tag) { OpenAnchor(conversion.state(), tag.upper); }
void AnchorEnd(Conversion& conversion, const PageTag&) { CloseAnchor(conversion.state()); }
void Break(Conversion& conversion, const PageTag& tag) { EmitBreak(conversion.state(), tag.upper); }
void Quote(Conversion& conversion, const PageTag&) { OpenBlockquote(conversion.state()); }
void QuoteEnd(Conversion& conversion, const PageTag&) { CloseBlockquote(conversion.state()); }
// Of a list of definitions, and of what stands in it.
void DefinitionBreak(Conversion& conversion, const PageTag& tag) {
  EmitBreak(conversion.state(), tag.upper);
  Append(conversion.state(), u"\\pard\r\n");
}
void Paragraph(Conversion& conversion, const PageTag& tag) { OpenParagraph(conversion.apartment, tag.upper); }
void ParagraphEnd(Conversion& conversion, const PageTag& tag) {
  CloseParagraph(conversion.state(), tag.upper);
}
void Font(Conversion& conversion, const PageTag& tag) {
  OpenFont(conversion.apartment, UnescapeQuotes(tag.upper));
}
void FontEnd(Conversion& conversion, const PageTag&) { CloseFont(conversion.state()); }
void Rule(Conversion& conversion, const PageTag& tag) { DrawRule(conversion.apartment, tag.upper); }
void Picture(Conversion& conversion, const PageTag& tag) {
  PlaceImage(conversion.apartment, tag.upper, conversion.image_folder, tag.written);
}
void Item(Conversion& conversion, const PageTag&) { OpenListItem(conversion.state()); }
void ItemEnd(Conversion& conversion, const PageTag&) { CloseListItem(conversion.state()); }
void OrderedList(Conversion& conversion, const PageTag& tag) {
  OpenOrderedList(conversion.state(), tag.written);
}
void BulletList(Conversion& conversion, const PageTag&) { OpenBulletList(conversion.state()); }
void ListEnd(Conversion& conversion, const PageTag&) { CloseList(conversion.state()); }
void Span(Conversion& conversion, const PageTag& tag) {
  OpenSpan(conversion.apartment, UnescapeQuotes(tag.upper));
}
void SpanEnd(Conversion& conversion, const PageTag&) { CloseSpan(conversion.state()); }

void Table(Conversion& conversion, const PageTag& tag) {
  OpenTable(conversion.apartment, UnescapeQuotes(tag.upper), tag.position);
}
void TableEnd(Conversion& conversion, const PageTag&) { CloseTable(conversion.apartment); }
void Cell(Conversion& conversion, const PageTag& tag) {
  OpenCell(conversion.apartment, UnescapeQuotes(tag.upper), tag.position);
}
void CellEnd(Conversion& conversion, const PageTag&) { CloseCell(conversion.state()); }
void Row(Conversion& conversion, const PageTag& tag) {
  OpenRow(conversion.apartment, UnescapeQuotes(tag.upper), tag.position);
}
void RowEnd(Conversion& conversion, const PageTag& tag) { CloseRow(conversion.apartment, tag.upper); }

constexpr TagHandler kTagHandlers[] = {
    {"OpenAnchor", u"<A ", u"<A>", {}, Anchor},
    {"CloseAnchor", {}, u"</A>", {}, AnchorEnd},
    {"OpenBold", u"<B ", u"<B>", u"\\b1"},
    {"CloseBold", {}, u"</B>", u"\\b0"},
    {"EmitBreak", u"<BR", {}, {}, Break},
    {"OpenBlockquote", u"<BLOCKQUOTE", {}, {}, Quote},
    {"CloseBlockquote", {}, u"</BLOCKQUOTE>", {}, QuoteEnd},
    {"OpenCentre", u"<CENTER", {}, u"\\qc"},
    {"CloseCentre", {}, u"</CENTER>", u"\\ql"},
    {"OpenDefinition", u"<DD", {}, u"\\li600"},
    {"CloseDefinition", {}, u"</DD>", {}, DefinitionBreak},
    {"OpenDefinitionList", u"<DL", {}, {}, DefinitionBreak},
    {"CloseDefinitionList", {}, u"</DL>", {}, DefinitionBreak},
    {"OpenDefinedTerm", u"<DT", {}, u"\\pard\\ql\\li0\r\n"},
    {"CloseDefinedTerm", {}, u"</DT>", {}, DefinitionBreak},
    {"OpenDivision", u"<DIV", {}, {}, Paragraph},
    {"CloseDivision", {}, u"</DIV>", {}, ParagraphEnd},
    {"OpenEmphasis", u"<EM", {}, u"\\i1"},
    {"CloseEmphasis", {}, u"</EM>", u"\\i0"},
    {"OpenFont", u"<FONT", {}, {}, Font},
    {"CloseFont", {}, u"</FONT>", {}, FontEnd},
    {"DrawRule", u"<HR", {}, {}, Rule},
    {"OpenItalic", u"<I ", u"<I>", u"\\i1"},
    {"CloseItalic", {}, u"</I>", u"\\i0"},
    {"PlaceImage", u"<IMG", {}, {}, Picture},
    {"OpenListItem", u"<LI ", u"<LI>", {}, Item},
    {"CloseListItem", {}, u"</LI>", {}, ItemEnd},
    {"OpenOrderedList", u"<OL ", u"<OL>", {}, OrderedList},
    {"CloseOrderedList", {}, u"</OL>", {}, ListEnd},
    {"OpenParagraph", u"<P ", u"<P>", {}, Paragraph},
    {"CloseParagraph", {}, u"</P>", {}, ParagraphEnd},
    {"OpenSpan", u"<SPAN", {}, {}, Span},
    {"CloseSpan", {}, u"</SPAN>", {}, SpanEnd},
    {"OpenStrike", u"<STRIKE", {}, u"{\\strike "},
    {"CloseStrike", {}, u"</STRIKE>", u"}"},
    {"OpenStrong", u"<STRONG", {}, u"\\b1"},
    {"CloseStrong", {}, u"</STRONG>", u"\\b0"},
    {"OpenSubscript", u"<SUB", {}, u"{\\sub "},
    {"CloseSubscript", {}, u"</SUB>", u"}"},
    {"OpenSuperscript", u"<SUP", {}, u"{\\super "},
    {"CloseSuperscript", {}, u"</SUP>", u"}"},
    {"OpenTable", u"<TABLE", {}, {}, Table},
    {"CloseTable", {}, u"</TABLE>", {}, TableEnd},
    {"OpenCell", u"<TD", {}, {}, Cell},
    {"CloseCell", {}, u"</TD>", {}, CellEnd},
    {"OpenRow", u"<TR", {}, {}, Row},
    {"CloseRow", u"</TR", {}, {}, RowEnd},
    {"OpenUnderline", u"<U ", u"<U>", u"\\ul1"},
    {"CloseUnderline", {}, u"</U>", u"\\ul0"},
    {"OpenBulletList", u"<UL ", u"<UL>", {}, BulletList},
    {"CloseBulletList", {}, u"</UL>", {}, ListEnd},
};

}  // namespace

std::span<const TagHandler> TagHandlers() { return kTagHandlers; }

void Run(const TagHandler& handler, Conversion& conversion, const PageTag& tag) {
  if (handler.run == nullptr) return Append(conversion.state(), handler.words);
  handler.run(conversion, tag);
}

}  // namespace quillary::HTMLRTFConverter
