#include <algorithm>
#include <utility>

#include "html_to_rtf/characters/runs.h"
#include "html_to_rtf/charsets/charsets.h"
#include "html_to_rtf/charsets/cjk_cells.h"
#include "text/failure.h"
#include "text/search.h"

namespace quillary::HTMLRTFConverter {
namespace {

constexpr TextView kNewJis = u"\x1B$B";
constexpr TextView kOldJis = u"\x1B$@";
constexpr TextView kAscii = u"\x1B(B";
constexpr TextView kRoman = u"\x1B(J";
constexpr std::size_t kEscapeUnits = 3;

Text Decoded(TextView run) {
  Text decoded;
  for (; run.size() >= 2; run.remove_prefix(2)) {
    AppendCell(decoded, kJisTable, AnsiValue(run[0]) - 33, AnsiValue(run[1]) - 33);
  }
  return ReplaceAll(decoded, u"\\", u"#\\#");
}

/// The runs that begin with one escape sequence, from left to right. What stands around a run
/// without characters may be an escape sequence once the run is gone.
class Runs {
 public:
  explicit Runs(Text& text)
      : text_(text), source_(text), ascii_at_(source_.find(kAscii)), roman_at_(source_.find(kRoman)) {}

  /// False if a run has no end, which ends the decoding.
  bool Decode(TextView escape) {
    const Finder starts(escape, Compare::Binary);
    bool ended = true;
    while (ended) {
      const std::size_t start = starts.Next(source_, at_);
      if (start == Finder::npos) break;
      Keep(start);
      at_ += kEscapeUnits;
      ended = DecodeRun(escape);
      while (ended && (JoinsTo(kNewJis) || JoinsTo(escape))) ended = DecodeRun(joined_);
    }
    Keep(source_.size());
    text_ = std::move(kept_);
    return ended;
  }

 private:
  void Keep(std::size_t end) {
    kept_.append(source_, at_, end - at_);
    at_ = end;
  }

  // The escape sequence in front has been read, but is kept if the run has no end.
  bool DecodeRun(TextView escape) {
    if (ascii_at_ < at_) ascii_at_ = source_.find(kAscii, at_);
    if (roman_at_ < at_) roman_at_ = source_.find(kRoman, at_);
    const std::size_t end = std::min(ascii_at_, roman_at_);
    if (end == Finder::npos) {
      kept_ += escape;
      return false;
    }
    try {
      kept_ += Decoded(TextView(source_).substr(at_, end - at_));
    } catch (const Failure&) {
      kept_ += escape;
      Keep(source_.size());
      text_ = std::move(kept_);
      throw;
    }
    at_ = end + kEscapeUnits;
    return true;
  }

  // Takes an escape sequence that begins in what is kept.
  bool JoinsTo(TextView escape) {
    for (const std::size_t units : {std::size_t{1}, std::size_t{2}}) {
      const TextView rest = escape.substr(units);
      if (!kept_.ends_with(escape.substr(0, units)) || source_.compare(at_, rest.size(), rest) != 0) continue;
      kept_.resize(kept_.size() - units);
      at_ += rest.size();
      joined_ = escape;
      return true;
    }
    return false;
  }

  Text& text_;
  Text source_;
  Text kept_;
  std::size_t at_ = 0;
  std::size_t ascii_at_;  // the next of these at or after at_
  std::size_t roman_at_;
  TextView joined_;
};

}  // namespace

void ConvertIso2022Jp(Text& text) {
  // The older charset is looked for where the newer one is not to be found any more.
  if (Runs(text).Decode(kNewJis)) Runs(text).Decode(kOldJis);
  ReplaceIn(text, kAscii, u"");
  ReplaceIn(text, kRoman, u"");
}

}  // namespace quillary::HTMLRTFConverter
