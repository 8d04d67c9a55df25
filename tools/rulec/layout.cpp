#include "layout.h"

#include <algorithm>
#include <vector>

#include "line.h"

namespace quillary::rulec {
namespace {

// Keeps comments and blank lines back until the line below them is known: they
// are indented as that is.
class Layout {
 public:
  void Add(std::string_view source, std::size_t number) {
    const std::size_t first = std::min(source.find_first_not_of(" \t\r"), source.size());
    const std::size_t last = source.find_last_not_of(" \t\r");
    if (first == source.size()) {
      if (!above_.empty() ? !above_.back().empty() : !out_.empty()) above_.emplace_back();
    } else if (source[first] == '#') {
      above_.emplace_back(source.substr(first, last - first + 1));
    } else {
      AddWords(Line(source, number).words());
    }
  }

  std::string Finish() {
    if (!above_.empty() && above_.back().empty()) above_.pop_back();
    WriteAbove(0);
    return std::move(out_);
  }

 private:
  void AddWords(const std::vector<Word>& words) {
    const std::string first = words.front().kind == Word::Kind::Plain ? words.front().text : "";
    const bool is_head = first == "chain" || first == "stage" || first == "let" || first == "sentinel";
    const bool is_end = first == "end";
    if (is_head) depth_ = 0;
    const std::size_t inside = is_head ? 0 : 1 + depth_;
    if (is_end && depth_ > 0) --depth_;
    WriteAbove(inside);
    Write(is_head ? 0 : 1 + depth_, Joined(words));
    if (first == "when" || first == "for") ++depth_;
  }

  void WriteAbove(std::size_t depth) {
    for (const std::string& line : above_) Write(line.empty() ? 0 : depth, line);
    above_.clear();
  }

  void Write(std::size_t depth, const std::string& line) {
    out_ += std::string(2 * depth, ' ') + line + '\n';
  }

  static std::string Joined(const std::vector<Word>& words) {
    std::string joined;
    for (const Word& word : words) {
      if (!joined.empty() && word.kind != Word::Kind::Comma) joined += ' ';
      joined += word.Written();
    }
    return joined;
  }

  std::string out_;
  std::vector<std::string> above_;
  std::size_t depth_ = 0;  // blocks that are open
};

}  // namespace

std::string LaidOut(std::string_view source) {
  Layout layout;
  std::size_t number = 0;
  while (!source.empty()) {
    const std::size_t end = std::min(source.find('\n'), source.size());
    layout.Add(source.substr(0, end), ++number);
    source.remove_prefix(std::min(end + 1, source.size()));
  }
  return layout.Finish();
}

}  // namespace quillary::rulec
