#include <gtest/gtest.h>

#include <ctime>
#include <map>
#include <random>

#include "rtf_to_html/segments/hex_escapes.h"
#include "rules/sentinels.h"

namespace quillary::modQuillary {
namespace {

/// The runs of a foreign document as they are told: every round looks at the
/// whole text in front of the run, font by font.
Text SlowForeignRuns(Apartment& apartment, Text body, const Text& head) {
  const RtfToHtmlState& state = apartment.rtf_to_html;
  const auto decoder = apartment.services.code_page_decoder();
  const std::map<int, int> pages = {
      {134, 936},  {128, 932},  {129, 949},  {136, 950},  {177, 1255}, {181, 1255}, {178, 1256}, {179, 1256},
      {180, 1256}, {238, 1250}, {204, 1251}, {161, 1253}, {162, 1254}, {186, 1257}, {163, 1258}, {222, 874}};
  while (true) {
    const std::int32_t q = FindText(1, body, u"\\'");
    if (q == 0) break;
    std::int32_t length = 0;
    while (MidView(body, q + length, 4).size() == 4 && MidView(body, q + length, 2) == u"\\'") length += 4;
    if (length == 0) break;
    const Text run = Mid(body, q, length);

    int fnum = 99;
    std::int32_t greatest = 0;
    const Text front = ReplaceAll(Left(body, q), sentinels::bullet, u" " + Text(sentinels::bullet));
    for (int n = state.FontCount; n >= 0; --n) {
      for (const char16_t end : {u'\\', u' ', u'&'}) {
        const std::int32_t at = LastPosition(front, u"\\f" + Decimal(n) + end);
        if (at > greatest) {
          greatest = at;
          fnum = n;
        }
      }
    }
    if (greatest == 0 && Holds(head, u"\\f")) {
      for (int n = state.FontCount; n >= 0 && fnum == 99 && head.size() >= 6; --n) {
        if (Holds(Right(head, 3), u"\\f" + Decimal(n))) fnum = n;
      }
      for (int n = state.FontCount; n >= 0 && fnum == 99; --n) {
        const Text word = u"\\f" + Decimal(n);
        if (Holds(head, word + u'\\') || Holds(head + u' ', word + u' ')) fnum = n;
      }
    }
    if (fnum == 99) fnum = state.CurrentFontNumber;
    if (fnum == 99) break;

    const int charset = state.FontCharsets.has(fnum) ? state.FontCharsets[fnum] : 0;
    bool flag = false;
    Text decoded;
    if (charset == 0) {
      decoded = DecodeHexEscapes(apartment, run, head);
      if (decoded == run || decoded == run + u' ') {
        decoded.clear();
      } else {
        flag = true;
      }
    } else {
      const auto page = pages.find(charset);
      decoded = u' ' + decoder->ToString(page == pages.end() ? 936 : page->second, run);
    }
    if (length == 4) {
      const Text plain = DecodeHexEscapes(apartment, run, head);
      if (plain == decoded && decoded == run) decoded = u' ' + decoded;
      if (charset != 238 && charset != 161 && charset != 162) decoded = plain;
      if (decoded == run) decoded = u" ";
    }
    if (!flag && decoded == u" " && q > 1 && IsNumeric(Mid(body, q - 1, 1)) &&
        Holds(Left(body, q - 1), u"\\fs")) {
      decoded.clear();
    }
    ReplaceIn(body, run, decoded, Compare::IgnoreCase, 1);
    if (decoded == run || decoded == u' ' + run) break;
  }
  return body;
}

Apartment ForeignDocument() {
  Apartment apartment;
  RtfToHtmlState& state = apartment.rtf_to_html;
  state.ForeignCharsets = true;
  const std::int16_t charsets[] = {0, 204, 128, 238, 161, 2, 136, 162, 0, 0, 0, 222, 134};
  state.FontCount = 12;
  state.FontCharsets.Size(12);
  for (std::int32_t i = 0; i <= 12; ++i) state.FontCharsets.Set(i, charsets[i]);
  return apartment;
}

TEST(ForeignRuns, AreDecodedAsIfEachLookedAtTheWholeText) {
  const Text bullet(sentinels::bullet);
  const std::vector<Text> pieces = {u"\\f0 ",      u"\\f1\\b ",
                                    u"\\f2 ",      u"\\f3 ",
                                    u"\\f4&",      u"\\f5",
                                    u"\\f6 ",      u"\\f11 ",
                                    u"\\f12\\",    u"\\f13 ",
                                    u"\\f01 ",     u"\\f",
                                    u"\\fs24",     u"2",
                                    bullet,        u"\\'e1",
                                    u"\\'cf",      u"\\'93",
                                    u"\\'FA",      u"\\'5c",
                                    u"\\'27",      u"\\'41",
                                    u"\\'b7",      u"\\'20",
                                    u"\\'zz",      u"\\'",
                                    u"e1",         u" ",
                                    u"x",          u"\\",
                                    u"'",          u"{",
                                    u"\\lang1032", u"\\'66\\'31\\'20",
                                    u"\\'a4\\'a4"};
  const std::vector<Text> heads = {u"",           u"\\f1",       u"\\fs20\\f3",
                                   u"\\f1\\fs20", u"\\f2\\f11 ", u"\\lang1032 ",
                                   u"\\f13\\",    u"\\cf1\\f99", u"\\b\\f4\\f12"};
  std::mt19937 random(20);
  Apartment apartment = ForeignDocument();
  for (int round = 0; round < 20000; ++round) {
    Text body;
    for (auto i = random() % 14; i > 0; --i) body += pieces[random() % pieces.size()];
    const Text& head = heads[random() % heads.size()];
    apartment.rtf_to_html.CurrentFontNumber = random() % 4 == 0 ? 99 : static_cast<int>(random() % 13);
    Text fast = body;
    SegmentHexEscapes(apartment, fast, head);
    Text slow = body;
    ReplaceIn(slow, u"\\\\\\'", sentinels::hidden_backslashes_and_escape, Compare::IgnoreCase);
    ReplaceIn(slow, u"\\\\'", sentinels::hidden_escape, Compare::IgnoreCase);
    ReplaceIn(slow, u"\\{\\'", u"\\{ \\'", Compare::IgnoreCase);
    if (Holds(slow, u"\\'")) {
      ReplaceIn(slow, sentinels::hidden_backslashes_and_escape, u"\\\\ \\'");
      ReplaceIn(slow, u"0]\\'", u"0 ]\\'");
      slow = SlowForeignRuns(apartment, slow, head);
    }
    if (Holds(slow, u"\\'b0")) {
      for (const Text n : {u"1", u"2", u"3"}) ReplaceIn(slow, u"\\f" + n + u"\\'b0", u"\\'b0 \\f" + n);
    }
    const bool greek = Holds(head, u"lang1032");
    const bool western = !greek && !Holds(slow, u"\\lang1032");
    Apartment western_fonts;
    slow = DecodeHexEscapes(western_fonts, slow, head);
    if (western) slow = MapWesternBytes(slow);
    ASSERT_EQ(slow, fast) << round;
  }
}

TEST(ForeignRuns, WithoutADecoderTheTextStays) {
  for (const bool created : {false, true}) {
    Apartment apartment = ForeignDocument();
    apartment.services.code_page_decoder = nullptr;
    if (created) {
      apartment.services.code_page_decoder = []() -> std::unique_ptr<platform::CodePageDecoder> {
        throw Failure(Failure::Kind::Raised);
      };
    }
    Text body = u"\\f0 \\'e9t\\'e9 \\f1 \\'cf\\'f0 end";
    SegmentHexEscapes(apartment, body, u"");
    EXPECT_EQ(u"\\f0 été \\f1 Ïð end", body);
    EXPECT_THROW(DecodeHexEscapes(apartment, u"\\'cf", u"\\f1"), Failure);
  }
}

TEST(ForeignRuns, WesternDocumentsCreateNoDecoder) {
  Apartment apartment = ForeignDocument();
  apartment.rtf_to_html.ForeignCharsets = false;
  bool created = false;
  apartment.services.code_page_decoder = [&created] {
    created = true;
    return platform::MakeCodePageDecoder();
  };
  Text body = u"\\f1 \\'cf\\'f0\\'e8";
  SegmentHexEscapes(apartment, body, u"\\f1");
  EXPECT_EQ(u"\\f1 Ïðè", body);
  EXPECT_FALSE(created);
}

// A run of escapes takes its rows at once; in running text they run over the text.
TEST(ByteMaps, GiveTheSameInARunAsInText) {
  for (const LanguageModes language :
       {LanguageModes::English, LanguageModes::Greek, LanguageModes::Turkish}) {
    Apartment apartment;
    apartment.rtf_to_html.LanguageMode = language;
    const auto mapped = [&](TextView text) {
      return language == LanguageModes::English ? MapWesternBytes(text)
                                                : DecodeHexEscapes(apartment, text, u"");
    };
    for (int byte = 0x70; byte < 0x100; ++byte) {
      const Text escape = u"\\'" + (byte % 2 == 0 ? ToLower(Hex(byte)) : Hex(byte));
      Text body = escape + escape;
      EXPECT_EQ(u"x" + mapped(body), mapped(u"x" + body));
      const Text run = mapped(body);
      SegmentHexEscapes(apartment, body, u"");
      EXPECT_EQ(run, body);
    }
  }
}

// In processor time, so that a busy machine does not count.
double Seconds(const Text& piece, int count) {
  Text text;
  for (int i = 0; i < count; ++i) text += piece;
  Apartment apartment = ForeignDocument();
  const std::clock_t start = std::clock();
  SegmentHexEscapes(apartment, text, u"\\f1\\fs20 ");
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(ForeignRuns, CostGrowsWithTheTextOnly) {
  for (const Text piece :
       {u"\\f1 \\'cf\\'f0 word ", u"word \\'cf\\'f0", u"\\f3 \\'5c\\'27 ", u"\\f0 \\'41 "}) {
    Seconds(piece, 100);
    const double small = std::max(Seconds(piece, 4000), 1e-3);
    EXPECT_LT(Seconds(piece, 64000), small * 16 * 8) << Length(piece);
  }
}

}  // namespace
}  // namespace quillary::modQuillary
