// Runs the cases of tests/cases: each line is a request to the routine runner
// with what its answer must hold in "expect".
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "registry.h"

namespace {

using quillary::routine::Json;

class Cases : public testing::TestWithParam<std::string> {};

std::vector<std::string> CaseFiles() {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(QUILLARY_TESTS_DIR "/cases")) {
    if (entry.path().extension() == ".jsonl") files.push_back(entry.path().stem().string());
  }
  std::sort(files.begin(), files.end());
  return files;
}

TEST_P(Cases, GiveWhatTheyExpect) {
  std::ifstream file(QUILLARY_TESTS_DIR "/cases/" + GetParam() + ".jsonl");
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
          EXPECT_EQ(value, answer["state"][field]) << GetParam() << ".jsonl:" << number << " " << field;
        }
      } else {
        EXPECT_EQ(wanted, answer[key]) << GetParam() << ".jsonl:" << number << " " << key;
      }
    }
  }
  EXPECT_GT(cases, 0);
}

std::string NameOf(const testing::TestParamInfo<std::string>& file) { return file.param; }

INSTANTIATE_TEST_SUITE_P(All, Cases, testing::ValuesIn(CaseFiles()), NameOf);

}  // namespace
