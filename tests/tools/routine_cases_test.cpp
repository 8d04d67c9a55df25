// Runs the .jsonl files of the tests: each line is a request to the routine
// runner with what its answer must hold in "expect".
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "registry.h"

namespace {

using quillary::routine::Json;

class Cases : public testing::TestWithParam<std::string> {};

std::vector<std::string> CaseFiles() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(QUILLARY_TESTS_DIR)) {
    if (entry.path().extension() == ".jsonl") files.push_back(entry.path().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

TEST_P(Cases, GiveWhatTheyExpect) {
  std::ifstream file(GetParam());
  std::string line;
  int number = 0;
  int cases = 0;
  while (std::getline(file, line)) {
    ++number;
    if (line.empty() || line[0] == '#') continue;
    ++cases;
    const Json request = quillary::routine::ParseLine(line);
    const Json answer = quillary::routine::AllRoutines().Run(request);
    for (const auto& [key, wanted] : request.at("expect").items()) {
      if (key == "state") {
        for (const auto& [field, value] : wanted.items()) {
          EXPECT_EQ(value, answer["state"][field]) << GetParam() << ":" << number << " " << field;
        }
      } else {
        EXPECT_EQ(wanted, answer[key]) << GetParam() << ":" << number << " " << key;
      }
    }
  }
  EXPECT_GT(cases, 0);
}

std::string NameOf(const testing::TestParamInfo<std::string>& file) {
  return std::filesystem::path(file.param).stem().string();
}

INSTANTIATE_TEST_SUITE_P(All, Cases, testing::ValuesIn(CaseFiles()), NameOf);

}  // namespace
