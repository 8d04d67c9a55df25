// Runs the case files that stand beside the rule files, and holds every rule to
// account: a case fires it and notices when it changes, or the case file says
// why none can.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <optional>
#include <set>

#include "component/all_chains.h"
#include "rules/case_file.h"
#include "rules/case_proof.h"
#include "rules/case_verdicts.h"
#include "rules/listing.h"
#include "rules/notation.h"

namespace quillary {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

const rulec::Names& Known() {
  static const rulec::Names known =
      rulec::ReadSentinels(ReadFile(QUILLARY_SOURCE_DIR "/src/rules/sentinels.rules"));
  return known;
}

// Without their ending, "src/links/foo".
std::vector<std::string> CaseFiles() {
  std::vector<std::string> files;
  for (const auto& entry : fs::recursive_directory_iterator(QUILLARY_SOURCE_DIR "/src")) {
    fs::path path = entry.path();
    if (path.extension() == ".cases") {
      files.push_back(fs::relative(path.replace_extension(), QUILLARY_SOURCE_DIR).generic_string());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

void FailAt(const std::string& file, std::size_t line, const std::string& cause) {
  ADD_FAILURE_AT((file + ".cases").c_str(), static_cast<int>(line)) << cause;
}

CaseFile CasesOf(const std::string& file) {
  try {
    return ReadCases(ReadFile(fs::path(QUILLARY_SOURCE_DIR) / (file + ".cases")), Known());
  } catch (const rulec::Malformed& malformed) {
    FailAt(file, malformed.line(), malformed.what());
    return {};
  }
}

std::vector<rules::RuleRow> RulesOf(const std::string& file) {
  std::vector<rules::RuleRow> rows;
  for (const rules::Chain* chain : component::AllChains()) {
    if (chain->file != file + ".rules") continue;
    for (rules::RuleRow& row : rules::ListRules(*chain)) rows.push_back(std::move(row));
  }
  return rows;
}

const rules::Stage& StageOf(const rules::RuleRow& row) {
  return row.chain->stages[static_cast<std::size_t>(row.stage) - 1];
}

std::string Described(const rules::RuleRow& row) {
  return rules::Where(*row.chain, *row.rule) + ": " + row.chain->name + "/" + StageOf(row).name + " " +
         ToUtf8(rules::Written(row.rule->find)) + " -> " + ToUtf8(rules::Written(row.rule->with)) +
         (row.rule->mode == Compare::Binary ? " binary" : " ignore-case") +
         (row.guard.empty() ? "" : "\n    when " + ToUtf8(row.guard)) + "\n";
}

// Texts that should fire the rule or show its compare mode: its find text, in
// the other case too, and with what the guards of the stage ask for.
std::vector<Text> Probes(const rules::RuleRow& row) {
  const Text find(row.rule->find);
  std::vector<Text> probes = {find, CaseToggled(find, Known())};
  Text wanted;
  for (const rules::Part& part : row.chain->parts.subspan(StageOf(row).first, StageOf(row).count)) {
    if (part.kind != rules::Part::Kind::Guard) continue;
    for (const rules::Condition& condition : row.chain->conditions.subspan(part.first, part.count)) {
      if (condition.kind == rules::Condition::Kind::Holds) wanted.append(u" ").append(condition.find);
    }
  }
  if (!wanted.empty()) probes.insert(probes.end(), {probes[0] + wanted, probes[1] + wanted});
  return probes;
}

// A probe that fires the rule, or none and the lines of the rules that take the
// find text instead.
struct Probed {
  std::optional<Text> by;
  std::string taken_by;
};

Probed Probe(const rules::RuleRow& row) {
  Probed probed;
  for (const Text& probe : Probes(row)) {
    const Fired fired = RanOver({{row.chain->name, StageOf(row).name}}, probe).fired;
    if (fired.contains(row.rule)) return {probe, ""};
    if (!probed.taken_by.empty()) continue;
    for (const rules::Rule* other : fired) probed.taken_by += " " + std::to_string(other->line);
  }
  return probed;
}

// What helps to write a case for a rule whose find text alone is not enough.
std::string Hint(const rules::RuleRow& row) {
  const Probed probed = Probe(row);
  if (!probed.by) {
    return "    not over its find text alone" +
           (probed.taken_by.empty() ? "" : ", where these lines fire:" + probed.taken_by) + "\n";
  }
  return *probed.by == row.rule->find ? "" : "    but over " + Spelled(*probed.by) + "\n";
}

// A text over which the chain alone gives another result once the rule has changed.
std::optional<Text> Telling(const rules::RuleRow& row, Change change) {
  const ChangedChain changed(*row.chain, *row.rule, change);
  for (const Text& probe : Probes(row)) {
    const std::vector<CaseTarget> whole = {{row.chain->name, ""}};
    if (RanOver(whole, probe).text != RanOver(whole, probe, &changed.chain()).text) return probe;
  }
  return std::nullopt;
}

// What is wrong with what a line says of a rule, or nothing.
using Objection = std::function<std::string(const rules::RuleRow&)>;

// The rules that the list names and the cases do not prove; reports rows of it
// that say nothing or something wrong.
Fired CheckListed(const std::string& file, const std::vector<NamedRules>& list, const Fired& proven,
                  const std::string& refuted, const Objection& objection) {
  const std::vector<rules::RuleRow> rows = RulesOf(file);
  Fired listed;
  for (const NamedRules& entry : list) {
    const auto fail = [&](const std::string& cause) {
      FailAt(file, entry.line,
             cause + ": " + entry.target.chain + "/" + entry.target.stage + " " +
                 ToUtf8(rules::Written(entry.find)));
    };
    bool named = false;
    bool needed = false;
    for (const rules::RuleRow& row : rows) {
      if (row.chain->name != entry.target.chain || StageOf(row).name != entry.target.stage ||
          row.rule->find != entry.find) {
        continue;
      }
      named = true;
      if (proven.contains(row.rule)) continue;
      needed = true;
      if (!listed.insert(row.rule).second) fail("listed twice");
      if (const std::string wrong = objection(row); !wrong.empty()) fail(wrong);
    }
    if (!named) fail("no rule of that stage has this find text");
    if (named && !needed) fail(refuted);
  }
  return listed;
}

std::string Refusal(const std::string& source) {
  try {
    ReadCases(source, Known());
  } catch (const rulec::Malformed& malformed) {
    return std::to_string(malformed.line()) + ": " + malformed.what();
  }
  return "accepted";
}

TEST(CaseFiles, AreRefusedWhereTheyPromiseNothing) {
  EXPECT_EQ(Refusal("from ⟨a⟩"), "1: a line outside a case");
  EXPECT_EQ(Refusal("case A \"x\"\n⟨a⟩"), "2: a literal that belongs to nothing");
  EXPECT_EQ(Refusal("case A \"x\"\n  from ⟨a⟩\ncase B \"y\""), "1: from and to go together");
  EXPECT_EQ(Refusal("case A \"x\"\n"), "1: case without a text");
  EXPECT_EQ(Refusal("case A \"x\"\n  keeps ⟨a⟩\n  any-case"), "1: any-case without from");
  EXPECT_EQ(Refusal("case A \"x\"\n  keep ⟨a⟩"), "2: unknown word: keep");
  EXPECT_EQ(Refusal("unreachable A ⟨a⟩ \"x\""), "1: unreachable without a stage");
  EXPECT_EQ(Refusal("unreachable A/b ⟨a⟩ \"\""), "1: an empty reason");
  EXPECT_EQ(Refusal("same A/b ⟨a⟩ \"x\""), "1: same without what is done to the rule");
}

TEST(CaseFiles, JoinLiteralsAndWriteFamiliesOut) {
  const CaseFile file = ReadCases(
      "case A, B/c \"x\"\n  for <n> 1 to 2\n  from ⟨a<n>⟩ ⟨␣⟩\n       ⟨‹bullet›<b>⟩\n  to ⟨⟩\n", Known());
  ASSERT_EQ(file.changes.size(), 2U);
  EXPECT_EQ(file.changes[0].targets[1].stage, "c");
  EXPECT_EQ(file.changes[1].from, u"a2 iåçë|æ¢¦l6¢i±ÍÉ|Ü<b>");
  EXPECT_EQ(CaseToggled(file.changes[1].from, Known()), u"A2 iåçë|æ¢¦l6¢i±ÍÉ|Ü<B>");
}

std::string NameOf(const testing::TestParamInfo<std::string>& file) {
  return fs::path(file.param).filename().string();
}

class Cases : public testing::TestWithParam<std::string> {};

TEST_P(Cases, GiveWhatTheyPromise) {
  const CaseFile file = CasesOf(GetParam());
  for (const std::vector<RuleCase>* list : {&file.changes, &file.keeps}) {
    for (const RuleCase& one : *list) {
      const Verdict verdict = Judge(one);
      if (!verdict.failure.empty()) FailAt(GetParam(), verdict.line, verdict.failure);
    }
  }
}

class Coverage : public testing::TestWithParam<std::string> {};

TEST_P(Coverage, EveryRuleFires) {
  const CaseFile file = CasesOf(GetParam());
  if (HasFailure()) return;
  const std::vector<rules::RuleRow> rows = RulesOf(GetParam());
  ASSERT_FALSE(rows.empty()) << GetParam() << ".cases stands beside no rule file";
  Fired fired;
  for (const RuleCase& one : file.changes) fired.merge(Judge(one).fired);
  const Fired listed = CheckListed(
      GetParam(), file.unreachable, fired, "not unreachable, a case fires it", [](const auto& row) {
        const Probed probed = Probe(row);
        return probed.by ? "not unreachable, the stage alone fires it over " + Spelled(*probed.by) : "";
      });
  std::string missed;
  for (const rules::RuleRow& row : rows) {
    if (!fired.contains(row.rule) && !listed.contains(row.rule)) missed += Described(row) + Hint(row);
  }
  EXPECT_TRUE(missed.empty()) << "no case fires\n" << missed;
}

class Proof : public testing::TestWithParam<std::string> {};

// A rule that no case fires is Coverage's.
TEST_P(Proof, EveryRuleIsMissed) {
  CaseFile file = CasesOf(GetParam());
  if (HasFailure()) return;
  const HeldCases cases(file);
  for (const auto& [change, word] : kAllChanges) {
    const std::string what(word);
    std::vector<rules::RuleRow> unnoticed;
    Fired proven;
    for (const rules::RuleRow& row : RulesOf(GetParam())) {
      const bool asked = cases.Fires(*row.rule) && CanChange(*row.rule, change, Known());
      if (!asked || cases.Notices(*row.chain, *row.rule, change)) {
        proven.insert(row.rule);
      } else {
        unnoticed.push_back(row);
      }
    }
    const Fired listed =
        CheckListed(GetParam(), file.same[change], proven,
                    "not the same " + what + ": a case fails, or none fires the rule",
                    [&, change = change](const rules::RuleRow& row) {
                      const auto probe = Telling(row, change);
                      return probe ? "not the same " + what + " over " + Spelled(*probe) : std::string();
                    });
    std::string missing;
    for (const rules::RuleRow& row : unnoticed) {
      if (listed.contains(row.rule)) continue;
      const auto probe = Telling(row, change);
      missing += Described(row) + (probe ? "    but over " + Spelled(*probe) + "\n" : "");
    }
    EXPECT_TRUE(missing.empty()) << "no case fails with the rule " << what << "\n" << missing;
  }
}

INSTANTIATE_TEST_SUITE_P(Rules, Cases, testing::ValuesIn(CaseFiles()), NameOf);
INSTANTIATE_TEST_SUITE_P(Rules, Coverage, testing::ValuesIn(CaseFiles()), NameOf);
INSTANTIATE_TEST_SUITE_P(Rules, Proof, testing::ValuesIn(CaseFiles()), NameOf);

// A rule file without cases, or a chain that no part of a conversion names.
TEST(RuleFiles, HaveCasesAndRunInTheirSteps) {
  std::set<std::string> running;
  for (const rules::Chain* chain : component::AllChains()) running.insert(chain->name);
  const std::vector<std::string> with_cases = CaseFiles();
  for (const auto& entry : fs::recursive_directory_iterator(QUILLARY_SOURCE_DIR "/src")) {
    fs::path path = entry.path();
    if (path.extension() != ".rules" || path.stem() == "sentinels") continue;
    for (const rulec::ChainSource& chain : rulec::ReadRules(ReadFile(path), Known(), "any")) {
      EXPECT_TRUE(running.contains(chain.name)) << path << ": no part runs " << chain.name;
    }
    const std::string name = fs::relative(path.replace_extension(), QUILLARY_SOURCE_DIR).generic_string();
    EXPECT_TRUE(std::ranges::count(with_cases, name)) << name << ".cases is missing";
  }
}

}  // namespace
}  // namespace quillary
