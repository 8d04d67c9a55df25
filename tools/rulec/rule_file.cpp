#include "rule_file.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <set>

#include "line.h"
#include "literal.h"

namespace quillary::rulec {
namespace {

bool IsName(std::string_view word) {
  return !word.empty() && std::all_of(word.begin(), word.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
  }) && !(word[0] >= '0' && word[0] <= '9');
}

std::vector<std::string_view> SplitLines(std::string_view source) {
  std::vector<std::string_view> lines;
  while (!source.empty()) {
    const std::size_t end = std::min(source.find('\n'), source.size());
    lines.push_back(source.substr(0, end));
    source.remove_prefix(std::min(end + 1, source.size()));
  }
  return lines;
}

std::optional<Compare> TakeMode(Line& line) {
  if (line.Take("binary")) return Compare::Binary;
  if (line.Take("ignore-case")) return Compare::IgnoreCase;
  return std::nullopt;
}

std::int32_t Number(const std::string& word, const Line& line) {
  std::int32_t value = 0;
  const char* end = word.data() + word.size();
  const auto [stop, error] = std::from_chars(word.data(), end, value);
  if (error != std::errc() || stop != end || value < 0) line.Fail("not a number: " + word);
  return value;
}

std::string Name(Line& line, const std::string& cause) {
  std::string name = line.Expect(Word::Kind::Plain, cause);
  if (!IsName(name)) line.Fail("not a name: " + name);
  return name;
}

Text Digits(std::int32_t value) { return FromUtf8(std::to_string(value)); }

// What stands after "sentinel" or "let" becomes one name more; its literal may
// use the names before it.
void ReadNamed(Named::Kind kind, Line& line, Names& names, std::set<std::string>* used) {
  const bool is_sentinel = kind == Named::Kind::Sentinel;
  const std::string word = is_sentinel ? "sentinel" : "let";
  Named named{kind, Name(line, word + " without a name"), u"", "", line.number()};
  const std::string& literal = line.Expect(Word::Kind::Delimited, word + " without its literal");
  if (literal.empty()) line.Fail("empty " + word);
  named.text = Fill(ReadLiteral(literal, line.number(), {names, {}, {"n", "m"}, used}), {});
  named.meaning = line.Expect(Word::Kind::Quoted, word + " without its meaning");
  line.End();
  for (const Named& other : names) {
    if (other.name == named.name) line.Fail("duplicate name: " + named.name);
    if (is_sentinel && other.text == named.text) line.Fail("the same literal as " + other.name);
  }
  names.push_back(std::move(named));
}

class Reader {
 public:
  Reader(std::string_view source, const Names& shared, std::string default_namespace)
      : lines_(SplitLines(source)), names_(shared), default_namespace_(std::move(default_namespace)) {
    CollectPlaceholders();
  }

  std::vector<ChainSource> Read() {
    while (next_ < lines_.size()) {
      Line line = NextLine();
      if (line.empty()) continue;
      if (line.Take("let")) {
        if (!chains_.empty()) line.Fail("let after a chain");
        ReadNamed(Named::Kind::Literal, line, names_, &used_);
      } else if (line.Take("chain")) {
        ReadChain(line);
      } else if (line.Take("stage")) {
        ReadStage(line);
      } else {
        ReadPart(line, Body(line));
      }
    }
    return std::move(chains_);
  }

  const Names& names() const { return names_; }
  const std::set<std::string>& used() const { return used_; }
  std::vector<Family> Families(Line& line) { return ReadFamilies(line); }

 private:
  Line NextLine() {
    const std::string_view source = lines_[next_++];
    return Line(source, next_);
  }

  // Every placeholder that some line names, so that one used where it is not
  // in force is told from a tag.
  void CollectPlaceholders() {
    elsewhere_ = {"n", "m"};
    for (const std::string_view line : lines_) {
      const std::size_t opening = line.find("for <");
      if (opening == std::string_view::npos || line.starts_with('#')) continue;
      const std::string_view rest = line.substr(std::max(opening, line.rfind("⟩") + 1));
      for (std::size_t at = rest.find('<'); at != std::string_view::npos; at = rest.find('<', at + 1)) {
        const std::size_t end = rest.find('>', at);
        const std::string name(rest.substr(at + 1, end == std::string_view::npos ? 0 : end - at - 1));
        if (IsName(name)) elsewhere_.insert(name);
      }
    }
  }

