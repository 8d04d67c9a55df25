#include "emit.h"

#include <set>
#include <sstream>

#include "grams.h"

namespace quillary::rulec {
namespace {

const char* const made_by = "// Made by rulec; change the rule file instead.\n";

std::string Quoted(TextView text) {
  std::string out = "u\"";
  for (const char16_t unit : text) {
    static const char digits[] = "0123456789abcdef";
    if (unit == u'"' || unit == u'\\') {
      out += '\\';
      out += static_cast<char>(unit);
    } else if (unit == u'?') {
      out += "\\?";  // no trigraphs
    } else if (unit >= 0x20 && unit < 0x7F) {
      out += static_cast<char>(unit);
    } else if (unit < 0x80) {
      out += '\\';
      for (const int shift : {6, 3, 0}) out += digits[unit >> shift & 7];
    } else {
      out += "\\u";
      for (const int shift : {12, 8, 4, 0}) out += digits[unit >> shift & 0xF];
    }
  }
  return out + "\"";
}

std::string View(TextView text) {
  if (text.empty()) return "{}";
  return "{" + Quoted(text) + ", " + std::to_string(text.size()) + "}";
}

std::string Narrow(const std::string& text) {
  std::string out = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') out += '\\';
    out += c;
  }
  return out + "\"";
}

const char* ModeName(Compare mode) {
  return mode == Compare::Binary ? "Compare::Binary" : "Compare::IgnoreCase";
}

const char* KindName(Asked::Kind kind) {
  switch (kind) {
    case Asked::Kind::HoldsNot:
      return "Condition::Kind::HoldsNot";
    case Asked::Kind::ShorterThan:
      return "Condition::Kind::ShorterThan";
    case Asked::Kind::Holds:
      break;
  }
  return "Condition::Kind::Holds";
}

std::string Hash(std::uint32_t hash) {
  std::ostringstream out;
  out << hash << 'U';
  return out.str();
}

// The hashes of all find texts, one behind the other.
class GramTable {
 public:
  /// The two fields of a rule or a condition.
  std::string Fields(TextView find) {
    const std::vector<std::uint32_t> hashes = TellingGrams(find);
    std::string fields = std::to_string(count_) + ", " + std::to_string(hashes.size());
    for (const std::uint32_t hash : hashes) rows_ += "    " + Hash(hash) + ",\n";
    count_ += hashes.size();
    return fields;
  }
  const std::string& rows() const { return rows_; }

 private:
  std::string rows_;
  std::size_t count_ = 0;
};

void EmitSteps(const FlatChain& chain, std::ostream& out) {
  for (const FlatStep& step : chain.steps) {
    switch (step.kind) {
      case FlatStep::Kind::Rules:
        out << "    {Step::Kind::Rules, " << step.first << ", " << step.count << ", 0, " << Hash(step.gram)
            << ", nullptr, nullptr},\n";
        break;
      case FlatStep::Kind::Guard:
        out << "    {Step::Kind::Guard, " << step.first << ", " << step.count << ", " << step.skip
            << ", 0, nullptr, nullptr},\n";
        break;
      case FlatStep::Kind::Scan:
        out << "    {Step::Kind::Scan, 0, 0, 0, 0, " << chain.scan_namespace << "::" << step.scan << ", \""
            << step.scan << "\"},\n";
        break;
    }
  }
}

// An array of what `rows` writes, or nothing when there is none: C++ has no
// empty arrays.
void EmitArray(const std::string& type, const std::string& name, const std::string& rows, std::ostream& out) {
  if (!rows.empty()) out << "constexpr " << type << " " << name << "[] = {\n" << rows << "};\n";
}

void EmitChain(const FlatChain& chain, const std::string& name, std::ostream& out) {
  GramTable grams;
  std::ostringstream first_grams;
  std::ostringstream rules;
  for (const FlatRule& rule : chain.rules) {
    rules << "    {" << View(rule.find) << ", " << View(rule.with) << ", " << ModeName(rule.mode) << ", "
          << rule.limit << ", " << rule.line << ", " << grams.Fields(rule.find) << "},\n";
    const std::vector<std::uint32_t> hashes = TellingGrams(rule.find);
    first_grams << "    " << Hash(hashes.empty() ? 0 : hashes[0]) << ",\n";
  }
  std::ostringstream conditions;
  for (const FlatCondition& condition : chain.conditions) {
    conditions << "    {" << KindName(condition.kind) << ", " << View(condition.find) << ", "
               << ModeName(condition.mode) << ", " << condition.units << ", " << grams.Fields(condition.find)
               << "},\n";
  }
  std::ostringstream steps;
  EmitSteps(chain, steps);
  std::ostringstream stages;
  for (const FlatStage& stage : chain.stages) {
    stages << "    {\"" << stage.name << "\", " << Narrow(stage.purpose) << ", " << stage.first << ", "
           << stage.count << "},\n";
  }
  out << "namespace {\n";
  EmitArray("Rule", chain.name + "_rules", rules.str(), out);
  EmitArray("Condition", chain.name + "_conditions", conditions.str(), out);
  EmitArray("std::uint32_t", chain.name + "_grams", grams.rows(), out);
  EmitArray("std::uint32_t", chain.name + "_first_grams", first_grams.str(), out);
  EmitArray("Step", chain.name + "_steps", steps.str(), out);
  EmitArray("Stage", chain.name + "_stage_table", stages.str(), out);
  out << "}  // namespace\n";
  const auto table = [&](const char* suffix, bool any) { return any ? chain.name + suffix : "{}"; };
  out << "constexpr Chain " << chain.name << " = {\"" << chain.name << "\", " << Narrow(name) << ", "
      << table("_stage_table", !chain.stages.empty()) << ", " << table("_steps", !chain.steps.empty()) << ", "
      << table("_rules", !chain.rules.empty()) << ", " << table("_conditions", !chain.conditions.empty())
      << ", " << table("_grams", !grams.rows().empty()) << ", " << table("_first_grams", !chain.rules.empty())
      << "};\n\n";
}

}  // namespace

