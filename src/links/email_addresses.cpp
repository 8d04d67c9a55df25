#include "links/email_addresses.h"

#include <algorithm>
#include <array>

#include "links/leftmost_literal.h"
#include "links/link_lists.h"
#include "links/page_editor.h"
#include "text/search.h"

namespace quillary::links {
namespace {

// What no address holds in front of its last at sign, and after its first: the
// lists differ in the exclamation mark.
constexpr TextView kForbiddenBefore = u", :<'\">`/\\+=|()&^%~$";
constexpr TextView kForbiddenAfter = u", :\"'<>`\\/+=|()&^%!$~";

// What breaks an address, in the order in which it is looked for.
constexpr TextView kBreaks = u"\n\r?#}{()[]*!£$\t; ";

constexpr std::size_t kMostWords = 30000;

constexpr TextView kMailtoBracket = u"&lt;mailto:";
constexpr TextView kClosingBracket = u"&gt;";

/// A piece of a text by its 0-based offsets.
struct Piece {
  std::size_t begin = 0;
  std::size_t end = 0;
};

Piece StripFringe(TextView word) {
  Piece piece{0, word.size()};
  const std::size_t last_at = word.rfind(u'@');
  if (last_at == TextView::npos) return piece;
  const std::size_t front = word.substr(0, last_at).find_last_of(kForbiddenBefore);
  if (front != TextView::npos) piece.begin = front + 1;
  const std::size_t first_at = word.find(u'@', piece.begin);
  piece.end = std::min(word.find_first_of(kForbiddenAfter, first_at), word.size());
  return piece;
}

// The first occurrence of a unit in what is left of a word that is cut at both ends.
class FirstOccurrence {
 public:
  explicit FirstOccurrence(char16_t unit = u'\0') : unit_(unit) {}

  /// The offset, or npos if the piece does not hold the unit. The begin must
  /// not be before that of an earlier call.
  std::size_t In(TextView word, Piece piece) {
    if (!known_ || (offset_ != TextView::npos && offset_ < piece.begin)) {
      offset_ = word.find(unit_, piece.begin);
      known_ = true;
    }
    return offset_ < piece.end ? offset_ : TextView::npos;
  }

 private:
  char16_t unit_;
  bool known_ = false;
  std::size_t offset_ = TextView::npos;
};

Piece TrimEdges(TextView word, Piece piece) {
  FirstOccurrence at_sign(u'@');
  std::array<FirstOccurrence, kBreaks.size()> occurrences;
  std::transform(kBreaks.begin(), kBreaks.end(), occurrences.begin(),
                 [](char16_t unit) { return FirstOccurrence(unit); });
  const auto edge = [&] {
    for (const char16_t unit : {u'@', u'-', u'.'}) {
      if (piece.begin == piece.end) return false;
      if (word[piece.end - 1] == unit) {
        --piece.end;
        return true;
      }
      if (word[piece.begin] == unit) {
        ++piece.begin;
        return true;
      }
    }
    return false;
  };
  const auto broken = [&] {
    for (FirstOccurrence& occurrence : occurrences) {
      const std::size_t offset = occurrence.In(word, piece);
      if (offset == TextView::npos) continue;
      const std::size_t at = at_sign.In(word, piece);
      if (at == TextView::npos || offset >= at) {
        --piece.end;
      } else {
        ++piece.begin;
      }
      return true;
    }
    return false;
  };
  while (edge() || broken()) continue;
  return piece;
}

bool IsAddress(TextView candidate) {
  if (candidate.find(u'@') == TextView::npos || candidate.find(u'.') == TextView::npos) return false;
  for (const TextView wrong : {u"@.", u".@", u"-.", u".-", u"@-", u"-@"}) {
    if (candidate.find(wrong) != TextView::npos) return false;
  }
  return true;
}

// Where the address stands in the stretch; an empty piece if there is none.
Piece FindAddress(TextView stretch) {
  if (stretch.size() < 4) return {};
  // More words than this are not looked at. A stretch that ends in a space has
  // an empty last word.
  std::size_t words = std::min(kMostWords, stretch.size() + 20);
  for (std::size_t begin = 0; words > 0; --words) {
    const std::size_t space = stretch.find(u' ', begin);
    const std::size_t end = space == TextView::npos ? stretch.size() : space + 1;
    const TextView word = stretch.substr(begin, end - begin);
    if (word.find(u'@') != TextView::npos) {
      const Piece piece = TrimEdges(word, StripFringe(word));
      if (IsAddress(word.substr(piece.begin, piece.end - piece.begin))) {
        return {begin + piece.begin, begin + piece.end};
      }
    }
    if (space == TextView::npos) break;
    begin = end;
  }
  return {};
}

class EmailScan {
 public:
  EmailScan(RtfToHtmlState& state, PageEditor& page)
      : state_(state), page_(page), delimiters_(state.LinkDelimiters, state.LinkDelimiters.upper()) {}

