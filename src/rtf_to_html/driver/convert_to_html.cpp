#include "rtf_to_html/driver/convert_to_html.h"

#include <algorithm>
#include <utility>

#include "apartment/flags.h"
#include "html_finishing/finish_entities_and_lists.h"
#include "html_finishing/font_tags.h"
#include "html_finishing/tidy_layout.h"
#include "links/bracket_links.h"
#include "links/email_addresses.h"
#include "links/label_links.h"
#include "links/link_lists.h"
#include "links/scan_links.h"
#include "rtf_to_html/document_tables/colour_table.h"
#include "rtf_to_html/document_tables/font_table.h"
#include "rtf_to_html/driver/convert_to_html.rules.h"
#include "rtf_to_html/page_repairs/closing_repairs.h"
#include "rtf_to_html/page_repairs/list_repairs.h"
#include "rtf_to_html/page_repairs/table_repairs.h"
#include "rtf_to_html/rewriting/rewrite_rtf.h"
#include "rules/run.h"
#include "rules/sentinels.h"

namespace quillary::modQuillary {
namespace {

/// A table block that cannot be balanced sends the sequence back to the cell
/// marks; one that fails every time must not keep the conversion from ending.
constexpr int kMostRounds = 25;

/// The tables of a document are looked for in its first part only, which keeps
/// the readers away from large picture data behind them.
constexpr std::int32_t kTableUnits = 20000;

// Bounds the growth of one conversion by the length of its source.
class GrowthLimit {
 public:
  GrowthLimit(Apartment& apartment, std::size_t source_units)
      : apartment_(apartment), outer_(apartment.working_limit) {
    const std::size_t grown = std::max(source_units * limits::kGrowthFactor, limits::kGrowthFloorUnits);
    apartment.working_limit = std::min(outer_, grown);
  }
  GrowthLimit(const GrowthLimit&) = delete;
  GrowthLimit& operator=(const GrowthLimit&) = delete;
  ~GrowthLimit() { apartment_.working_limit = outer_; }

 private:
  Apartment& apartment_;
  std::size_t outer_;
};

// Runs the steps of the sequence, each under its own guard: a step that fails
// is skipped, and the next one goes on with the page as it stands.
class Sequence {
 public:
  explicit Sequence(Apartment& apartment) : apartment_(apartment) {}

  /// Runs a step, which may change HtmlOut and other state.
  template <class Action>
  void Step(const char* name, Action&& action) {
    Attempt(action);
    Show(name, apartment_.rtf_to_html.HtmlOut);
  }

 private:
  friend class PageSequence;
  void Show(const char* name, const Text& page) {
    if (page.size() > apartment_.working_limit) throw LimitReached(LimitReached::Limit::Growth);
    if (apartment_.trace) apartment_.trace(name, page);
  }

  Apartment& apartment_;
};

// The same for the repairs of the assembled page, which leaves HtmlOut for so
// long and is back in it at the end.
class PageSequence {
 public:
  explicit PageSequence(Sequence& sequence)
      : sequence_(sequence),
        page_(std::move(sequence.apartment_.rtf_to_html.HtmlOut), &sequence.apartment_) {}
  PageSequence(const PageSequence&) = delete;
  PageSequence& operator=(const PageSequence&) = delete;
  ~PageSequence() { sequence_.apartment_.rtf_to_html.HtmlOut = page_.Take(); }

  template <class Repair>
  void Step(const char* name, Repair&& repair) {
    Attempt([&] { repair(page_); });
    sequence_.Show(name, page_.text());
  }

