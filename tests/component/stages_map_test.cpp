// docs/stages.md names every step of both directions, in running order.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>

#include "html_to_rtf/driver/html_steps.h"
#include "rtf_to_html/driver/steps.h"

namespace quillary {
namespace {

// The names in the first column of the tables.
std::vector<std::string> NamesInTheMap() {
  std::ifstream file(QUILLARY_TESTS_DIR "/../docs/stages.md");
  std::vector<std::string> names;
  const std::regex name("`(\\w+)`");
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("| `")) continue;
    const std::string cell = line.substr(0, line.find('|', 1));
    for (std::sregex_iterator found(cell.begin(), cell.end(), name); found != std::sregex_iterator();
         ++found) {
      names.push_back((*found)[1]);
    }
  }
  return names;
}

TEST(StagesMap, NamesEveryStepInOrder) {
  std::vector<std::string> steps;
  for (const auto& step : modQuillary::Steps()) steps.emplace_back(step.name);
  for (const auto& step : HTMLRTFConverter::PreparingSteps()) steps.emplace_back(step.name);
  for (const auto& step : HTMLRTFConverter::ConvertingSteps()) steps.emplace_back(step.name);
  EXPECT_EQ(NamesInTheMap(), steps);
}

}  // namespace
}  // namespace quillary