  // From the first at sign on. Returns the number of the entry after the last.
  std::int32_t Run(std::size_t at) {
    while (true) {
      FindWord(at);
      if (word_.size() > 3 && LinkAddress() && ++count_ > kFoundLimit) break;
      const std::size_t next = Finder(u"@", Compare::Binary).Next(page_.From(right_), 0);
      if (next == Finder::npos) break;
      at = right_ + next;
      if (at + 4 >= page_.Size()) break;
    }
    return count_;
  }

 private:
  void FindWord(std::size_t at);
  bool LinkAddress();

  RtfToHtmlState& state_;
  PageEditor& page_;
  LeftmostLiteral delimiters_;
  std::int32_t count_ = 1;
  std::size_t left_ = 0;   // offset at which the word begins
  std::size_t right_ = 0;  // and of what ends it
  Text word_;
  Text previous_;
};

void EmailScan::FindWord(std::size_t at) {
  const TextView rest = page_.From(at);
  const auto delimiter = delimiters_.Next(rest, 1, rest.size() - 1);
  right_ = delimiter ? at + delimiter->offset : page_.Size() - 1;
  // After the delimiter, or with the page's second unit.
  left_ = at;
  while (left_ > 0 && !delimiters_.HasUnit(page_.At(left_ - 1))) --left_;
  if (left_ == 0) left_ = 1;
  if (page_.StandsBefore(right_, u".", Compare::Binary)) --right_;
  // Where there is no room for a word, the last one stays.
  if (right_ >= left_) word_ = page_.Copy(left_, right_ - left_);
}

bool EmailScan::LinkAddress() {
  const Piece found = FindAddress(word_);
  if (found.begin == found.end) return false;
  const Text address = word_.substr(found.begin, found.end - found.begin);
  const std::size_t units = address.size();
  state_.FoundEmails.Set(count_, address);
  const Text anchor =
      Text(u"<a href=\"mailto:").append(address).append(u"\">").append(address).append(u"</a>");
  const std::size_t own = left_ + found.begin;
  if (address == previous_ && page_.StandsBefore(own, kMailtoBracket, Compare::Binary) &&
      page_.StandsAt(own + units, kClosingBracket, Compare::Binary)) {
    // The same address again in brackets goes, with the space in front of it.
    const std::size_t bracket = own - kMailtoBracket.size();
    const std::size_t end = own + units + kClosingBracket.size();
    if (bracket > 0) page_.Replace(bracket - 1, end - (bracket - 1), {});
    previous_.clear();
  } else {
    // The anchor takes the place of the word's beginning, also where the
    // address does not stand there.
    page_.Replace(left_, units, anchor);
    previous_ = address;
  }
  right_ += anchor.size() - units;
  return true;
}

void Scan(RtfToHtmlState& state, Text& text) {
  state.FoundEmails.Size(kFoundCapacity);
  const std::size_t at = text.find(u'@');
  std::int32_t next_entry = 1;
  if (at != Text::npos) {
    InPlaceEditor page(text);
    next_entry = EmailScan(state, page.editor()).Run(at);
  }
  state.FoundEmails.Set(next_entry, u"");
}

}  // namespace

void ScanEmailAddresses(RtfToHtmlState& state, TextView copy) {
  Text page(copy);
  Scan(state, page);
  state.HtmlOut.Assign(std::move(page));
}

void ScanEmailAddresses(RtfToHtmlState& state) { Scan(state, state.HtmlOut.Edit()); }

Text ExtractEmailAddress(TextView stretch) {
  const Piece found = FindAddress(stretch);
  return Text(stretch.substr(found.begin, found.end - found.begin));
}

Text StripEmailFringe(Text& word) {
  const Piece piece = StripFringe(word);
  word = word.substr(piece.begin, piece.end - piece.begin);
  return word;
}

}  // namespace quillary::links
