// The C interface: what it gives, what it says to wrong use, and many threads at once.
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <thread>

#include "quillary/quillary.h"

namespace {

namespace fs = std::filesystem;

const char* const kHello =
    "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil Arial;}}\\pard\\f0\\fs20 Hello \\b world\\b0\\par}";

// A converter that is released in the end, and its texts as strings.
class Converter {
 public:
  Converter() { EXPECT_EQ(quillary_create(&number_), QUILLARY_OK); }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() { quillary_release(number_); }

  quillary_converter number() const { return number_; }

  quillary_status Set(quillary_property property, const std::string& text) const {
    return quillary_set_text(number_, property, text.data(), text.size());
  }
  std::string Get(quillary_property property) const {
    return Taken(
        [&](char** text, size_t* length) { return quillary_get_text(number_, property, text, length); });
  }
  std::string Convert(quillary_conversion conversion, quillary_encoding encoding = QUILLARY_UTF_8) const {
    return Taken([&](char** text, size_t* length) {
      return quillary_convert(number_, conversion, encoding, text, length);
    });
  }

  template <class Function>
  static std::string Taken(Function&& function) {
    char* text = nullptr;
    size_t length = 0;
    const quillary_status status = function(&text, &length);
    EXPECT_EQ(status, QUILLARY_OK) << quillary_last_error();
    if (status != QUILLARY_OK) return "(failed)";
    EXPECT_EQ(text[length], '\0');
    std::string taken(text, length);
    quillary_free(text);
    return taken;
  }