  void ReadChain(Line& line) {
    ChainSource chain;
    chain.name = Name(line, "chain without a name");
    chain.scan_namespace = default_namespace_;
    if (const auto mode = TakeMode(line)) chain.mode = *mode;
    if (line.Take("namespace")) chain.scan_namespace = Name(line, "namespace without a name");
    if (line.Take("state")) chain.state = Name(line, "state without a type");
    line.End();
    for (const ChainSource& other : chains_) {
      if (other.name == chain.name) line.Fail("duplicate chain: " + chain.name);
    }
    chains_.push_back(std::move(chain));
  }

  void ReadStage(Line& line) {
    if (chains_.empty()) line.Fail("stage outside a chain");
    StageSource stage;
    stage.name = Name(line, "stage without a name");
    stage.purpose = line.Expect(Word::Kind::Quoted, "stage without its sentence");
    line.End();
    for (const StageSource& other : chains_.back().stages) {
      if (other.name == stage.name) line.Fail("duplicate stage: " + stage.name);
    }
    chains_.back().stages.push_back(std::move(stage));
  }

  std::vector<Node>& Body(const Line& line) {
    if (chains_.empty() || chains_.back().stages.empty()) line.Fail("part outside a stage");
    return chains_.back().stages.back().body;
  }

  void ReadPart(Line& line, std::vector<Node>& body) {
    Node node;
    node.line = line.number();
    if (line.Take("when")) {
      node.kind = Node::Kind::When;
      ReadConditions(line, node);
      ReadBlock("when", node);
    } else if (line.Take("for")) {
      node.kind = Node::Kind::For;
      node.families = ReadFamilies(line);
      line.End();
      for (const Family& family : node.families) Enter(family, line);
      ReadBlock("for", node);
      for (const Family& family : node.families) in_force_.erase(family.placeholder);
    } else if (line.Take("scan")) {
      node.kind = Node::Kind::Scan;
      node.scan = Name(line, "scan without a name");
      if (chains_.back().scan_namespace.empty()) line.Fail("scan in a chain without a namespace");
      if (line.Take("reads")) node.state_use = StateUse::Reads;
      if (line.Take("changes")) node.state_use = StateUse::Changes;
      if (node.state_use != StateUse::None) {
        if (!line.Take("state")) line.Fail("a scan reads or changes state");
        if (chains_.back().state.empty()) line.Fail("scan with state in a chain without one");
      }
      line.End();
    } else if (line.NextIsLiteral()) {
      ReadRule(line, node);
    } else {
      line.End();
    }
    body.push_back(std::move(node));
  }

  void ReadBlock(const char* opened_by, Node& node) {
    while (next_ < lines_.size()) {
      Line line = NextLine();
      if (line.empty()) continue;
      if (line.Take("end")) {
        line.End();
        return;
      }
      if (line.Take("stage") || line.Take("chain")) break;
      ReadPart(line, node.body);
    }
    throw Malformed(node.line, std::string(opened_by) + " without an end");
  }

  void ReadConditions(Line& line, Node& node) {
    do {
      Asked asked;
      if (line.Take("shorter")) {
        if (!line.Take("than")) line.Fail("shorter without than");
        asked.kind = Asked::Kind::ShorterThan;
        asked.units =
            static_cast<std::uint32_t>(Number(line.Expect(Word::Kind::Plain, "shorter than what"), line));
      } else {
        if (line.Take("not")) asked.kind = Asked::Kind::HoldsNot;
        const std::string& find = line.Expect(Word::Kind::Delimited, "guard without a find");
        asked.find = Resolve(find, line);
        if (find.empty()) line.Fail("guard without a find");
        asked.mode = TakeMode(line).value_or(chains_.back().mode);
      }
      node.conditions.push_back(std::move(asked));
    } while (line.Take("and"));
    line.End();
  }

  void ReadRule(Line& line, Node& node) {
    const std::string find = line.Expect(Word::Kind::Delimited, "rule without a find");
    if (find.empty()) line.Fail("empty find");
    if (!line.Take("->")) line.Fail("rule without an arrow");
    const std::string with = line.Expect(Word::Kind::Delimited, "rule without a replacement");
    node.mode = chains_.back().mode;
    while (!line.done() && !line.Take("for")) {
      if (const auto mode = TakeMode(line)) {
        node.mode = *mode;
      } else if (line.Take("first")) {
        node.limit = Number(line.Expect(Word::Kind::Plain, "first how many"), line);
        if (node.limit == 0) line.Fail("first 0 replaces nothing");
      } else {
        line.End();
      }
      if (line.done()) break;
    }
    ReadOwnFamilies(line, node, find, with);
  }

