#include "platform/rich_text/reader/rtf_reader.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "platform/rich_text/reader/body.h"
#include "platform/rich_text/reader/breaks.h"
#include "platform/rich_text/reader/destinations.h"
#include "platform/rich_text/reader/document_header.h"
#include "platform/rich_text/reader/footnotes.h"
#include "platform/rich_text/reader/groups.h"
#include "platform/rich_text/reader/text_decoder.h"
#include "platform/rich_text/reader/tokens.h"
#include "platform/rich_text/reader/word_values.h"

namespace quillary::platform::rtf {
namespace {

// Text is shorter than its RTF, but pictures may be most of that.
constexpr std::size_t kMostReserved = std::size_t{2} << 20;

/// Hands each token to the part of the reader that it concerns.
class Reader {
 public:
  explicit Reader(TextView rtf) : tokens_(rtf) {
    document_.text.reserve(std::min(rtf.size(), kMostReserved));
    document_.states_code_page = false;
    document_.source_units = rtf.size();
  }

  Document Read();

 private:
  /// What was read of a group while it may still become a destination.
  struct GroupStart {
    bool is_open = false;  // nothing was read of the group but what is here
    bool starred = false;  // "\*"
    TextView spaces;       // text, unless the group turns out to hold none
  };

  bool ReadToken(const Token& token);
  void OpenGroup();
  bool CloseGroup();
  void EndGroup(const Group& closed);
  void SkipGroup();
  void ReadSymbol(char16_t character);
  void ReleaseSpaces();

  void ReadWord(const Token& token);
  bool OpenDestination(const Token& token);
  bool OpenContent(const Token& token);
  bool ReadGroupWord(const Token& token);
  bool Take(Opening opening);

