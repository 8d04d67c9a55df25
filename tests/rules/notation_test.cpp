// What is written as rules reads as the same rules, and the layout of rule files
// changes nothing but the layout.
#include "rules/notation.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

#include "component/all_chains.h"
#include "layout.h"
#include "literal.h"
#include "rules/chain_reference.h"
#include "rules/listing.h"

namespace quillary {
namespace {

// What stands between ⟨ and ⟩, as a rule file reads it.
Text Read(const Text& written) {
  const std::string inside = ToUtf8(TextView(written).substr(1, written.size() - 2));
  return rulec::Fill(rulec::ReadLiteral(inside, 1, {{}, {}, {"n", "m"}}), {});
}

TEST(Notation, SpellsLiterals) {
  const std::vector<std::pair<Text, Text>> cases = {
      {u"a b\r\n\r\n\n\r", u"⟨a␣b⏎⏎␊␍⟩"},
      {u"", u"⟨⟩"},
      {u"\u00A0\u00AD\uFEFF\t\uE000\u0081", u"⟨\\u{A0}\\u{AD}\\u{FEFF}\\u{9}\\u{E000}\\u{81}⟩"},
      // Words of a document; the last two would be read as something else.
      {u"\\u9679?\\u{}\\u{x}\\u{41 ‹ ‹a b› <b>", u"⟨\\u9679?\\u{}\\u{x}\\u{41␣‹␣‹a␣b›␣<b>⟩"},
      {u"\\u{41}\\u\\u{E9}", u"⟨\\u{5C}u{41}\\u\\u{5C}u{E9}⟩"},
      {u"‹bullet›<n>", u"⟨\\u{2039}bullet›\\u{3C}n>⟩"},
      {u"⟨␣⟩", u"⟨\\u{27E8}\\u{2423}\\u{27E9}⟩"},
      {u"\xD83D\xDE00\xD83D", u"⟨\xD83D\xDE00\\u{D83D}⟩"},
  };
  for (const auto& [text, written] : cases) {
    EXPECT_EQ(rules::Written(text), written);
    EXPECT_EQ(Read(written), text) << ToUtf8(written);
  }
  EXPECT_EQ(Read(u"⟨\\u{1F600}\\u{0a0}\\u{20}x⟩"), u"\xD83D\xDE00\u00A0 x");
}

TEST(Notation, SpellsAnyLiteralSoThatItReadsAsItself) {
  const Text alphabet = u"\\\\uu{{}4A<nnm>‹a›⟨⟩␣⏎␍␊\r\n\t  \u00A0\u200B\xD83D\xDE00é#\"";
  std::mt19937 random(3);
  for (int round = 0; round < 20000; ++round) {
    Text text;
    while (text.size() < 8) text += alphabet[random() % alphabet.size()];
    const Text written = rules::Written(text);
    ASSERT_EQ(Read(written), text) << ToUtf8(written);
    // A line takes it as one literal.
    ASSERT_EQ(rulec::LaidOut(ToUtf8(written)), "  " + ToUtf8(written) + "\n");
  }
}

struct Row {
  int stage = 0;
  Text guard;
  Text rule;
  Text find;
  Text with;
  bool operator==(const Row&) const = default;
};

std::vector<Row> RowsOf(const rules::Chain& chain) {
  std::vector<Row> rows;
  for (const rules::RuleRow& row : rules::ListRules(chain)) {
    rows.push_back(
        {row.stage, row.guard, rules::Written(*row.rule), Text(row.rule->find), Text(row.rule->with)});
  }
  return rows;
}

TEST(Notation, EveryRuleOfTheProgramReadsAsItself) {
  for (const rules::Chain* chain : component::AllChains()) {
    const std::vector<Row> rows = RowsOf(*chain);
    std::string source = "chain Again binary\n";
    int stage = 0;
    for (const Row& row : rows) {
      for (; stage < row.stage; ++stage) source += "stage s" + std::to_string(stage) + " \"\"\n";
      const std::string rule = ToUtf8(row.rule) + "\n";
      source += row.guard.empty() ? rule : "when " + ToUtf8(row.guard) + "\n" + rule + "end\n";
    }
    const MadeChain again(source);
    ASSERT_EQ(RowsOf(again.chain()), rows) << chain->name;
  }
}

TEST(Notation, SpellsRulesAndConditions) {
  const MadeChain made(
      "chain A binary\nstage s \"\"\nwhen not ⟨x⟩ ignore-case and shorter than 5\n⟨a␣⏎␍⟩ -> ⟨⟩ first 2\n"
      "when ⟨y⟩\n⟨b␊\\u{A0}⟩ -> ⟨c⟩ ignore-case\nend\nend\n⟨d⟩ -> ⟨e⟩\n");
  const std::vector<Row> rows = RowsOf(made.chain());
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(ToUtf8(rows[0].guard), "not ⟨x⟩ ignore-case and shorter than 5");
  EXPECT_EQ(ToUtf8(rows[0].rule), "⟨a␣⏎␍⟩ -> ⟨⟩ binary first 2");
  EXPECT_EQ(ToUtf8(rows[1].guard), "not ⟨x⟩ ignore-case and shorter than 5 and ⟨y⟩ binary");
  EXPECT_EQ(ToUtf8(rows[1].rule), "⟨b␊\\u{A0}⟩ -> ⟨c⟩ ignore-case");
  EXPECT_EQ(rows[2].guard, u"");
  EXPECT_EQ(ToUtf8(rows[2].rule), "⟨d⟩ -> ⟨e⟩ binary");
}

std::string Deformed(const std::string& source) {
  std::string deformed = "\n";
  for (std::size_t at = 0; at < source.size(); ++at) {
    const std::size_t end = source.find('\n', at);
    std::string line = source.substr(at, end - at);
    line.erase(0, line.find_first_not_of(' '));
    if (!line.starts_with('#')) {
      for (const std::string bracket : {"⟨", "⟩"}) {
        for (std::size_t i = line.find(bracket); i != std::string::npos;
             i = line.find(bracket, i + bracket.size() + 2)) {
          line.insert(bracket == "⟨" ? i : i + bracket.size(), " \t");
        }
      }
    }
    deformed += "\t " + line + (line.empty() ? "\n\n" : "  \r\n");
    at = end;
  }
  return deformed + "\n";
}

TEST(Layout, OfEveryRuleFileIsFoundAgain) {
  int files = 0;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(QUILLARY_SOURCE_DIR)) {
    if (entry.path().extension() != ".rules") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    const std::string source{std::istreambuf_iterator<char>(in), {}};
    EXPECT_EQ(rulec::LaidOut(source), source) << entry.path();
    EXPECT_EQ(rulec::LaidOut(Deformed(source)), source) << entry.path();
    ++files;
  }
  EXPECT_GT(files, 20);
}

TEST(Layout, IndentsCommentsAsTheLineBelowThem) {
  EXPECT_EQ(
      rulec::LaidOut("#a\nchain A\n#b\nstage s  \"S  s.\"\n#c\n⟨a⟩->⟨b  # c⟩ for <n> 1 to 2 , <m> in x\n"
                     "when ⟨x⟩\n#d\n\n\n#e\nfor <n> in 1\nscan X\n#f\nend\nend\n#g"),
      "#a\nchain A\n#b\nstage s \"S  s.\"\n  #c\n  ⟨a⟩ -> ⟨b  # c⟩ for <n> 1 to 2, <m> in x\n"
      "  when ⟨x⟩\n    #d\n\n    #e\n    for <n> in 1\n      scan X\n      #f\n    end\n  end\n#g\n");
  EXPECT_THROW(rulec::LaidOut("⟨a"), rulec::Malformed);
}

}  // namespace
}  // namespace quillary
