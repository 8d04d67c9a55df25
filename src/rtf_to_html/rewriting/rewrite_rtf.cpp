#include "rtf_to_html/rewriting/rewrite_rtf.h"

#include <utility>

#include "rtf_to_html/rewriting/pictures.h"
#include "rtf_to_html/rewriting/rewrite_bullets.rules.h"
#include "rtf_to_html/rewriting/rewrite_headings.rules.h"
#include "rtf_to_html/rewriting/rewrite_rtf.rules.h"
#include "rtf_to_html/rewriting/split_segments.h"
#include "rtf_to_html/segments/translate_segment.h"
#include "rules/run.h"
#include "text/search.h"

namespace quillary::modQuillary {
namespace {

// The rich edit control writes a group with its version, which ends soon.
void RemoveRichedGenerator(Text& text) {
  constexpr std::size_t kLongest = 80;
  const std::size_t start = Finder(u"{\\*\\generator Riched", Compare::IgnoreCase).Next(text, 0);
  if (start == Finder::npos) return;
  const std::size_t end = text.find(u";}", start);
  if (end != Text::npos && end < start + kLongest) text.erase(start, end - start + 2);
}

// So does its successor, in every document that was put together from several.
void RemoveMsfteditGenerators(Text& text) {
  const std::size_t start = Finder(u"{\\*\\generator Msftedit ", Compare::IgnoreCase).Next(text, 0);
  if (start == Finder::npos) return;
  const std::size_t end = text.find(u";}", start);
  if (end == Text::npos) return;
  const Text group = text.substr(start, end - start + 2);
  if (group.size() < 50) ReplaceIn(text, group, u"", Compare::IgnoreCase);
}

// Runs the rules that bring the text of all known writers to one dialect.
void BringToOneDialect(Apartment& apartment, Text& text) {
  rules::Rewriting rewriting = StartRewriting(apartment, std::move(text));
  rules::Run(chains::RewriteChainBullets, rewriting);
  rules::Run(chains::RewriteChainHeadings, rewriting);
  rules::Run(chains::BulletOpenerSeparation, rewriting);
  text = rewriting.Take();
}

}  // namespace

void RewriteRtf(Apartment& apartment, Text& text) {
  RtfToHtmlState& state = apartment.rtf_to_html;
  AttemptStep(apartment, "RewriteRtf", [&] {
    ReplacePictures(apartment, text);
    if (Holds(text, u"\\caps0 ")) text = ApplyCaps(std::move(text));
    RemoveRichedGenerator(text);
    RemoveMsfteditGenerators(text);
    BringToOneDialect(apartment, text);
    CheckGrowth(apartment, text);
    state.SegmentIndex = 0;
    state.ParagraphOpen = false;
    state.HtmlOut.Edit().reserve(state.HtmlOut.text().size() + text.size() + text.size() / 8);
    SplitSegments(apartment, text, [&](Text& segment) {
      TranslateSegment(apartment, segment);
      CheckGrowth(apartment, state.HtmlOut.text());
    });
  });
}

}  // namespace quillary::modQuillary
