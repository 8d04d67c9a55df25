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

// The hashes of all find texts, one after the other.
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

// The state in the type in which a scan takes it.
std::string StateType(const FlatChain& chain, StateUse use) {
  return use == StateUse::Reads ? "const " + chain.state : chain.state;
}

// What the engine calls for a scan: the scan itself, with the state in its type.
std::string Call(const FlatChain& chain, const FlatPart& part) {
  const std::string name = chain.scan_namespace + "::" + part.scan;
  if (part.state_use == StateUse::None) return "[](Rewriting& text, void*) { " + name + "(text); }";
  return "[](Rewriting& text, void* state) { " + name + "(text, *static_cast<" +
         StateType(chain, part.state_use) + "*>(state)); }";
}

std::string ChainType(const FlatChain& chain) {
  return chain.state.empty() ? "Chain" : "ChainWith<" + chain.state + ">";
}

void EmitParts(const FlatChain& chain, std::ostream& out) {
  for (const FlatPart& part : chain.parts) {
    switch (part.kind) {
      case FlatPart::Kind::Rules:
        out << "    {Part::Kind::Rules, " << part.first << ", " << part.count << ", 0, " << Hash(part.gram)
            << ", nullptr, nullptr},\n";
        break;
      case FlatPart::Kind::Guard:
        out << "    {Part::Kind::Guard, " << part.first << ", " << part.count << ", " << part.skip
            << ", 0, nullptr, nullptr},\n";
        break;
      case FlatPart::Kind::Scan:
        out << "    {Part::Kind::Scan, 0, 0, 0, 0, " << Call(chain, part) << ", \"" << part.scan << "\"},\n";
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
  std::ostringstream parts;
  EmitParts(chain, parts);
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
  EmitArray("Part", chain.name + "_parts", parts.str(), out);
  EmitArray("Stage", chain.name + "_stage_table", stages.str(), out);
  out << "}  // namespace\n";
  const auto table = [&](const char* suffix, bool any) { return any ? chain.name + suffix : "{}"; };
  const bool with_state = !chain.state.empty();
  out << "constexpr " << ChainType(chain) << " " << chain.name << (with_state ? " = {{\"" : " = {\"")
      << chain.name << "\", " << Narrow(name) << ", " << (with_state ? "\"" + chain.state + "\"" : "nullptr")
      << ", " << table("_stage_table", !chain.stages.empty()) << ", " << table("_parts", !chain.parts.empty())
      << ", " << table("_rules", !chain.rules.empty()) << ", "
      << table("_conditions", !chain.conditions.empty()) << ", " << table("_grams", !grams.rows().empty())
      << ", " << table("_first_grams", !chain.rules.empty()) << (with_state ? "}};\n\n" : "};\n\n");
}

// The state types that the chains name.
void DeclareStates(const std::vector<FlatChain>& chains, std::ostream& out) {
  std::set<std::string> states;
  for (const FlatChain& chain : chains) {
    if (!chain.state.empty() && states.insert(chain.state).second) {
      out << "namespace quillary {\nstruct " << chain.state << ";\n}\n";
    }
  }
}

}  // namespace

std::string EmitTables(const std::vector<FlatChain>& chains, const std::string& name) {
  std::ostringstream out;
  const std::string header = name.starts_with("src/") ? name.substr(4) : name;
  out << made_by << "#include \"" << header << ".h\"\n\n";
  std::set<std::string> scans;
  for (const FlatChain& chain : chains) {
    for (const FlatPart& part : chain.parts) {
      if (part.kind != FlatPart::Kind::Scan) continue;
      const bool with_state = part.state_use != StateUse::None;
      const std::string state = with_state ? ", " + StateType(chain, part.state_use) + "& state" : "";
      scans.insert("namespace quillary::" + chain.scan_namespace + " {\nvoid " + part.scan +
                   "(rules::Rewriting& text" + state + ");\n}\n");
    }
  }
  for (const std::string& scan : scans) out << scan;
  out << "namespace quillary::chains {\nusing namespace rules;\n";
  for (const FlatChain& chain : chains) EmitChain(chain, name, out);
  out << "}  // namespace quillary::chains\n";
  return out.str();
}

std::string EmitHeader(const std::vector<FlatChain>& chains, const std::string& name) {
  std::ostringstream out;
  out << made_by << "// " << name << "\n#pragma once\n\n#include \"rules/run.h\"\n\n";
  DeclareStates(chains, out);
  out << "namespace quillary::chains {\n";
  for (const FlatChain& chain : chains) {
    out << "\nextern const rules::" << ChainType(chain) << " " << chain.name << ";\nnamespace " << chain.name
        << "_stages {\n";
    for (std::size_t i = 0; i < chain.stages.size(); ++i) {
      out << "/// " << chain.stages[i].purpose << "\ninline constexpr int " << chain.stages[i].name << " = "
          << i + 1 << ";\n";
    }
    out << "}  // namespace " << chain.name << "_stages\n";
  }
  out << "\n}  // namespace quillary::chains\n";
  return out.str();
}

std::string EmitSentinels(const Names& names) {
  std::ostringstream out;
  out << made_by << "#pragma once\n\n#include \"text/text.h\"\n\nnamespace quillary::sentinels {\n\n";
  for (const Named& sentinel : names) {
    if (sentinel.kind != Named::Kind::Sentinel) continue;
    out << "/// " << sentinel.meaning << "\ninline constexpr TextView " << sentinel.name << " = "
        << Quoted(sentinel.text) << ";\n";
  }
  out << "\n}  // namespace quillary::sentinels\n";
  return out.str();
}

}  // namespace quillary::rulec
