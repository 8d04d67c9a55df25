// The two stages whose families come from the document, against reference
// implementations that run every row for every font, size, colour and link over the page.
#include <gtest/gtest.h>

#include <random>

#include "apartment/apartment.h"
#include "html_finishing/finish_entities_and_lists.rules.h"
#include "rules/run.h"

namespace quillary::html_finishing {
namespace {

std::vector<Text> FacesOf(const RtfToHtmlState& state) {
  std::vector<Text> faces;
  for (std::int32_t f = 0; state.FontFaces.sized() && f <= state.FontCount; ++f) {
    faces.push_back(state.FontFaces.has(f) ? Trim(state.FontFaces[f]) : Text());
  }
  return faces;
}

Text ReferenceFonts(Text page, const RtfToHtmlState& state) {
  for (const Text& face : FacesOf(state)) {
    for (int s = 1; s <= 30; ++s) {
      const Text t = u"<font FACE=\"" + face + u"\" SIZE=\"" + Decimal(s) + u"\" >";
      const Text black = u"<font COLOR=\"#000000\">";
      const Text body = u"<BODY BGCOLOR=\"#FFFFFF\"><font FACE=\"" + face + u"\" ><ul>";
      const std::pair<Text, Text> rows[] = {
          {u"<strike>" + t, t + u"<strike>"},
          {u"<u><b>" + t, t + u"<b><u>"},
          {u"<b>" + t, t + u"<b>"},
          {u"<u>" + t, t + u"<u>"},
          {u"<b><i>" + t, t + u"<b><i>"},
          {u"&bull;" + t + black, t + black + u"&bull;"},
          {u"<li><br> </font></li></li></ul>" + t + u"<li><ul>",
           u"<li><br> </font></li><li></li>" + t + u"<li>"},
          {body + u"<font", body + u"<li><font"},
          {u"</li></ul>" + t + u"<li> <ul>", u"</li>" + t + u"<li>"},
      };
      for (const auto& [find, with] : rows) page = ReplaceAll(page, find, with);
    }
  }
  return page;
}

// "<u>" anchor, any label through the next "</a>", then `kept`, then what goes.
Text ReferenceCut(const Text& page, const Text& head, const Text& kept, const Text& cut) {
  const Compare mode = Compare::IgnoreCase;
  Text out;
  std::int32_t written = 1;
  std::int32_t at = FindText(1, page, head, mode);
  while (at > 0) {
    const std::int32_t end = FindText(at + Length(head), page, u"</a>", mode);
    if (end > 0 && Equal(Mid(page, end, Length(kept) + Length(cut)), kept + cut, mode)) {
      out += Mid(page, written, at - written) + head;
      out += Mid(page, at + Length(head), end - at - Length(head)) + kept;
      written = end + Length(kept) + Length(cut);
      at = written - 1;
    }
    at = FindText(at + 1, page, head, mode);
  }
  return out + Mid(page, written);
}

Text ReferenceLinks(Text page, const RtfToHtmlState& state) {
  const Compare mode = Compare::IgnoreCase;
  if (!state.ColourTable.sized()) return page;
  const std::int32_t links = CountOccurrences(page, u"<a href=", mode);
  for (std::int32_t k = 1; k <= links; ++k) {
    const Text u = Trim(u"http://" + (state.FoundLinks.has(k) ? state.FoundLinks[k] : Text()));
    const Text anchor = u"<a href=\"" + u + u"\">";
    for (std::int32_t c = 1; c <= state.ColourCount; ++c) {
      const Text colour = u"<font COLOR=\"" + state.ColourTable[c] + u"\">";
      for (const Text& face : FacesOf(state)) {
        page = ReplaceAll(page, colour + anchor, anchor + colour, mode);
        for (int n = 5; n >= 1; --n) {
          const Text tail = u"<font SIZE=\"" + Decimal(n) + u"\">" + anchor + u + u"</a>";
          const Text kept = u"</a></u>" + colour;
          page = ReferenceCut(page, u"<u>" + anchor, kept, u"<b>" + tail);
          page = ReferenceCut(page, u"<u>" + anchor, kept, u"<font FACE=\"" + face + u"\">" + tail);
        }
      }
    }
  }
  return page;
}

class Documents {
 public:
  // Names with angle brackets lie across several tags of the page.
  void FillState(RtfToHtmlState& state, bool brackets) {
    const std::vector<Text> faces = {u"Arial", u" Times ", u"", u"Arial"};
    const std::vector<Text> colours = {u"", u"#000000", u"#FF0000", u"#0000ff", u"#ff0000"};
    const std::vector<Text> links = {u"", u"a.b", u"c", u"A.b", u"c "};
    Fill(state.FontFaces, faces, brackets ? Text(u"x\" ><b><font FACE=\"Arial") : Text(u"Arial\" SIZE=\"2"));
    Fill(state.ColourTable, colours, brackets ? Text(u"#ff0000\"><u><font COLOR=\"#000000") : Text(u"red"));
    Fill(state.FoundLinks, links, brackets ? Text(u"c\"><b><a href=\"http://a.b") : Text(u"d"));
    state.FontCount = state.FontFaces.upper() + 1;  // the last one was never set
    state.ColourCount = state.ColourTable.upper();
  }