 private:
  Sequence& sequence_;
  rules::Rewriting page_;
};

void StartState(Apartment& apartment, const ConversionTexts& texts) {
  apartment.stopped_short = {};
  RtfToHtmlState& state = apartment.rtf_to_html;
  state.ConvertImages = texts.convert_images;
  state.ImageFolder = texts.image_folder;
  state.ImageFormat = texts.image_format;
  state.ImageName = texts.image_name;
  state.UseSpanTags = texts.use_span_tags;
  state.UseFontTags = texts.use_font_tags;
  state.LanguageMode = u"english";
  state.HtmlOut.clear();
  state.EquationSeen = u"no";
  state.ForeignCharsets = u"no";
  state.CentreOpen = u"no";
  state.PendingIndent.clear();
  state.CarriedIndent.clear();
  state.CurrentFace.clear();
  state.CurrentSize.clear();
  state.CurrentColour.clear();
  state.IndentOpen = u"no";
  state.ColourExplicit = u"yes";
  state.PictureCounter = 0;
  state.CurrentFontNumber = 0;
  state.ControlSegments = 0;
  state.LongSegments = 0;
}

void SetBodyMode(RtfToHtmlState& state, Text& body_mode) {
  const bool fragment = Folded(body_mode, u"yes");
  const bool fragment_with_fonts = Folded(body_mode, u"yes2");
  if (!fragment && !fragment_with_fonts) body_mode = u"no";
  state.BodyOnly = fragment || fragment_with_fonts ? u"yes" : u"no";
  state.BodyOnlyFonts = fragment_with_fonts ? u"yes" : u"no";
}

Text Head(const Text& title, const Text& generator) {
  return u"<html>\r\n<head>\r\n<title>" + title + u"</title>\r\n<meta name=\"GENERATOR\" content=\"" +
         (generator.empty() ? Text(u"Morvanta Quillary Control") : generator) + u"\">\r\n</head>";
}

Text BodyTag(Text& colour) {
  NormaliseColour(colour);
  if (colour.empty()) return u"\r\n<body>";
  return u"\r\n<BODY BGCOLOR=\"#" + colour + u"\">";
}

void CloseCentre(RtfToHtmlState& state) {
  if (state.CentreOpen != u"yes") return;
  state.HtmlOut += u"</CENTER>";
  state.CentreOpen = u"no";
}

// Appends the end tags that are missing; where more than `most` are, none.
void BalanceTags(Text& page, TextView start_tag, TextView end_tag, std::int32_t most) {
  if (!Holds(page, start_tag, Compare::IgnoreCase)) return;
  const std::int32_t missing = CountOccurrences(page, start_tag, Compare::IgnoreCase) -
                               CountOccurrences(page, end_tag, Compare::IgnoreCase);
  if (missing < 1 || missing > most) return;
  page += u"\r\n";
  for (std::int32_t i = 0; i < missing; ++i) page.append(end_tag).append(u">");
}

void CloseDocument(RtfToHtmlState& state) {
  if (state.ParagraphOpen == u"yes") {
    state.HtmlOut += u"</p>";
    state.ParagraphOpen = u"no";
  }
  state.HtmlOut += u"\r\n</body>\r\n</html>\r\n";
}

bool FoundAllThatFit(const TextList& found) { return found.last_set() >= links::kFoundLimit; }

// Links off still finds what a word processor left in brackets.
void RecogniseLinks(Sequence& sequence, Apartment& apartment, TextView mode) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  if (mode.empty() || Folded(mode, u"yes")) {
    sequence.Step("LoadLinkPrefixes", [&] { links::LoadLinkPrefixes(state); });
    sequence.Step("LoadLinkDelimiters", [&] { links::LoadLinkDelimiters(state); });
    sequence.Step("ScanLinks", [&] { links::ScanLinks(state); });
    sequence.Step("ScanEmailAddresses", [&] { links::ScanEmailAddresses(state); });
    sequence.Step("RestoreAtSigns", [&] { ReplaceIn(state.HtmlOut, sentinels::at_sign, u"@"); });
    apartment.stopped_short.links = FoundAllThatFit(state.FoundLinks) || FoundAllThatFit(state.FoundEmails);
    return;
  }
  sequence.Step("LoadBracketPrefixes", [&] { links::LoadBracketPrefixes(state); });
  sequence.Step("LoadBracketDelimiters", [&] { links::LoadBracketDelimiters(state); });
  for (int scan = 0; scan < 2; ++scan) {
    sequence.Step("ScanBracketLinks", [&] { links::ScanBracketLinks(state); });
  }
  apartment.stopped_short.links = FoundAllThatFit(state.FoundLinks);
}

// Everything that is repaired on the finished page.
void RepairPage(Sequence& assembly, Apartment& apartment, const Text& colour) {
  const RtfToHtmlState& state = apartment.rtf_to_html;
  using Page = rules::Rewriting;
  PageSequence sequence(assembly);
  sequence.Step("TidyLayout", [](Page& page) { html_finishing::TidyLayout(page); });
  sequence.Step("OpenFirstCellWidth", OpenFirstCellWidth);
  sequence.Step("RepairTableHeads", RepairTableHeads);
  sequence.Step("SupplyTableHead", [&](Page& page) { SupplyTableHead(page, colour); });
  sequence.Step("RepairRowShapes", RepairRowShapes);
  sequence.Step("DropBorderSpacing", DropBorderSpacing);
  sequence.Step("MarkBullets", MarkBullets);
  sequence.Step("RepairRowStarts", RepairRowStarts);

  BlockWalk walk = BlockWalk::GoBack;
  for (int round = 0; round < kMostRounds && walk == BlockWalk::GoBack; ++round) {
    sequence.Step("DropCellMarks", DropCellMarks);
    sequence.Step("IndentFirstNumbers", IndentFirstNumbers);
    sequence.Step("IndentSecondNumbers", IndentSecondNumbers);
    sequence.Step("RepairLabelAnchors", [](Page& page) { links::RepairLabelAnchors(page); });
    sequence.Step("RepairLabelLinks", [](Page& page) { links::RepairLabelLinks(page); });
    sequence.Step("SupplyDefaultFont", [&](Page& page) { SupplyDefaultFont(page, colour); });
    sequence.Step("MendSymbolBullets", MendSymbolBullets);
    sequence.Step("ShortenBulletIndents", ShortenBulletIndents);
    sequence.Step("MendSectionBullets", MendSectionBullets);
    sequence.Step("MendListIndents", MendListIndents);
    sequence.Step("MendBoldNumbers", MendBoldNumbers);
    walk = BlockWalk::Done;
    sequence.Step("BalanceTableBlocks", [&](Page& page) { walk = BalanceTableBlocks(page); });
  }

  sequence.Step("DropStrayClosers", DropStrayClosers);
  sequence.Step("DropEmptyLastCells", DropEmptyLastCells);
  sequence.Step("MendLowQuotes", MendLowQuotes);
  sequence.Step("DropCellWidths", DropCellWidths);
  sequence.Step("DropFirstCellWidth", DropFirstCellWidth);
  sequence.Step("FinishEntitiesAndLists", html_finishing::FinishEntitiesAndLists);
  sequence.Step("CollapseFirstList", [](Page& page) { html_finishing::CollapseFirstList(page); });
  sequence.Step("MergeAdjoiningFonts", MergeAdjoiningFonts);
  sequence.Step("DropEmptyCellForms", DropEmptyCellForms);
  sequence.Step("TidyDocumentEnd", TidyDocumentEnd);

  const bool spans = TrimmedFolded(state.UseSpanTags, u"yes");
  if (spans) sequence.Step("ConvertFontsToSpans", html_finishing::ConvertFontsToSpans);
  if (TrimmedFolded(state.UseFontTags, u"no") && !spans) {
    sequence.Step("RemoveFontTags", html_finishing::RemoveFontTags);
  }
}

void ResolvePictureMarks(Apartment& apartment) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  const bool equation = state.EquationSeen == u"yes";
  rules::Rewriting page(std::move(state.HtmlOut), &apartment);
  rules::RunStage(chains::PictureMarks, chains::PictureMarks_stages::marks, page);
  rules::RunStage(chains::PictureMarks,
                  equation ? chains::PictureMarks_stages::equation_ends : chains::PictureMarks_stages::ends,
                  page);
  state.HtmlOut = page.Take();
}

}  // namespace