std::string EmitTables(const std::vector<FlatChain>& chains, const std::string& name) {
  std::ostringstream out;
  const std::string header = name.starts_with("src/") ? name.substr(4) : name;
  out << made_by << "#include \"" << header << ".h\"\n\n";
  std::set<std::pair<std::string, std::string>> scans;
  for (const FlatChain& chain : chains) {
    for (const FlatStep& step : chain.steps) {
      if (step.kind == FlatStep::Kind::Scan) scans.insert({chain.scan_namespace, step.scan});
    }
  }
  for (const auto& [scan_namespace, scan] : scans) {
    out << "namespace quillary::" << scan_namespace << " {\nvoid " << scan
        << "(rules::Rewriting& text);\n}\n";
  }
  out << "namespace quillary::chains {\nusing namespace rules;\n";
  for (const FlatChain& chain : chains) EmitChain(chain, name, out);
  out << "}  // namespace quillary::chains\n";
  return out.str();
}

std::string EmitHeader(const std::vector<FlatChain>& chains, const std::string& name) {
  std::ostringstream out;
  out << made_by << "// " << name
      << "\n#pragma once\n\n#include \"rules/run.h\"\n\nnamespace quillary::chains {\n";
  for (const FlatChain& chain : chains) {
    out << "\nextern const rules::Chain " << chain.name << ";\nnamespace " << chain.name << "_stages {\n";
    for (std::size_t i = 0; i < chain.stages.size(); ++i) {
      out << "/// " << chain.stages[i].purpose << "\ninline constexpr int " << chain.stages[i].name << " = "
          << i + 1 << ";\n";
    }
    out << "}  // namespace " << chain.name << "_stages\n";
  }
  out << "\n}  // namespace quillary::chains\n";
  return out.str();
}

std::string EmitSentinels(const Sentinels& sentinels) {
  std::ostringstream out;
  out << made_by << "#pragma once\n\n#include \"text/text.h\"\n\nnamespace quillary::sentinels {\n\n";
  for (const Sentinel& sentinel : sentinels) {
    out << "/// " << sentinel.meaning << "\ninline constexpr TextView " << sentinel.name << " = "
        << Quoted(sentinel.text) << ";\n";
  }
  out << "\n}  // namespace quillary::sentinels\n";
  return out.str();
}

std::string EmitRegistry(const std::vector<std::string>& chain_names) {
  std::ostringstream out;
  out << made_by << "#include \"rules/all_chains.h\"\n\nnamespace quillary::chains {\n";
  for (const std::string& chain : chain_names) out << "extern const rules::Chain " << chain << ";\n";
  out << "}  // namespace quillary::chains\n\nnamespace quillary::rules {\n\n"
      << "std::span<const Chain* const> AllChains() {\n";
  if (chain_names.empty()) {
    out << "  return {};\n";
  } else {
    out << "  static constexpr const Chain* all[] = {\n";
    for (const std::string& chain : chain_names) out << "      &chains::" << chain << ",\n";
    out << "  };\n  return all;\n";
  }
  out << "}\n\n}  // namespace quillary::rules\n";
  return out.str();
}

}  // namespace quillary::rulec