  Tokens tokens_;
  Document document_;
  Groups groups_;
  DocumentHeader header_{document_};
  Body body_{document_, header_, groups_};
  Destinations destinations_{document_, header_, groups_, body_};
  TextDecoder text_{groups_, header_.fonts, body_, destinations_};
  Footnotes footnotes_{groups_, body_, text_};
  GroupStart start_;
};

Document Reader::Read() {
  while (ReadToken(tokens_.Next())) {
  }
  text_.Flush();
  body_.Finish();
  return std::move(document_);
}

/// Reads a token; false at the end of the document.
bool Reader::ReadToken(const Token& token) {
  const bool may_name_destination = token.kind == Token::Kind::Word || token.kind == Token::Kind::Symbol;
  if (!may_name_destination) ReleaseSpaces();
  bool goes_on = true;
  switch (token.kind) {
    case Token::Kind::End:
      return false;
    case Token::Kind::Open:
      OpenGroup();
      return true;
    case Token::Kind::Close:
      goes_on = CloseGroup();
      break;
    case Token::Kind::Word:
      ReadWord(token);
      break;
    case Token::Kind::Symbol:
      ReadSymbol(token.unit);
      if (token.unit == u'*' && start_.is_open) return true;
      break;
    case Token::Kind::Byte:
      text_.ReadByte(static_cast<unsigned char>(token.unit));
      break;
    case Token::Kind::Text:
      if (start_.is_open && !start_.starred && token.text.find_first_not_of(u' ') == TextView::npos) {
        start_.spaces = token.text;
        return true;
      }
      text_.ReadPlain(token.text);
      break;
    case Token::Kind::Unit:
      text_.ReadUnit(token.unit);
      break;
    case Token::Kind::Binary:
      text_.ReadBinary(token.text);
      break;
  }
  start_.is_open = false;
  return goes_on;
}

void Reader::ReleaseSpaces() {
  if (!start_.spaces.empty()) text_.ReadPlain(std::exchange(start_.spaces, {}));
}

void Reader::OpenGroup() {
  text_.FlushComplete();
  text_.EndFallback();
  start_ = {.is_open = true, .starred = false, .spaces = {}};
  if (!groups_.Open()) return;
  const bool is_ansi_part =
      groups_.Top().destination == Destination::AnsiAndUnicode && !tokens_.Rest().starts_with(u"\\*");
  if (is_ansi_part) SkipGroup();
}

/// Closes a group; false at the end of the document.
bool Reader::CloseGroup() {
  if (groups_.InBody()) {
    text_.FlushComplete();
  } else {
    text_.Flush();
  }
  text_.EndFallback();
  if (groups_.AtDocument()) {
    // The end of the document, unless braces follow: then this one was one too many.
    const bool is_first = groups_.CloseDocument();
    return !is_first || !tokens_.AtLastClose();
  }
  const std::optional<Group> closed = groups_.Close();
  if (closed) EndGroup(*closed);
  return true;
}

void Reader::EndGroup(const Group& closed) {
  body_.ChangeFormat();
  destinations_.End(closed);
  if (closed.ends_footnote) footnotes_.End();
  destinations_.EndContent(closed);
  if (closed.ends_text_box) body_.EndTextBox(closed);
}

void Reader::SkipGroup() {
  tokens_.SkipGroup();
  text_.DropBytes();
}

void Reader::ReadSymbol(char16_t character) {
  text_.FlushComplete();
  if (character == u'*') {
    start_.starred = start_.is_open;
    return;
  }
  ReleaseSpaces();
  const bool is_line_end = character == u'\r' || character == u'\n';
  if (!is_line_end && text_.SkipFallback()) return;
  switch (character) {
    case u'\\':
    case u'{':
    case u'}':
      text_.ReadPlain({&character, 1});
      break;
    case u'~':
      text_.AddCharacter(0xA0);
      break;
    case u'_':
      text_.AddCharacter(u'-');
      break;
    case u'\t':
      text_.AddStructure(structure::kTab);
      break;
    case u'\r':
    case u'\n':
      if (!groups_.InBody()) break;
      text_.Flush();
      body_.EndParagraph();
      break;
    default:
      break;  // an optional hyphen, the symbols of an index entry, and what means nothing
  }
}

void Reader::ReadWord(const Token& token) {
  text_.FlushComplete();
  if (start_.is_open && token.keyword != Keyword::U && OpenDestination(token)) {
    start_.spaces = {};
    return;
  }
  ReleaseSpaces();
  if (token.keyword == Keyword::U) {
    if (groups_.Top().destination != Destination::FontTable) return text_.ReadUnicode(token.number);
    text_.Flush();
    header_.fonts.ReadWord(token);
    return text_.BeginFallback();
  }
  if (OpenContent(token) || ReadGroupWord(token) || header_.ReadWord(token)) return;
  if (destinations_.ReadWord(token)) return;
  if (token.keyword == Keyword::Chftn) return footnotes_.AddNumber();
  if (text_.ReadCharacterWord(token.keyword) || groups_.Top().HoldsCharactersOnly()) return;
  text_.EndFallback();
  if (body_.ReadFormatWord(token)) return;
  if (groups_.InBody()) {
    ReadBreak(token, text_, body_);
  } else if (token.keyword == Keyword::Nestrow && groups_.Top().destination == Destination::Nowhere) {
    body_.EndNestedRow();
  }
}

/// Takes the first word of a group if it makes the group a destination, or one
/// that is passed over.
bool Reader::OpenDestination(const Token& token) {
  if (Take(destinations_.Open(token.keyword))) return true;
  Group& group = groups_.Top();
  switch (token.keyword) {
    case Keyword::Skipped:
      return Take(Opening::Skip);
    case Keyword::Htmltag:
      // The markup of a page. An entity in it is shown by what follows for
      // readers without HTML.
      body_.SetHtmlEntity(tokens_.Rest().starts_with(u'&'));
      return Take(Opening::Skip);
    case Keyword::MoMath:
      group.in_equation = true;
      return true;
    case Keyword::Upr:
      if (groups_.InBody()) group.destination = Destination::AnsiAndUnicode;
      return true;
    case Keyword::Ud:
      if (group.destination == Destination::AnsiAndUnicode) group.destination = Destination::Body;
      return true;
    default:
      break;
  }
  const bool is_equation_property =
      group.in_equation && token.keyword == Keyword::Unknown && token.text.ends_with(u"Pr");
  if (is_equation_property) return Take(Opening::Skip);
  return OpenContent(token) || (start_.starred && Take(Opening::Skip));
}

/// Takes a word that gives the group in which it stands content of another
/// kind, wherever in the group it stands.
bool Reader::OpenContent(const Token& token) {
  Group& group = groups_.Top();
  switch (token.keyword) {
    case Keyword::Shp:
      return true;
    case Keyword::Shpinst:
    case Keyword::Do:
    case Keyword::Sp:
    case Keyword::Sv:
    case Keyword::Nesttableprops:
      if (group.TakesContent()) group.destination = Destination::Nowhere;
      return true;
    case Keyword::Shprslt:  // the same shape once more
      return Take(Opening::Skip);
    case Keyword::Shptxt:
    case Keyword::Dptxbxtext:
      if (group.TakesContent()) body_.BeginTextBox();
      return true;
    case Keyword::Footnote:
      footnotes_.Begin();
      return true;
    default:
      return Take(destinations_.OpenContent(token));
  }
}

/// Takes a word about how the text of the group is to be read.
bool Reader::ReadGroupWord(const Token& token) {
  Group& group = groups_.Top();
  switch (token.keyword) {
    case Keyword::Viewkind:
      body_.SetWrittenByControl(tokens_.Rest().starts_with(u"\\uc1"));
      return true;
    case Keyword::Uc:
      group.fallback_length = std::clamp(token.number, 0, 255);
      return true;
    case Keyword::Htmlrtf:
      group.html_only = IsOn(token);
      if (!group.html_only) body_.SetHtmlEntity(false);
      return true;
    default:
      return false;
  }
}

bool Reader::Take(Opening opening) {
  if (opening == Opening::Skip) SkipGroup();
  return opening != Opening::None;
}

}  // namespace

Document ReadRtf(TextView rtf) { return Reader(rtf).Read(); }

}  // namespace quillary::platform::rtf