Text ConvertToHtml(Apartment& apartment, ConversionTexts texts) {
  if (texts.source.size() > limits::kInputUnits) throw LimitReached(LimitReached::Limit::Input);
  const GrowthLimit growth(apartment, texts.source.size());
  RtfToHtmlState& state = apartment.rtf_to_html;
  Sequence sequence(apartment);

  sequence.Step("StartState", [&] { StartState(apartment, texts); });
  sequence.Step("WriteDebugDump", [&] {
    if (Folded(texts.debug, u"yes")) WriteDebugDump(apartment, texts.source);
  });
  sequence.Step("SetBodyMode", [&] { SetBodyMode(state, texts.body_mode); });
  const bool fragment = state.BodyOnly == u"yes";

  const Text tables = Left(texts.source, kTableUnits);
  sequence.Step("FillSizeTable", [&] { FillSizeTable(state); });
  sequence.Step("ReadColourTable", [&] { ReadColourTable(state, tables); });
  sequence.Step("ReadFontTable", [&] { ReadFontTable(state, tables); });
  sequence.Step("WriteHead", [&] {
    if (!fragment) state.HtmlOut = Head(texts.title, texts.generator);
  });
  sequence.Step("WriteBodyTag", [&] { state.HtmlOut += BodyTag(texts.colour); });
  sequence.Step("RewriteRtf", [&] {
    Text rewritten;
    rewritten.reserve(texts.source.size() + texts.source.size() / 8);  // it grows
    rewritten = texts.source;
    RewriteRtf(apartment, rewritten);
  });

  sequence.Step("CloseCentre", [&] { CloseCentre(state); });
  sequence.Step("BalanceTables", [&] { BalanceTags(state.HtmlOut, u"<table", u"</table", 4); });
  sequence.Step("BalanceFonts", [&] { BalanceTags(state.HtmlOut, u"<font", u"</font", 8); });
  sequence.Step("CloseDocument", [&] {
    if (!fragment) CloseDocument(state);
  });
  sequence.Step("AssemblyClean", [&] {
    rules::Rewriting page(std::move(state.HtmlOut), &apartment);
    rules::Run(chains::AssemblyClean, page);
    state.HtmlOut = page.Take();
  });
  RecogniseLinks(sequence, apartment, texts.links);
  sequence.Step("ResolvePictureMarks", [&] { ResolvePictureMarks(apartment); });
  RepairPage(sequence, apartment, texts.colour);

  texts.source.clear();
  return state.HtmlOut;
}

void WriteDebugDump(Apartment& apartment, TextView text) {
  const auto& diagnostics = apartment.services.diagnostics;
  if (!diagnostics) return;
  if (!Attempt([&] { diagnostics->WriteDump(text); })) {
    diagnostics->Message(u"Error, unable to create rtftext.txt file");
  }
}

}  // namespace quillary::modQuillary
