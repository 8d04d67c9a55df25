// The program on the command line: exit codes, inputs and outputs, encodings.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <string>

namespace {

namespace fs = std::filesystem;

struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

std::string ReadFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

class CommandLine : public testing::Test {
 protected:
  void SetUp() override {
    std::string folder = testing::TempDir() + "quillary-XXXXXX";
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    folder_ = folder;
  }
  void TearDown() override {
    if (!folder_.empty()) fs::remove_all(folder_);
  }

  void Put(const std::string& name, const std::string& bytes) {
    std::ofstream(folder_ / name, std::ios::binary) << bytes;
  }

  // Runs the program in the folder; `words` go through the shell.
  Outcome Run(const std::string& words) {
    const std::string line = "cd '" + folder_.string() + "' && TMPDIR=. '" QUILLARY_BIN_DIR "/quillary' " +
                             words + " >out.bytes 2>err.bytes";
    const int status = std::system(line.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, ReadFile(folder_ / "out.bytes"),
            ReadFile(folder_ / "err.bytes")};
  }

  bool Has(const std::string& text, const std::string& piece) {
    return text.find(piece) != std::string::npos;
  }

  fs::path folder_;
};

const std::string kDocument =
    "{\\rtf1\\ansi{\\fonttbl{\\f0\\fnil\\fcharset0 Arial;}}\r\n\\pard\\plain\\f0\\fs20 caf\xE9 \x9A "
    "x\r\n\\par }";

TEST_F(CommandLine, ConvertsFilesAndStandardInput) {
  Put("a.rtf", kDocument);
  const Outcome file = Run("to-html --clean-rtf nono a.rtf");
  EXPECT_EQ(file.status, 0) << file.err;
  EXPECT_TRUE(Has(file.out, "caf&#233; &#353; x")) << file.out;
  EXPECT_EQ(Run("to-html --clean-rtf nono - < a.rtf").out, file.out);
  EXPECT_EQ(Run("to-html --clean-rtf nono < a.rtf").out, file.out);
  EXPECT_EQ(Run("to-html --clean-rtf nono a.rtf -o page.html").out, "");
  EXPECT_EQ(ReadFile(folder_ / "page.html"), file.out);
  EXPECT_FALSE(Has(Run("to-html --clean-rtf nono --fragment a.rtf").out, "<html>"));
  EXPECT_FALSE(Has(Run("to-html --clean-rtf nono --raw a.rtf").out, "<html>"));
}

TEST_F(CommandLine, WritesOnePageForEachDocumentIntoAFolder) {
  Put("a.rtf", kDocument);
  Put("b.rtf", "{\\rtf1\\plain second}");
  EXPECT_EQ(Run("to-html --clean-rtf nono a.rtf b.rtf -o pages/").status, 0);
  EXPECT_TRUE(Has(ReadFile(folder_ / "pages/a.html"), "Arial"));
  // A page does not depend on the one before it.
  EXPECT_FALSE(Has(ReadFile(folder_ / "pages/b.html"), "Arial"));
  EXPECT_EQ(Run("to-html --clean-rtf nono a.rtf b.rtf -o one.html").status, 2);
}

TEST_F(CommandLine, EncodesAsAsked) {
  Put("a.rtf", kDocument);
  const auto title = [&](const std::string& encoding) {
    // An ill-formed word, a character beyond 16 bits, one of Windows-1252 and one of neither.
    const std::string page = Run("to-html --clean-rtf nono " + encoding +
                                 " --html-title '\xE9\xF0\x9F\x98\x80\xC5\xA1\xD0\x96' a.rtf")
                                 .out;
    const auto start = page.find("<title>") + 7;
    return page.substr(start, page.find("</title>") - start);
  };
  EXPECT_EQ(title(""), "&#65533;&#128512;&#353;&#1046;");
  EXPECT_EQ(title("--encoding utf-8"), "\xEF\xBF\xBD\xF0\x9F\x98\x80\xC5\xA1\xD0\x96");
  EXPECT_EQ(title("--encoding Windows-1252"), "&#65533;&#128512;\x9A&#1046;");
}

TEST_F(CommandLine, SetsEveryProperty) {
  Put("a.rtf", kDocument);
  const std::string page =
      Run("to-html --clean-rtf nono --html-title T --html-colour 255 --generator G --links no "
          "--use-span-tags no "
          "--use-font-tags yes --convert-images no --image-folder f --image-format png --image-name n "
          "--clean-html no --xhtml-output no --do-debug yes --table-borders 1 a.rtf")
          .out;
  EXPECT_TRUE(Has(page, "<title>T</title>"));
  EXPECT_TRUE(Has(page, "#FF0000"));
  EXPECT_TRUE(Has(page, "content=\"G\""));
  EXPECT_EQ(ReadFile(folder_ / "rtftext.txt"), kDocument + "\r\n");
}

TEST_F(CommandLine, TheDumpIsNotWrittenThroughALink) {
  Put("a.rtf", kDocument);
  Put("precious", "kept");
  fs::create_symlink("precious", folder_ / "rtftext.txt");
  const Outcome outcome = Run("to-html --clean-rtf nono --do-debug yes a.rtf");
  EXPECT_EQ(outcome.status, 0);
  EXPECT_TRUE(Has(outcome.err, "unable to create rtftext.txt"));
  EXPECT_EQ(ReadFile(folder_ / "precious"), "kept");
}

TEST_F(CommandLine, TracesEachStepAsALine) {
  Put("a.rtf", kDocument);
  const Outcome outcome = Run("to-html --clean-rtf nono --trace a.rtf");
  EXPECT_TRUE(outcome.out.starts_with("{\"step\":\"StartState\",\"text\":\"\"}\n")) << outcome.out;
  EXPECT_TRUE(Has(outcome.out, "{\"step\":\"RewriteRtf\",\"text\":\"<html>\\r\\n"));
}

TEST_F(CommandLine, TakesAndGivesPlainText) {
  Put("a.txt", "a < b & {c}\r\nsecond \\line");
  const Outcome page = Run("to-html --plain a.txt -o a.html");
  EXPECT_EQ(page.status, 0) << page.err;
  EXPECT_TRUE(Has(ReadFile(folder_ / "a.html"), "second \\line")) << ReadFile(folder_ / "a.html");
  Put("b.rtf", kDocument);
  EXPECT_TRUE(Has(Run("to-text b.rtf").out, "caf\xC3\xA9 \xC5\xA1 x"));
  EXPECT_TRUE(Has(Run("to-text --encoding ascii b.rtf").out, "caf? ? x"));
}

TEST_F(CommandLine, ConvertsPagesToRtf) {
  Put("a.html", "<meta charset=utf-8><p>caf\xC3\xA9 \xD0\x96 &mdash; x\xC3\xA9</p>");
  const Outcome rtf = Run("to-rtf a.html");
  EXPECT_EQ(rtf.status, 0) << rtf.err;
  EXPECT_TRUE(Has(rtf.out, "caf\\'E9 \\u1046\\'3F \\u8212\\'3F x\\'E9")) << rtf.out;
  EXPECT_EQ(Run("to-rtf - < a.html").out, rtf.out);
  EXPECT_EQ(Run("to-rtf a.html -o documents/").status, 0);
  EXPECT_EQ(ReadFile(folder_ / "documents/a.rtf"), rtf.out);
  // As it is, each byte is a character; what the rules leave beyond ASCII is escaped at the end.
  Put("b.html", "a\xE9 &mdash; b<a href=\"\xE9\">\x80</a>");
  EXPECT_TRUE(
      Has(Run("to-rtf --raw-input b.html").out, "a\\'e9 &mdash; b{\\field{\\*\\fldinst { HYPERLINK \\'e9 }}"))
      << Run("to-rtf --raw-input b.html").out;
  EXPECT_TRUE(Run("to-rtf --trace a.html").out.starts_with("{\"step\":\"SupplyFrame\""));
}

TEST_F(CommandLine, PutsPicturesBesideThePage) {
  const std::string sample = ReadFile(QUILLARY_TESTS_DIR "/../samples/pictures.rtf");
  Put("a & b.rtf", sample);
  Put("plain.rtf", kDocument);
  const auto pictures = [&](const fs::path& folder) {
    return fs::exists(folder) ? std::distance(fs::directory_iterator(folder), fs::directory_iterator()) : 0;
  };
  EXPECT_EQ(Run("to-html 'a & b.rtf' plain.rtf -o pages/").status, 0);
  EXPECT_TRUE(Has(ReadFile(folder_ / "pages/a & b.html"), "src=\"a%20%26%20b_files/object003.png\""));
  EXPECT_EQ(pictures(folder_ / "pages/a & b_files"), 4);
  EXPECT_FALSE(fs::exists(folder_ / "pages/plain_files"));
  // On standard output they need a place of their own, which is said.
  Outcome outcome = Run("to-html 'a & b.rtf' --image-format jpeg --clean-html yes");
  const std::size_t at = outcome.err.find("the pictures are in ");
  ASSERT_NE(at, std::string::npos);
  const std::string place = outcome.err.substr(at + 20, outcome.err.find('\n', at) - at - 20);
  EXPECT_EQ(pictures(folder_ / place), 4);
  EXPECT_TRUE(Has(outcome.out, fs::path(place).filename().string() + "/object000.jpeg\"")) << outcome.out;
  // A folder that is named, and none that can be made.
  EXPECT_TRUE(Has(Run("to-html 'a & b.rtf' --image-folder new/one").out, "/new/one/object000.png\""));
  EXPECT_EQ(pictures(folder_ / "new/one"), 4);
  Put("c.rtf", sample);
  EXPECT_TRUE(Has(Run("to-html 'a & b.rtf' c.rtf --image-folder two").out, "/two/c/object000.png\""));
  EXPECT_FALSE(Has(Run("to-html 'a & b.rtf' --image-folder plain.rtf/one").out, "<img"));
  // And back: what stands beside the page, and nothing else.
  EXPECT_EQ(Run("to-rtf 'pages/a & b.html' -o back.rtf").status, 0);
  EXPECT_TRUE(Run("to-html back.rtf -o back.html").status == 0 && fs::exists(folder_ / "back.html"));
  Put("pages/beside.html", "<img src=../new/one/object000.png><img src=new.png>");
  fs::copy_file(folder_ / "new/one/object000.png", folder_ / "pages/new.png");
  const std::string rtf = Run("to-rtf pages/beside.html").out;
  EXPECT_TRUE(Has(rtf, ".{\\pict\\pngblip")) << rtf.substr(0, 400);
}

TEST_F(CommandLine, ExplainsWhichRulesFired) {
  Put("a.rtf", "{\\rtf1\\viewkind4\\uc1\\pard\\fs20 x\\par \\pard y\\par }");
  const Outcome words = Run("explain --clean-rtf nono a.rtf");
  EXPECT_EQ(words.status, 0) << words.err;
  EXPECT_TRUE(Has(words.out, "src/rtf_to_html/rewriting/rewrite_headings.rules:")) << words.out;
  const std::string lines = Run("explain --json --clean-rtf nono a.rtf").out;
  EXPECT_TRUE(lines.starts_with("{\"chain\":")) << lines;
  EXPECT_TRUE(Has(lines, "\"find\":\"\\\\pard\\\\\"")) << lines;
  const std::string cleaned = Run("explain --clean-rtf nono --clean-html yes a.rtf").out;
  EXPECT_TRUE(Has(cleaned, "src/html_finishing/late_finish.rules:")) << cleaned;
  EXPECT_EQ(Run("explain missing.rtf").status, 1);
  EXPECT_EQ(Run("explain").status, 2);
}

TEST_F(CommandLine, WarnsWhereTheDocumentIsCutShort) {
  std::string rtf = "{\\rtf1";
  for (int i = 0; i < 66; ++i) rtf += "{\\pict\\x 0}";
  Put("pictures.rtf", rtf + "}");
  EXPECT_TRUE(
      Has(Run("to-html --clean-rtf nono --convert-images no pictures.rtf").err, "warning: only the first"));
  Put("a.rtf", kDocument);
  EXPECT_EQ(Run("to-html --clean-rtf nono a.rtf").err, "");
}

TEST_F(CommandLine, TellsFailedInputFromWrongUsage) {
  Put("a.rtf", kDocument);
  const Outcome missing = Run("to-html --clean-rtf nono missing.rtf a.rtf");
  EXPECT_EQ(missing.status, 1);
  EXPECT_TRUE(Has(missing.err, "missing.rtf: No such file"));
  EXPECT_TRUE(Has(missing.out, "caf")) << "the next document is converted all the same";
  EXPECT_EQ(Run("to-html --clean-rtf nono . ").status, 1);
  EXPECT_EQ(Run("to-html --clean-rtf nono a.rtf -o nowhere/page.html").status, 1);
  EXPECT_EQ(Run("to-html --clean-rtf nono a.rtf > /dev/full; exit $?; true").status, 1);
  for (const char* wrong : {"", "to-html --no-such-option", "to-html --fragment --raw a.rtf",
                            "no-such-command", "to-html --encoding latin9 a.rtf", "to-html a.rtf -o"}) {
    EXPECT_EQ(Run(wrong).status, 2) << wrong;
  }
  EXPECT_EQ(Run("--help").status, 0);
  EXPECT_EQ(Run("to-html --help").status, 0);
  EXPECT_TRUE(Run("--version").out.starts_with("quillary "));
}

TEST_F(CommandLine, ManualAndCompletionNameEveryOption) {
  std::string manual = ReadFile(QUILLARY_TESTS_DIR "/../docs/quillary.1");
  std::erase(manual, '\\');
  const std::string completion = ReadFile(QUILLARY_TESTS_DIR "/../tools/quillary/completion/quillary.bash");
  const std::string help = Run("to-html --help").out + Run("to-text --help").out + Run("explain --help").out +
                           Run("to-rtf --help").out;
  const std::regex option("--[a-z-]+");
  int options = 0;
  for (std::sregex_iterator found(help.begin(), help.end(), option), end; found != end; ++found, ++options) {
    EXPECT_TRUE(Has(manual, found->str())) << found->str();
    EXPECT_TRUE(Has(completion, found->str())) << found->str();
  }
  EXPECT_GT(options, 20);
}

}  // namespace
