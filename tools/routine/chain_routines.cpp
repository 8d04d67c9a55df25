// Every chain, and each of its stages, as a routine of one text; and all rules
// as JSON rows.
#include "component/all_chains.h"
#include "registry.h"
#include "rules/listing.h"
#include "rules/notation.h"
#include "rules/run.h"

namespace quillary::routine {

void AddChainRoutines(Registry& registry) {
  for (const rules::Chain* chain : component::AllChains()) {
    const auto add = [&](const std::string& name, int stage) {
      registry.Add(name, {Kind::Text}, [chain, stage](Call& call) {
        rules::Rewriting text = StartRewriting(call.apartment(), call.text(0));
        if (stage == 0) {
          rules::Run(*chain, text, &call.state());
        } else {
          rules::RunStage(*chain, stage, text, &call.state());
        }
        call.result = ToJson(text.text());
      });
    };
    add(chain->name, 0);
    for (int stage = 1; stage <= static_cast<int>(chain->stages.size()); ++stage) {
      add(std::string(chain->name) + "/" + std::to_string(stage), stage);
    }
  }
}

std::vector<Json> RuleRows() {
  std::vector<Json> rows;
  for (const rules::Chain* chain : component::AllChains()) {
    for (const rules::RuleRow& row : rules::ListRules(*chain)) {
      rows.push_back({{"chain", chain->name},
                      {"stage", row.stage},
                      {"guard", row.guard.empty() ? Json(nullptr) : ToJson(row.guard)},
                      {"find", ToJson(row.rule->find)},
                      {"with", ToJson(row.rule->with)},
                      {"mode", static_cast<int>(row.rule->mode)},
                      {"limit", row.rule->limit < 0 ? Json(nullptr) : Json(row.rule->limit)},
                      {"where", rules::Where(*chain, *row.rule)},
                      {"rule", ToJson(rules::Written(*row.rule))}});
    }
  }
  return rows;
}

}  // namespace quillary::routine