  // The families after a rule's "for", if there are any, and its literals.
  void ReadOwnFamilies(Line& line, Node& node, const std::string& find, const std::string& with) {
    if (!line.done()) node.families = ReadFamilies(line);
    line.End();
    for (const Family& family : node.families) {
      Enter(family, line);
      const std::string written = "<" + family.placeholder + ">";
      if (find.find(written) == std::string::npos && with.find(written) == std::string::npos) {
        line.Fail("unknown placeholder, no literal uses it: " + family.placeholder);
      }
    }
    node.find = Resolve(find, line);
    node.with = Resolve(with, line);
    for (const Family& family : node.families) in_force_.erase(family.placeholder);
  }

  std::vector<Family> ReadFamilies(Line& line) {
    std::vector<Family> families;
    do {
      Family family;
      const std::string word = line.Expect(Word::Kind::Plain, "for without a placeholder");
      if (word.size() < 3 || word.front() != '<' || word.back() != '>' ||
          !IsName(word.substr(1, word.size() - 2))) {
        line.Fail("not a placeholder: " + word);
      }
      family.placeholder = word.substr(1, word.size() - 2);
      if (line.Take("in")) {
        while (!line.done() && !line.NextIsComma()) {
          const Word& value = line.Next();
          family.values.push_back(value.kind == Word::Kind::Delimited ? Fill(Resolve(value.text, line), {})
                                                                      : FromUtf8(value.text));
        }
        if (family.values.empty()) line.Fail("list without values");
      } else {
        ReadRange(line, family);
      }
      families.push_back(std::move(family));
    } while (line.TakeComma());
    return families;
  }

  static void ReadRange(Line& line, Family& family) {
    const std::int32_t from = Number(line.Expect(Word::Kind::Plain, "range without a start"), line);
    const bool falls = line.Take("down");
    if (!line.Take("to") || line.done()) line.Fail("range without end");
    const std::int32_t to = Number(line.Expect(Word::Kind::Plain, "range without end"), line);
    if (falls ? to > from : to < from) line.Fail("range that runs the other way");
    for (std::int32_t value = from; value != to; value += falls ? -1 : 1) {
      family.values.push_back(Digits(value));
    }
    family.values.push_back(Digits(to));
  }

  void Enter(const Family& family, const Line& line) {
    if (!in_force_.insert(family.placeholder).second) {
      line.Fail("placeholder named twice: " + family.placeholder);
    }
  }

  Literal Resolve(const std::string& source, const Line& line) {
    return ReadLiteral(source, line.number(), {names_, in_force_, elsewhere_, &used_});
  }

  std::vector<std::string_view> lines_;
  std::size_t next_ = 0;
  Names names_;
  std::set<std::string> used_;
  std::string default_namespace_;
  std::set<std::string> elsewhere_;
  std::set<std::string> in_force_;
  std::vector<ChainSource> chains_;
};

}  // namespace

Names ReadSentinels(std::string_view source, std::set<std::string>* used) {
  Names names;
  std::size_t number = 0;
  for (const std::string_view text : SplitLines(source)) {
    Line line(text, ++number);
    if (line.empty()) continue;
    const bool is_literal = line.Take("let");
    if (!is_literal && !line.Take("sentinel")) line.End();
    ReadNamed(is_literal ? Named::Kind::Literal : Named::Kind::Sentinel, line, names, used);
  }
  return names;
}

std::vector<ChainSource> ReadRules(std::string_view source, const Names& shared,
                                   const std::string& default_namespace, std::set<std::string>* used) {
  Reader reader(source, shared, default_namespace);
  std::vector<ChainSource> chains = reader.Read();
  CheckAllUsed({reader.names().begin() + static_cast<std::ptrdiff_t>(shared.size()), reader.names().end()},
               reader.used());
  if (used != nullptr) used->insert(reader.used().begin(), reader.used().end());
  return chains;
}

void CheckAllUsed(const Names& shared, const std::set<std::string>& used) {
  for (const Named& named : shared) {
    if (named.kind == Named::Kind::Literal && !used.contains(named.name)) {
      throw Malformed(named.line, "unused name: " + named.name);
    }
  }
}

std::vector<Family> ReadFamilies(Line& line, const Names& names) {
  return Reader("", names, "").Families(line);
}

}  // namespace quillary::rulec
