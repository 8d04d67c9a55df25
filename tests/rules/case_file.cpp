#include "rules/case_file.h"

#include <functional>
#include <optional>
#include <sstream>
#include <utility>

#include "line.h"
#include "literal.h"

namespace quillary {
namespace {

using rulec::Family;
using rulec::Line;
using rulec::Word;

/// Literals one after the other, as they are written.
struct Written {
  std::size_t line = 0;
  std::vector<std::string> literals;
};

/// A case as it is written, until its last line is read.
struct Block {
  std::size_t line = 0;
  std::vector<CaseTarget> targets;
  std::vector<Family> families;
  std::optional<Written> from;
  std::optional<Written> to;
  std::vector<Written> keeps;
  bool any_case = false;
};

void TakeLiterals(Line& line, Written& written) {
  while (line.NextIsLiteral()) written.literals.push_back(line.Next().text);
}

CaseTarget ReadTarget(Line& line) {
  const std::string word = line.Expect(Word::Kind::Plain, "no chain or stage is named");
  const std::size_t slash = word.find('/');
  if (slash == std::string::npos) return {word, ""};
  return {word.substr(0, slash), word.substr(slash + 1)};
}

Change ReadChange(Line& line) {
  for (const auto& [change, word] : kAllChanges) {
    if (line.Take(word)) return change;
  }
  line.Fail("same without what is done to the rule");
}

using Values = std::map<std::string, Text>;

// The first family is the outermost loop.
void OverFamilies(const std::vector<Family>& families, std::size_t depth, Values& values,
                  const std::function<void()>& action) {
  if (depth == families.size()) return action();
  for (const Text& value : families[depth].values) {
    values[families[depth].placeholder] = value;
    OverFamilies(families, depth + 1, values, action);
  }
}

class Reader {
 public:
  explicit Reader(const rulec::Names& sentinels) : sentinels_(sentinels) {}

  CaseFile Read(std::string_view source) {
    std::istringstream in{std::string(source)};
    std::size_t number = 0;
    for (std::string text; std::getline(in, text);) {
      Line line(text, ++number);
      if (!line.empty()) ReadLine(line);
    }
    Finish();
    return std::move(file_);
  }

 private:
  void ReadLine(Line& line) {
    if (line.NextIsLiteral()) {
      if (open_ == nullptr) line.Fail("a literal that belongs to nothing");
      TakeLiterals(line, *open_);
      return line.End();
    }
    open_ = nullptr;
    if (line.Take("unreachable")) {
      Finish();
      ReadNamed(line, "unreachable", [&] { return &file_.unreachable; });
    } else if (line.Take("same")) {
      Finish();
      ReadNamed(line, "same", [&] { return &file_.same[ReadChange(line)]; });
    } else if (line.Take("case")) {
      Finish();
      block_.emplace();
      block_->line = line.number();
      do {
        block_->targets.push_back(ReadTarget(line));
      } while (line.TakeComma());
      line.Expect(Word::Kind::Quoted, "case without its sentence");
    } else if (!block_) {
      line.Fail("a line outside a case");
    } else if (line.Take("for")) {
      block_->families = rulec::ReadFamilies(line, sentinels_);
    } else if (line.Take("any-case")) {
      block_->any_case = true;
    } else if (line.Take("from")) {
      if (block_->from) line.Fail("a second from");
      ReadText(line, block_->from.emplace());
    } else if (line.Take("to")) {
      if (block_->to) line.Fail("a second to");
      ReadText(line, block_->to.emplace());
    } else if (line.Take("keeps")) {
      ReadText(line, block_->keeps.emplace_back());
    }
    line.End();
  }

  void ReadText(Line& line, Written& written) {
    if (!line.NextIsLiteral()) line.Fail("no literal follows");
    written.line = line.number();
    TakeLiterals(line, written);
    open_ = &written;
  }

  // `list_of` reads what stands between the find text and the reason.
  void ReadNamed(Line& line, const std::string& word,
                 const std::function<std::vector<NamedRules>*()>& list_of) {
    const CaseTarget target = ReadTarget(line);
    if (target.stage.empty()) line.Fail(word + " without a stage");
    Written find{line.number(), {}};
    TakeLiterals(line, find);
    if (find.literals.empty()) line.Fail(word + " without a find");
    std::vector<NamedRules>& list = *list_of();
    if (line.Expect(Word::Kind::Quoted, word + " without a reason").empty()) line.Fail("an empty reason");
    std::vector<Family> families;
    if (line.Take("for")) families = rulec::ReadFamilies(line, sentinels_);
    line.End();
    Values values;
    OverFamilies(families, 0, values, [&] {
      list.push_back({line.number(), target, Resolved(find, values)});
    });
  }

  void Finish() {
    open_ = nullptr;
    if (!block_) return;
    const Block block = *std::exchange(block_, std::nullopt);
    if (block.from.has_value() != block.to.has_value()) {
      throw rulec::Malformed(block.line, "from and to go together");
    }
    if (!block.from && block.keeps.empty()) throw rulec::Malformed(block.line, "case without a text");
    if (!block.from && block.any_case) throw rulec::Malformed(block.line, "any-case without from");
    Values values;
    OverFamilies(block.families, 0, values, [&] {
      if (block.from) {
        RuleCase one{block.line, block.targets, Resolved(*block.from, values), Resolved(*block.to, values)};
        file_.changes.push_back(one);
        if (block.any_case) {
          one.from = CaseToggled(one.from, sentinels_);
          one.folded = true;
          file_.changes.push_back(std::move(one));
        }
      }
      for (const Written& kept : block.keeps) {
        const Text text = Resolved(kept, values);
        file_.keeps.push_back({kept.line, block.targets, text, text});
      }
    });
  }

  Text Resolved(const Written& written, const Values& values) const {
    std::set<std::string> placeholders;
    for (const auto& [name, value] : values) placeholders.insert(name);
    Text text;
    for (const std::string& literal : written.literals) {
      text += rulec::Fill(rulec::ReadLiteral(literal, written.line, {sentinels_, placeholders, {}}), values);
    }
    return text;
  }

  const rulec::Names& sentinels_;
  std::optional<Block> block_;
  Written* open_ = nullptr;  // what a line of literals continues
  CaseFile file_;
};

char16_t Toggled(char16_t unit) {
  const bool letter = (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
  return letter ? static_cast<char16_t>(unit ^ 0x20) : unit;
}

}  // namespace

CaseFile ReadCases(std::string_view source, const rulec::Names& sentinels) {
  return Reader(sentinels).Read(source);
}

Text CaseToggled(const Text& text, const rulec::Names& sentinels) {
  Text toggled = text;
  for (char16_t& unit : toggled) unit = Toggled(unit);
  for (const rulec::Named& sentinel : sentinels) {
    if (sentinel.kind != rulec::Named::Kind::Sentinel) continue;
    for (std::size_t at = text.find(sentinel.text); at != Text::npos; at = text.find(sentinel.text, at + 1)) {
      toggled.replace(at, sentinel.text.size(), sentinel.text);
    }
  }
  return toggled;
}

}  // namespace quillary