  Text Page(const std::vector<Text>& pieces) {
    Text page;
    for (std::size_t count = random_() % 40; count > 0; --count) page += pieces[random_() % pieces.size()];
    return page;
  }

 private:
  void Fill(TextList& list, const std::vector<Text>& entries, const Text& last) {
    const std::size_t count = 2 + random_() % (entries.size() - 1);
    list.Size(static_cast<std::int32_t>(count));
    for (std::size_t i = 0; i < count; ++i) list.Set(static_cast<std::int32_t>(i), entries[i]);
    list.Set(static_cast<std::int32_t>(count), last);
  }

  std::mt19937 random_{7};
};

std::string Shown(TextView text) { return std::string(text.begin(), text.end()); }

template <class Reference>
void CompareWithReference(int stage, const std::vector<Text>& pieces, Reference reference, int pages) {
  Documents documents;
  int changed = 0;
  for (int i = 0; i < pages; ++i) {
    Apartment apartment;
    documents.FillState(apartment.rtf_to_html, i % 4 == 0);
    const Text page = documents.Page(pieces);
    rules::Rewriting text = StartRewriting(apartment, page);
    rules::RunStage(chains::FinishEntitiesAndLists, stage, text, &apartment.rtf_to_html);
    const Text expected = reference(page, apartment.rtf_to_html);
    changed += expected != page;
    ASSERT_EQ(Shown(expected), Shown(text.text())) << Shown(page);
  }
  EXPECT_GT(changed, pages / 4);
}

TEST(FinishEntitiesAndLists, MovesFontsAsItsReferenceDoes) {
  const Text arial = u"<font FACE=\"Arial\" SIZE=\"2\" >";
  const Text times = u"<font FACE=\"Times\" SIZE=\"30\" >";
  const Text body = u"<BODY BGCOLOR=\"#FFFFFF\"><font FACE=\"Arial\" ><ul>";
  const Text black = u"<font COLOR=\"#000000\">";
  CompareWithReference(chains::FinishEntitiesAndLists_stages::fonts_outward,
                       {arial,
                        arial,
                        arial,
                        times,
                        u"<font FACE=\"\" SIZE=\"1\" >",
                        u"<font FACE=\"Arial\" SIZE=\"31\" >",
                        u"<font FACE=\"x\" ><b><font FACE=\"Arial\" SIZE=\"2\" >",
                        body,
                        body + u"<b>" + arial,
                        u"<font FACE=\"x\" >",
                        u"<b>",
                        u"<i>",
                        u"<u>",
                        u"<b><i>",
                        u"<u><b>",
                        u"<strike>",
                        u"&bull;",
                        u"&bull;" + arial + black,
                        black,
                        u"text",
                        u" ",
                        u"</ul>",
                        u"<li><br> </font></li></li></ul>" + arial + u"<li><ul>",
                        u"<li><br> </font></li></li></ul>",
                        u"</li></ul>" + times + u"<li> <ul>",
                        u"<li> <ul>",
                        u"<li><ul>",
                        u"<",
                        u">",
                        u"&bu",
                        u"ll;"},
                       ReferenceFonts, 800);
}

TEST(FinishEntitiesAndLists, ResolvesLinksAsItsReferenceDoes) {
  const Text anchor = u"<A HREF=\"http://a.B\">";
  const Text red = u"<FONT color=\"#ff0000\">";
  const Text doubled = u"<u>" + anchor + u"label</a></u>" + red;
  const Text again = u"<a href=\"http://a.b\">HTTP://a.b</a>";
  CompareWithReference(chains::FinishEntitiesAndLists_stages::link_colours,
                       {anchor,
                        u"<a href=\"http://c\">",
                        red,
                        red + anchor,
                        u"<font COLOR=\"#0000ff\">",
                        u"<u>",
                        u"</u>",
                        u"</a>",
                        u"<b>",
                        doubled,
                        doubled + u"<b><font SIZE=\"3\">" + again,
                        doubled + u"<font FACE=\"Arial\"><font SIZE=\"1\">" + again,
                        u"<b><font SIZE=\"3\">" + again,
                        u"<font FACE=\"\"><font SIZE=\"5\">" + again,
                        again,
                        u"http://a.b",
                        u"text",
                        u"<font SIZE=\"3\">",
                        u"<font COLOR=\"#ff0000\"><u><font COLOR=\"#000000\"><a href=\"http://a.b\">",
                        u"<a href=\"http://c\"><b><a href=\"http://a.b\">",
                        u"<",
                        u">"},
                       ReferenceLinks, 800);
}

}  // namespace
}  // namespace quillary::html_finishing
