// Conversions on several threads at once give what they give one after another.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>
#include <vector>

#include "quillary/Quillaryv8.h"

namespace quillary {
namespace {

namespace fs = std::filesystem;

// One unit for each byte; the samples are ASCII.
std::vector<std::u16string> Samples() {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::directory_iterator(QUILLARY_TESTS_DIR "/../samples")) {
    if (entry.path().extension() == ".rtf") paths.push_back(entry.path());
  }
  std::sort(paths.begin(), paths.end());
  std::vector<std::u16string> documents;
  for (const fs::path& path : paths) {
    std::ifstream in(path, std::ios::binary);
    documents.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return documents;
}

enum class Form { Plain, Cleaned, Xhtml };

// The document by every conversion of RTF, in the apartment of the thread.
void Convert(const std::u16string& rtf, Form form, std::vector<std::u16string>& results) {
  Quillaryv8 converter;
  converter.ConvertImages(u"no");  // all threads would write the same files
  converter.CleanHTML(form == Form::Cleaned ? u"yes" : u"no");
  converter.XHTMLOutput(form == Form::Xhtml ? u"yes" : u"no");
  converter.UseSpanTags(form == Form::Cleaned ? u"yes" : u"no");
  for (const auto conversion :
       {&Quillaryv8::ConvertRTF, &Quillaryv8::ConvertRawHtml, &Quillaryv8::ConvertNoBody,
        &Quillaryv8::ConvertRTFHeader, &Quillaryv8::ConvertRTFPlain}) {
    converter.RTF_Text(rtf);
    results.push_back((converter.*conversion)());
  }
}

// A thread that converts all documents, beginning with that one.
std::thread Worker(const std::vector<std::u16string>& documents, std::size_t first,
                   std::vector<std::u16string>& results) {
  return std::thread([&documents, first, &results] {
    for (std::size_t i = 0; i < documents.size(); ++i) {
      for (const Form form : {Form::Plain, Form::Cleaned, Form::Xhtml}) {
        Convert(documents[(first + i) % documents.size()], form, results);
      }
    }
  });
}

TEST(ParallelConversions, GiveWhatTheyGiveOneAfterAnother) {
  const std::vector<std::u16string> documents = Samples();
  ASSERT_GT(documents.size(), 3U);
  // The parallel ones go first and meet everything that is made on first use.
  std::vector<std::vector<std::u16string>> parallel(documents.size());
  std::vector<std::thread> threads;
  for (std::size_t first = 0; first < documents.size(); ++first) {
    threads.push_back(Worker(documents, first, parallel[first]));
  }
  for (std::thread& thread : threads) thread.join();
  for (std::size_t first = 0; first < documents.size(); ++first) {
    std::vector<std::u16string> alone;
    Worker(documents, first, alone).join();
    EXPECT_EQ(parallel[first], alone) << "first document " << first;
    EXPECT_FALSE(alone[0].empty());
  }
}

}  // namespace
}  // namespace quillary
