// The documents of samples/ with everything as it is by default: the whole page
// and the plain text, which stand beside each document.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "apartment/apartment.h"
#include "fake_services.h"
#include "quillary/Quillaryv8.h"
#include "text/encodings.h"

namespace quillary {
namespace {

namespace fs = std::filesystem;

std::string ReadFile(const fs::path& path) {
  std::ifstream in(path, std::ios::binary);
  EXPECT_TRUE(in) << path;
  return {std::istreambuf_iterator<char>(in), {}};
}

std::vector<fs::path> Documents() {
  std::vector<fs::path> documents;
  for (const auto& entry : fs::directory_iterator(QUILLARY_TESTS_DIR "/../samples")) {
    if (entry.path().extension() == ".rtf") documents.push_back(entry.path());
  }
  std::sort(documents.begin(), documents.end());
  return documents;
}

class Samples : public ::testing::TestWithParam<fs::path> {};

TEST_P(Samples, GiveThePageAndTheTextBesideThem) {
  fs::path path = GetParam();
  const Text rtf = FromWindows1252(ReadFile(path));
  const auto apartment = MakeApartment();
  apartment->services.picture_extractor = [] { return std::make_unique<testing::SilentExtractor>(); };
  Quillaryv8 converter(apartment);
  converter.RTF_Text(rtf);
  EXPECT_EQ(ToUtf8(converter.ConvertRTF()), ReadFile(path.replace_extension(".html")));
  converter.RTF_Text(rtf);
  EXPECT_EQ(ToUtf8(converter.ConvertRTFPlain()), ReadFile(path.replace_extension(".txt")));
}

INSTANTIATE_TEST_SUITE_P(All, Samples, ::testing::ValuesIn(Documents()),
                         [](const auto& sample) { return sample.param.stem().string(); });

}  // namespace
}  // namespace quillary