 private:
  quillary_converter number_ = 0;
};

bool Holds(const std::string& text, const std::string& piece) {
  return text.find(piece) != std::string::npos;
}

TEST(CInterface, ConvertsEachWay) {
  const Converter converter;
  ASSERT_EQ(converter.Set(QUILLARY_HTML_TITLE, "T\xC3\xA4"), QUILLARY_OK);
  ASSERT_EQ(converter.Set(QUILLARY_RTF_TEXT, kHello), QUILLARY_OK);
  const std::string page = converter.Convert(QUILLARY_CONVERT_RTF);
  EXPECT_TRUE(Holds(page, "<title>T&#228;</title>")) << page;
  EXPECT_TRUE(Holds(page, "Hello <b>world</b>")) << page;
  EXPECT_EQ(converter.Get(QUILLARY_RTF_TEXT), "");
  EXPECT_EQ(converter.Get(QUILLARY_HTML_COLOUR), "FFFFFF");
  EXPECT_EQ(converter.Get(QUILLARY_HTML_TEXT), page);

  for (const auto& [conversion, property, text, piece] :
       {std::tuple{QUILLARY_CONVERT_NO_BODY, QUILLARY_RTF_TEXT, kHello, "<b>world</b>"},
        {QUILLARY_CONVERT_RAW_HTML, QUILLARY_RTF_TEXT, kHello, "<b>world</b>"},
        {QUILLARY_CONVERT_RTF_HEADER, QUILLARY_RTF_TEXT, kHello, ""},
        {QUILLARY_CONVERT_RTF_PLAIN, QUILLARY_RTF_TEXT, kHello, "Hello world"},
        {QUILLARY_CONVERT_PLAIN_HTML, QUILLARY_PLAIN_TEXT, "Hello\nworld", "Hello<br>"},
        {QUILLARY_CONVERT_HTML2RTF, QUILLARY_HTML_TEXT, "<p>Hello <b>world</b>",
         "\\b1\\lang1033\\fs24\\cf1 world\\b0"}}) {
    ASSERT_EQ(converter.Set(property, text), QUILLARY_OK);
    const std::string result = converter.Convert(conversion);
    EXPECT_TRUE(Holds(result, piece)) << conversion << ": " << result;
    EXPECT_EQ(result.empty(), *piece == '\0') << conversion;
  }
}

// One character by each way in, and out by each encoding.
TEST(CInterface, ReadsAndWritesCharacters) {
  const Converter converter;
  const auto plain = [&](quillary_encoding encoding) {
    return converter.Convert(QUILLARY_CONVERT_RTF_PLAIN, encoding);
  };
  const std::string in_utf8 = "{\\rtf1 \xE2\x82\xAC\xF0\x9F\x98\x80}";
  ASSERT_EQ(converter.Set(QUILLARY_RTF_TEXT, in_utf8), QUILLARY_OK);
  EXPECT_EQ(plain(QUILLARY_UTF_8), "\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(plain(QUILLARY_WINDOWS_1252), "\x80?");
  EXPECT_EQ(plain(QUILLARY_ASCII), "??");
  const std::string in_bytes = "{\\rtf1\\ansi \x80}";
  ASSERT_EQ(quillary_set_bytes(converter.number(), QUILLARY_RTF_TEXT, in_bytes.data(), in_bytes.size()),
            QUILLARY_OK);
  EXPECT_EQ(plain(QUILLARY_UTF_8), "\xE2\x82\xAC");

  const std::string page = "<meta charset=shift_jis><p>\x82\xA0</p>";
  ASSERT_EQ(quillary_set_page(converter.number(), page.data(), page.size()), QUILLARY_OK);
  EXPECT_TRUE(Holds(converter.Convert(QUILLARY_CONVERT_HTML2RTF), "\\u12354"));
  ASSERT_EQ(converter.Set(QUILLARY_HTML_TEXT, "<p>\xE3\x81\x82</p>"), QUILLARY_OK);
  EXPECT_TRUE(Holds(converter.Convert(QUILLARY_CONVERT_HTML2RTF), "\\u12354"));

  ASSERT_EQ(converter.Set(QUILLARY_PLAIN_TEXT, "\xE3\x81\x82"), QUILLARY_OK);
  EXPECT_TRUE(Holds(converter.Convert(QUILLARY_CONVERT_PLAIN_HTML, QUILLARY_ASCII), "&#12354;"));
}

TEST(CInterface, NamesItsPropertiesAndItsVersion) {
  const Converter converter;
  EXPECT_STREQ(quillary_property_name(QUILLARY_LINKS), "Links");
  EXPECT_STREQ(quillary_property_name(QUILLARY_RTF_TEXT), "RTF_Text");
  EXPECT_STREQ(quillary_property_name(QUILLARY_IMAGE_FOLDER), "ImageFolder");
  EXPECT_STREQ(quillary_property_name(QUILLARY_USE_FONT_TAGS), "UseFontTags");
  EXPECT_EQ(quillary_property_name(-1), nullptr);
  EXPECT_EQ(quillary_property_name(QUILLARY_PROPERTIES), nullptr);
  EXPECT_EQ(converter.Get(QUILLARY_TABLE_BORDERS), "1");
  EXPECT_EQ(quillary_version_number(), QUILLARY_VERSION_NUMBER);
  EXPECT_EQ(std::string(quillary_version()), std::to_string(QUILLARY_VERSION_MAJOR) + "." +
                                                 std::to_string(QUILLARY_VERSION_MINOR) + "." +
                                                 std::to_string(QUILLARY_VERSION_PATCH));
}

TEST(CInterface, AnswersWrongUseWithAnError) {
  const Converter converter;
  const quillary_converter number = converter.number();
  ASSERT_EQ(converter.Set(QUILLARY_GENERATOR, "kept"), QUILLARY_OK);
  char* text = nullptr;
  size_t length = 7;
  quillary_converter gone = 0;
  ASSERT_EQ(quillary_create(&gone), QUILLARY_OK);
  ASSERT_EQ(quillary_release(gone), QUILLARY_OK);

  for (const quillary_converter none : {quillary_converter{0}, gone, ~quillary_converter{0}}) {
    EXPECT_EQ(quillary_release(none), QUILLARY_NO_CONVERTER);
    EXPECT_EQ(quillary_set_text(none, QUILLARY_LINKS, "", 0), QUILLARY_NO_CONVERTER);
    EXPECT_EQ(quillary_set_bytes(none, QUILLARY_LINKS, "", 0), QUILLARY_NO_CONVERTER);
    EXPECT_EQ(quillary_set_page(none, "", 0), QUILLARY_NO_CONVERTER);
    EXPECT_EQ(quillary_allow(none, 0), QUILLARY_NO_CONVERTER);
    text = const_cast<char*>("old");
    EXPECT_EQ(quillary_get_text(none, QUILLARY_LINKS, &text, &length), QUILLARY_NO_CONVERTER);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(length, 0U);
    EXPECT_EQ(quillary_convert(none, QUILLARY_CONVERT_RTF, QUILLARY_UTF_8, &text, &length),
              QUILLARY_NO_CONVERTER);
    EXPECT_STRNE(quillary_last_error(), "");
  }

  EXPECT_EQ(quillary_create(nullptr), QUILLARY_BAD_ARGUMENT);
  for (const quillary_property property : {-1, QUILLARY_PROPERTIES + 0, 1 << 30}) {
    EXPECT_EQ(quillary_set_text(number, property, "a", 1), QUILLARY_BAD_ARGUMENT);
    EXPECT_EQ(quillary_set_bytes(number, property, "a", 1), QUILLARY_BAD_ARGUMENT);
    EXPECT_EQ(quillary_get_text(number, property, &text, &length), QUILLARY_BAD_ARGUMENT);
  }
  EXPECT_EQ(quillary_set_text(number, QUILLARY_GENERATOR, nullptr, 1), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_set_bytes(number, QUILLARY_GENERATOR, nullptr, 1), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_set_page(number, nullptr, 1), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_get_text(number, QUILLARY_LINKS, nullptr, &length), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_get_text(number, QUILLARY_LINKS, &text, nullptr), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_convert(number, 7, QUILLARY_UTF_8, &text, &length), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_convert(number, -1, QUILLARY_UTF_8, &text, &length), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_convert(number, QUILLARY_CONVERT_RTF, 3, &text, &length), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_convert(number, QUILLARY_CONVERT_RTF, QUILLARY_UTF_8, nullptr, &length),
            QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_allow(number, 4), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_file_to_string(nullptr, &text, &length), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_file_to_string("\xFF", &text, &length), QUILLARY_BAD_ARGUMENT);

  // Malformed UTF-8, a length that cuts a character among it; a length that no text can have.
  for (const std::string bad : {"\xC3", "a\xFFz", "\xED\xA0\x80", "\xC0\x80", "\xF4\x90\x80\x80"}) {
    EXPECT_EQ(converter.Set(QUILLARY_GENERATOR, bad), QUILLARY_BAD_ARGUMENT);
  }
  EXPECT_EQ(quillary_set_text(number, QUILLARY_GENERATOR, "\xE2\x82\xAC", 2), QUILLARY_BAD_ARGUMENT);
  EXPECT_EQ(quillary_set_text(number, QUILLARY_GENERATOR, "a", SIZE_MAX), QUILLARY_LIMIT_REACHED);
  EXPECT_EQ(quillary_set_page(number, "a", SIZE_MAX), QUILLARY_LIMIT_REACHED);
  EXPECT_EQ(converter.Get(QUILLARY_GENERATOR), "kept");

  // No wrong use: nothing at all, a text with a 0 in it, U+FFFD.
  EXPECT_EQ(quillary_set_text(number, QUILLARY_GENERATOR, nullptr, 0), QUILLARY_OK);
  EXPECT_EQ(converter.Get(QUILLARY_GENERATOR), "");
  EXPECT_EQ(converter.Set(QUILLARY_GENERATOR, std::string("a\0b\xEF\xBF\xBD", 6)), QUILLARY_OK);
  EXPECT_EQ(converter.Get(QUILLARY_GENERATOR), std::string("a\0b\xEF\xBF\xBD", 6));
  quillary_free(nullptr);
}

// A conversion that fails says so, and the converter goes on.
TEST(CInterface, TellsOfConversionsThatFail) {
  const Converter converter;
  ASSERT_EQ(converter.Set(QUILLARY_RTF_TEXT, "no RTF"), QUILLARY_OK);
  char* text = nullptr;
  size_t length = 0;
  EXPECT_EQ(quillary_convert(converter.number(), QUILLARY_CONVERT_RTF_HEADER, QUILLARY_UTF_8, &text, &length),
            QUILLARY_OK);
  quillary_free(text);
  std::string deep = "<p>";
  for (int i = 0; i < 600; ++i) deep += "<table><tr><td>";
  for (int i = 0; i < 600; ++i) deep += "</td></tr></table>";
  ASSERT_EQ(converter.Set(QUILLARY_HTML_TEXT, deep), QUILLARY_OK);
  EXPECT_EQ(quillary_convert(converter.number(), QUILLARY_CONVERT_HTML2RTF, QUILLARY_UTF_8, &text, &length),
            QUILLARY_LIMIT_REACHED);
  EXPECT_STREQ(quillary_last_error(), "the document is nested deeper than the limit");
  EXPECT_EQ(text, nullptr);
  ASSERT_EQ(converter.Set(QUILLARY_RTF_TEXT, kHello), QUILLARY_OK);
  EXPECT_EQ(converter.Convert(QUILLARY_CONVERT_RTF_PLAIN), "Hello world");
}

class Folder {
 public:
  Folder() : path_(fs::temp_directory_path() / ("quillary_c_" + std::to_string(getpid()))) {
    fs::create_directories(path_ / "below");
  }
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;
  ~Folder() { fs::remove_all(path_); }
  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

// Only the folder that was named may be read, unless the caller says otherwise.
TEST(CInterface, ReadsOnlyWhereItMay) {
  const Folder folder;
  constexpr char kDot[] = "GIF89a\1\0\1\0\x80\0\0\xFF\xFF\xFF\0\0\0,\0\0\0\0\1\0\1\0\0\2\2\x44\1\0;";
  std::ofstream(folder.path() / "dot.gif", std::ios::binary).write(kDot, sizeof kDot - 1);
  const Converter converter;
  const std::string home = (folder.path() / "below").string() + "/";
  const std::string page = "<p><img src=\"file:////" + (folder.path() / "dot.gif").string() + "\"></p>";
  ASSERT_EQ(converter.Set(QUILLARY_IMAGE_FOLDER, home), QUILLARY_OK);
  for (const quillary_access access :
       {0U, quillary_access{QUILLARY_ACCESS_WEB}, quillary_access{QUILLARY_ACCESS_FILES}}) {
    ASSERT_EQ(quillary_allow(converter.number(), access), QUILLARY_OK);
    ASSERT_EQ(converter.Set(QUILLARY_HTML_TEXT, page), QUILLARY_OK);
    EXPECT_EQ(Holds(converter.Convert(QUILLARY_CONVERT_HTML2RTF), "\\pict"), access == QUILLARY_ACCESS_FILES);
  }
  std::ofstream(folder.path() / "file.txt") << "a\x80z";
  const std::string path = (folder.path() / "file.txt").string();
  EXPECT_EQ(Converter::Taken([&](char** text, size_t* length) {
              return quillary_file_to_string(path.c_str(), text, length);
            }),
            "a\xE2\x82\xACz");
}

// The documents of the samples, by every conversion of RTF.
std::vector<std::string> ConvertAll(const std::vector<std::string>& documents, std::size_t first) {
  std::vector<std::string> results(documents.size());
  for (std::size_t i = 0; i < documents.size(); ++i) {
    const std::size_t at = (first + i) % documents.size();
    const Converter converter;
    EXPECT_EQ(converter.Set(QUILLARY_CONVERT_IMAGES, "no"), QUILLARY_OK);  // all would write the same files
    for (const quillary_conversion conversion : {QUILLARY_CONVERT_RTF, QUILLARY_CONVERT_RTF_PLAIN}) {
      EXPECT_EQ(quillary_set_bytes(converter.number(), QUILLARY_RTF_TEXT, documents[at].data(),
                                   documents[at].size()),
                QUILLARY_OK);
      results[at] += converter.Convert(conversion);
    }
    EXPECT_EQ(quillary_set_page(converter.number(), results[at].data(), results[at].size()), QUILLARY_OK);
    results[at] += converter.Convert(QUILLARY_CONVERT_HTML2RTF);
  }
  return results;
}

TEST(CInterface, ConvertsOnThirtyTwoThreadsAsOnOne) {
  std::vector<std::string> documents;
  for (const auto& entry : fs::directory_iterator(QUILLARY_TESTS_DIR "/../samples")) {
    if (entry.path().extension() != ".rtf") continue;
    std::ifstream in(entry.path(), std::ios::binary);
    documents.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  ASSERT_GT(documents.size(), 3U);
  std::vector<std::vector<std::string>> results(32);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < results.size(); ++i) {
    threads.emplace_back([&, i] { results[i] = ConvertAll(documents, i); });
  }
  for (std::thread& thread : threads) thread.join();
  const std::vector<std::string> alone = ConvertAll(documents, 0);
  for (const std::vector<std::string>& result : results) EXPECT_EQ(result, alone);
}

// One converter on many threads: the calls wait for each other, also while it is released.
TEST(CInterface, KeepsCallsForOneConverterApart) {
  quillary_converter number = 0;
  ASSERT_EQ(quillary_create(&number), QUILLARY_OK);
  std::vector<std::thread> threads;
  for (int i = 0; i < 8; ++i) {
    threads.emplace_back([number, i] {
      for (int round = 0; round < 50; ++round) {
        char* text = nullptr;
        size_t length = 0;
        quillary_set_bytes(number, QUILLARY_RTF_TEXT, kHello, std::strlen(kHello));
        const quillary_status status =
            quillary_convert(number, QUILLARY_CONVERT_RTF_PLAIN, QUILLARY_UTF_8, &text, &length);
        EXPECT_TRUE(status == QUILLARY_OK || status == QUILLARY_NO_CONVERTER);
        quillary_free(text);
        if (i == 0 && round == 25) quillary_release(number);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(quillary_release(number), QUILLARY_NO_CONVERTER);
}

}  // namespace
