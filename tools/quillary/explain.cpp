#include "explain.h"

#include <iostream>
#include <nlohmann/json.hpp>

#include "apartment/apartment.h"
#include "component/conversions.h"
#include "for_each.h"
#include "rules/firing_log.h"
#include "rules/listing.h"
#include "rules/notation.h"
#include "text/encodings.h"

namespace quillary::command_line {
namespace {

using rules::Firing;

const rules::Stage& StageOf(const Firing& firing) {
  return firing.chain->stages[static_cast<std::size_t>(firing.stage) - 1];
}

void PrintForPerson(const Firing& firing, const Firing* previous) {
  const rules::Stage& stage = StageOf(firing);
  if (previous == nullptr || previous->chain != firing.chain || previous->stage != firing.stage) {
    std::cout << firing.chain->name << '/' << firing.stage << "  " << stage.name << ": " << stage.purpose
              << '\n';
  }
  std::cout << "  " << rules::Where(*firing.chain, *firing.rule) << "  " << firing.count
            << (firing.count == 1 ? " time\n" : " times\n") << "    " << ToUtf8(rules::Written(*firing.rule))
            << '\n'
            << "    before  " << ToUtf8(rules::Written(firing.before)) << '\n'
            << "    after   " << ToUtf8(rules::Written(firing.after)) << '\n';
}

void PrintLine(const Firing& firing) {
  const nlohmann::ordered_json line = {{"chain", firing.chain->name},
                                       {"stage", StageOf(firing).name},
                                       {"where", rules::Where(*firing.chain, *firing.rule)},
                                       {"rule", ToUtf8(rules::Written(*firing.rule))},
                                       {"count", firing.count},
                                       {"find", ToUtf8(firing.rule->find)},
                                       {"with", ToUtf8(firing.rule->with)},
                                       {"before", ToUtf8(firing.before)},
                                       {"after", ToUtf8(firing.after)}};
  std::cout << line.dump() << '\n';
}

void PrintFailed(const FailedStep& failed, bool json) {
  if (json) {
    std::cout << nlohmann::ordered_json{{"step", failed.step}, {"failure", failed.failure}}.dump() << '\n';
  } else {
    std::cout << failed.step << "  failed (" << failed.failure << ") and was skipped\n";
  }
}

}  // namespace

int Run(const Explain& command) {
  return ForEach({command.document}, [&](const std::string& document) {
    rules::FiringLog log;
    Apartment apartment;
    apartment.firing_log = &log;
    component::Properties properties = command.properties;
    properties.RTF_Text = FromWindows1252(ReadDocument(document));
    component::ConvertRTF(apartment, properties);
    const Firing* previous = nullptr;
    for (const Firing& firing : log.firings()) {
      if (command.json) {
        PrintLine(firing);
      } else {
        PrintForPerson(firing, previous);
      }
      previous = &firing;
    }
    for (const FailedStep& failed : apartment.failed_steps) PrintFailed(failed, command.json);
    std::cout.flush();
  });
}

}  // namespace quillary::command_line
