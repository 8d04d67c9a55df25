#include "rtf_to_html/segments/segment_head_words.h"

#include <algorithm>
#include <limits>
#include <optional>
#include <vector>

#include "rtf_to_html/segments/control_words.h"
#include "rtf_to_html/segments/segment.h"
#include "rtf_to_html/segments/segment_entry.h"
#include "rules/sentinels.h"

namespace quillary::modQuillary {
namespace {

constexpr TextView kSpaceEntity = u"&nbsp;";

void Append(Text& text, TextView piece, std::int32_t times) {
  for (; times > 0; --times) text += piece;
}

// Widths in twips, and as how many spaces they show.
struct Band {
  std::int32_t from;
  std::int32_t to;
  std::int32_t spaces;
};
constexpr std::int32_t kNoEnd = std::numeric_limits<std::int32_t>::max();
constexpr Band kIndentBands[] = {{101, 249, 1},  {251, 399, 2},   {400, 899, 4},
                                 {900, 1299, 6}, {1300, 1899, 8}, {1900, kNoEnd, 10}};
// The bands of a paragraph that ends in the body are coarser.
constexpr Band kNextParagraphBands[] = {{1, 399, 2}, {400, 899, 4}, {900, 1299, 6}, {1300, kNoEnd, 8}};

template <std::size_t count>
std::int32_t SpacesFor(const Band (&bands)[count], std::int32_t twips) {
  for (const Band& band : bands) {
    if (twips >= band.from && twips <= band.to) return band.spaces;
  }
  return 0;
}

// Words that only put something around the text.
struct PlainWord {
  TextView word;
  TextView opening;
  TextView closing;
};
constexpr PlainWord kPlainWords[] = {
    {u"i", u"<i>", u"</i></i>"},
    {u"ul", u"<u>", u"</u></u>"},
    {u"ulnone", u"</u>", u""},
    {u"b0", u"</b>", u""},
    {u"i0", u"</i>", u""},
    {u"bullet", u"&bull;", u""},
    {u"emdash", u"&mdash;", u""},
    {u"endash", u"&ndash;", u""},
    {u"lquote", u"&lsquo;", u""},
    {u"rquote", u"&rsquo;", u""},
    {u"ldblquote", u"&ldquo;", u""},
    {u"rdblquote", u"&rdquo;", u""},
    {u"strike", u"<strike>", u"</strike>"},
    {u"strike0", u"</strike>", u""},
    {u"super", u"</sub><sup>", u"</sup>"},
    {u"sub", u"</sup><sub>", u"</sub>"},
    {u"nosupersub", u"</sup></sub>", u"</sup></sub>"},
    {u"trowd", sentinels::table_opening, u""},
    {u"tab", u"&nbsp;&nbsp;&nbsp;", u""},
};

void AddAttribute(Text& attributes, TextView name, TextView value) {
  attributes.append(name).append(u"\"").append(value).append(u"\" ");
}

// Whether a text holds another; looked up once, when it is first asked for.
class Fact {
 public:
  Fact(TextView text, TextView find) : text_(text), find_(find) {}

  explicit operator bool() {
    if (!known_) known_ = text_.find(find_) != TextView::npos;
    return *known_;
  }

 private:
  TextView text_;
  TextView find_;
  std::optional<bool> known_;
};

// Reads the words of one head. What grows with every word is put together at
// the end.
class HeadReader {
 public:
  HeadReader(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body)
      : state_(state), segment_(segment), body_(body) {}

  void Read() {
    ForEachWord(segment_.head, [this](TextView word) { ReadWord(word); });
    for (const Attribute& item : attributes_) AddAttribute(segment_.attributes, item.name, item.value);
    if (references_.empty()) return;
    Text body;
    // Each reference went in front of those before it.
    for (auto number = references_.rbegin(); number != references_.rend(); ++number) {
      body.append(u"&#").append(*number).append(u";");
    }
    body_.Assign(body.append(body_.text()));
  }

 private:
  struct Attribute {
    TextView name;
    TextView value;
  };
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  void ReadWord(TextView word) {
    if (word.empty() || ReadPlainWord(word) || ReadParagraphWord(word)) return;
    switch (word.front()) {
      case u'f':
        ReadFont(word);
        break;
      case u'c':
        ReadColour(word);
        break;
      case u'h':
        ReadHighlight(word);
        break;
      case u'l':
        ReadLanguage(word);
        ReadLeftIndent(word);
        break;
      case u'u':
        ReadUnicode(word);
        break;
      case u'd':
        if (NumberAfter(word, u"dn")) Surround(u"<sub>", u"</sub>");
        break;
      case u't':
        ReadTabStop(word);
        break;
      case u'\'':
        if (word.starts_with(u"'b7") && holds_bullet_) Surround(u"<li>", u"</li>");
        break;
      default:
        break;
    }
  }

  // Puts a value into the attribute at `item`, which is a new one at first.
  void SetAttribute(std::size_t& item, TextView name, TextView value) {
    if (item == kNone) {
      item = attributes_.size();
      attributes_.push_back({name, {}});
    }
    attributes_[item].value = value;
  }

  void Surround(TextView opening, TextView closing) {
    segment_.opening += opening;
    segment_.closing += closing;
  }

  bool ReadPlainWord(TextView word) {
    for (const PlainWord& plain : kPlainWords) {
      if (plain.word == word) {
        Surround(plain.opening, plain.closing);
        return true;
      }
    }
    return false;
  }

  bool ReadParagraphWord(TextView word) {
    if (word == u"pard") {
      CloseCentre(state_, segment_.segment);
    } else if (word == u"b") {
      Surround(u"<b>", u"</b></b>");
      // The bold of the first paragraphs runs on.
      if (state_.LongSegments < 2 && !bold_ends_) segment_.closing += u"<b>";
    } else if (word == u"qr") {
      segment_.opening += u"<p align=\"right\">";
      state_.ParagraphOpen = true;
    } else if (word == u"qc") {
      segment_.opening += u"<CENTER>";
      state_.ColourExplicit = false;
      state_.CentreOpen = true;
      if (group_follows_) {
        segment_.closing += u"</CENTER>";
        state_.CentreOpen = false;
      }
    } else {
      return false;
    }
    return true;
  }

  void ReadFont(TextView word) {
    if (const auto number = NumberAfter(word, u"f")) {
      if (!WithoutFonts(state_)) SetFace(WholeNumber(*number));
    } else if (const auto half_points = NumberAfter(word, u"fs")) {
      if (!WithoutFonts(state_)) SetSize(HalfToEven(WholeNumber(*half_points)));
    } else if (const auto hanging = NumberAfter(word, u"fi-")) {
      SetFirstIndent(WholeNumber(*hanging));
    } else if (const auto twips = NumberAfter(word, u"fi")) {
      SetFirstIndent(WholeNumber(*twips));
    }
  }

  void SetFace(std::int32_t number) {
    if (const Text* face = EntryAt(state_.FontFaces, number)) {
      SetAttribute(face_, u"FACE=", *face);
      state_.CurrentFace = Trim(*face);
    }
    constexpr std::int32_t kLast = std::numeric_limits<std::int16_t>::max();
    if (number >= -kLast - 1 && number <= kLast) state_.CurrentFontNumber = number;
  }

  void SetSize(std::int32_t points) {
    const Text* size = EntryAt(state_.SizeTable, points);
    if (size == nullptr) return;
    SetAttribute(size_, u"SIZE=", *size);
    state_.CurrentSize = Trim(*size);
  }

  void SetFirstIndent(std::int32_t twips) {
    Append(segment_.opening, kSpaceEntity, SpacesFor(kIndentBands, twips));
    state_.IndentOpen = true;
  }

  void ReadColour(TextView word) {
    const auto number = NumberAfter(word, u"cf");
    if (!number) return;
    if (const Text* entry = EntryAt(state_.ColourTable, WholeNumber(*number))) {
      const TextView colour = entry->empty() ? TextView(u"#000000") : TextView(*entry);
      if (holds_unicode_run_) {
        segment_.opening.append(u"<FONT COLOR=\"").append(colour).append(u"\">");
      } else {
        attributes_.push_back({u"COLOR=", colour});
      }
      state_.CurrentColour = colour;
    }
    state_.ColourExplicit = true;
  }

  void ReadHighlight(TextView word) {
    const auto number = NumberAfter(word, u"highlight");
    if (!number) return;
    if (const Text* colour = EntryAt(state_.ColourTable, WholeNumber(*number))) {
      segment_.opening.append(u"</span><span style=\"background-color: ").append(*colour).append(u"\">");
    }
    segment_.closing += u"</span>";
  }

  void ReadLanguage(TextView word) {
    if (word == u"lang1032") state_.LanguageMode = LanguageModes::Greek;
    if (word == u"lang1055") state_.LanguageMode = LanguageModes::Turkish;
    if (word == u"lang1033") state_.LanguageMode = LanguageModes::English;
  }

  void ReadLeftIndent(TextView word) {
    auto twips = NumberAfter(word, u"li-");
    if (!twips) twips = NumberAfter(word, u"li");
    if (!twips) return;
    Append(state_.PendingIndent, kSpaceEntity, SpacesFor(kIndentBands, WholeNumber(*twips)));
    if (indents_paragraph_) {
      segment_.opening += state_.PendingIndent;
      state_.PendingIndent.clear();
    }
    state_.IndentOpen = true;
  }

  void ReadUnicode(TextView word) {
    if (NumberAfter(word, u"up")) Surround(u"<sup>", u"</sup>");
    const std::size_t line_end = word.find(u"\r\n");
    if (line_end != TextView::npos) {
      segment_.closing += word.substr(line_end);
      word = word.substr(0, line_end);
    }
    if (!word.ends_with(u'?')) return;
    word.remove_suffix(1);
    if (const auto number = NumberAfter(word, u"u")) references_.push_back(*number);
  }

  // The first tab stop of the head gives the width of all tabs.
  void ReadTabStop(TextView word) {
    const auto number = NumberAfter(word, u"tx");
    if (!number) return;
    constexpr std::int32_t kWidest = 30000;
    constexpr std::int32_t kSpaceTwips = 150;
    const std::int32_t twips = std::min(WholeNumber(*number), kWidest);
    if (!body_.Holds(sentinels::tab_stop, Compare::Binary)) return;
    Text fill;
    Append(fill, kSpaceEntity, twips >= 1500 ? RoundedQuotient(twips, kSpaceTwips) : 3);
    body_.Replace(sentinels::tab_stop, fill, Compare::Binary);
  }

  // Rounded half to even.
  static std::int32_t RoundedQuotient(std::int32_t value, std::int32_t by) {
    const std::int32_t whole = value / by;
    const std::int32_t rest = 2 * (value % by);
    if (rest < by) return whole;
    return rest > by || whole % 2 == 1 ? whole + 1 : whole;
  }

  RtfToHtmlState& state_;
  Segment& segment_;
  rules::Rewriting& body_;
  std::vector<Attribute> attributes_;
  std::size_t face_ = kNone;
  std::size_t size_ = kNone;
  std::vector<TextView> references_;  // the numbers of Unicode words
  Fact holds_bullet_{segment_.head, u"\\'b7\\tab"};
  Fact holds_unicode_run_{segment_.head, u"?\\u"};
  Fact indents_paragraph_{segment_.head, u"plain\\pard\\li"};
  Fact bold_ends_{segment_.segment, u"\\b0"};
  Fact group_follows_{segment_.segment, u"\\pard{"};
};

// List items of the body, and the ends that they need.
void OpenListItems(Text& closing, rules::Rewriting& body) {
  if (body.Holds(sentinels::bullet, Compare::Binary)) {
    Append(closing, u"</li>", CountOccurrences(body.text(), sentinels::bullet));
    closing += u"</ul>";
    Append(closing, u"</ul>", CountOccurrences(body.text(), u"<ul>"));
    body.Replace(sentinels::bullet, u"<li>", Compare::Binary);
    body.Replace(u"<li>", u"<ul><li>", Compare::Binary, 1);
  }
  body.Replace(sentinels::bullet_end_of_list, u"</li></ul><br>", Compare::Binary);
}

void CountControlSegment(RtfToHtmlState& state, TextView head) {
  const std::size_t first = head.find(u'\\');
  if (first == TextView::npos || head.find(u'\\', first + 1) == TextView::npos) return;
  if (state.ControlSegments < std::numeric_limits<std::int16_t>::max()) ++state.ControlSegments;
}

void CloseIndent(RtfToHtmlState& state, Segment& segment) {
  if (!state.IndentOpen) return;
  const TextView head = segment.head;
  if (head.find(u"plain\\pard\\") == TextView::npos || head.find(u"\\li") != TextView::npos) return;
  segment.opening += u"</ul></ul></ul></ul>";
  state.IndentOpen = false;
}

void CloseRightParagraph(RtfToHtmlState& state, Segment& segment) {
  if (!state.ParagraphOpen) return;
  const TextView head = segment.head;
  if (head.find(u"\\pard\\") == TextView::npos || head.find(u"qr") != TextView::npos) return;
  segment.opening.insert(0, u"</p>");
  state.ParagraphOpen = false;
}

// A segment that names no font, size or colour gets the running ones.
void AddRunningValues(RtfToHtmlState& state, Text& attributes) {
  if (state.ControlSegments <= 0 || WithoutFonts(state)) return;
  const auto add = [&](TextView name, TextView value) {
    if (!value.empty() && attributes.find(name) == Text::npos) AddAttribute(attributes, name, value);
  };
  add(u"FACE=", state.CurrentFace);
  add(u"SIZE=", state.CurrentSize);
  // Blue and red words do not run on into the paragraph after them.
  if (state.ColourExplicit && (state.CurrentColour == u"#0000ff" || state.CurrentColour == u"#ff0000")) {
    state.CurrentColour = u"#000000";
  }
  add(u"COLOR=", state.CurrentColour);
}

// A paragraph that begins at the end of the body without any text: its
// indentation is for the segment after.
void TakeNextParagraph(RtfToHtmlState& state, rules::Rewriting& body) {
  constexpr TextView kParagraph = u"\\pard\\";
  if (!body.Holds(kParagraph, Compare::Binary)) return;
  const std::size_t start = body.text().rfind(kParagraph);
  const TextView words = TextView(body.text()).substr(start);
  if (words.find(u' ') != TextView::npos) return;
  ForEachWord(words, [&](TextView word) {
    if (const auto twips = NumberAfter(word, u"li")) {
      Append(state.PendingIndent, kSpaceEntity, SpacesFor(kNextParagraphBands, WholeNumber(*twips)));
    }
  });
  body.Assign(body.text().substr(0, start));
}

}  // namespace

void ReadHeadWords(RtfToHtmlState& state, Segment& segment, rules::Rewriting& body) {
  segment.opening.clear();
  segment.closing.clear();
  segment.attributes.clear();
  OpenListItems(segment.closing, body);
  CountControlSegment(state, segment.head);
  CloseIndent(state, segment);
  HeadReader(state, segment, body).Read();
  CloseRightParagraph(state, segment);
  AddRunningValues(state, segment.attributes);
  TakeNextParagraph(state, body);
}

}  // namespace quillary::modQuillary
