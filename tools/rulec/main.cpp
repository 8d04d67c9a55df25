// rulec: the rule compiler.
//
//   rulec --sentinels FILE --name src/links/foo.rules INPUT OUT.cpp OUT.h
//   rulec --sentinels-header FILE OUT.h
//   rulec --check-names SENTINELS STAMP INPUT...
//   rulec --format [--check] FILE...
//
// --format lays rule files out; with --check it only names those that are not.
//
// A malformed rule file ends it with "file:line: cause" and status 1.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include "emit.h"
#include "expand.h"
#include "grams.h"
#include "layout.h"
#include "rule_file.h"

namespace quillary::rulec {
namespace {

using Arguments = std::vector<std::string>;

// A file that cannot be read or written.
struct BadFile : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) throw BadFile(path + ": cannot be read");
  return {std::istreambuf_iterator<char>(in), {}};
}

// A file that already holds the content keeps its date, so that nothing that
// depends on it is built again.
void WriteFile(const std::string& path, const std::string& content) {
  if (std::filesystem::exists(path) && ReadFile(path) == content) return;
  std::ofstream out(path, std::ios::binary);
  out << content;
  if (!out) throw BadFile(path + ": cannot be written");
}

// Runs a reader; what it finds malformed is told with the file's name.
template <class Action>
auto Of(const std::string& path, Action&& action) {
  try {
    return action();
  } catch (const Malformed& malformed) {
    throw BadFile(path + ":" + std::to_string(malformed.line()) + ": " + malformed.what());
  }
}

Names NamesOf(const std::string& path, std::set<std::string>* used = nullptr) {
  return Of(path, [&] { return ReadSentinels(ReadFile(path), used); });
}

std::vector<FlatChain> ChainsOf(const std::string& path, const Names& known, const std::string& folder) {
  return Of(path, [&] {
    std::vector<FlatChain> flat;
    for (const ChainSource& chain : ReadRules(ReadFile(path), known, folder)) flat.push_back(Expand(chain));
    return flat;
  });
}

void Compile(const std::string& sentinels, const std::string& name, const std::string& input,
             const std::string& tables, const std::string& header) {
  const std::string folder = std::filesystem::path(name).parent_path().filename();
  std::vector<FlatChain> chains = ChainsOf(input, NamesOf(sentinels), folder);
  for (FlatChain& chain : chains) CutIntoBlocks(chain);
  WriteFile(header, EmitHeader(chains, name));
  WriteFile(tables, EmitTables(chains, name));
}

// A name declared for all rule files must be used by one of them.
void CheckNames(const std::string& sentinels, const std::string& stamp, const Arguments& inputs) {
  std::set<std::string> used;
  const Names known = NamesOf(sentinels, &used);
  for (const std::string& input : inputs) {
    Of(input, [&] { return ReadRules(ReadFile(input), known, "any", &used); });
  }
  Of(sentinels, [&] { CheckAllUsed(known, used); });
  WriteFile(stamp, "");
}

void Format(const Arguments& files) {
  for (const std::string& file : files) {
    const std::string source = ReadFile(file);
    const std::string laid_out = Of(file, [&] { return LaidOut(source); });
    if (laid_out != source) WriteFile(file, laid_out);
  }
}

// Names the files that are not laid out; whether there are none.
bool CheckFormat(const Arguments& files) {
  bool all_are = true;
  for (const std::string& file : files) {
    const std::string source = ReadFile(file);
    if (Of(file, [&] { return LaidOut(source); }) == source) continue;
    std::cerr << file << ": not laid out; rulec --format does it\n";
    all_are = false;
  }
  return all_are;
}

int Main(const Arguments& arguments) {
  if (arguments.size() >= 3 && arguments[0] == "--format" && arguments[1] == "--check") {
    return CheckFormat({arguments.begin() + 2, arguments.end()}) ? 0 : 1;
  }
  if (arguments.size() >= 2 && arguments[0] == "--format") {
    Format({arguments.begin() + 1, arguments.end()});
  } else if (arguments.size() == 7 && arguments[0] == "--sentinels" && arguments[2] == "--name") {
    Compile(arguments[1], arguments[3], arguments[4], arguments[5], arguments[6]);
  } else if (arguments.size() == 3 && arguments[0] == "--sentinels-header") {
    WriteFile(arguments[2], EmitSentinels(NamesOf(arguments[1])));
  } else if (arguments.size() >= 4 && arguments[0] == "--check-names") {
    CheckNames(arguments[1], arguments[2], {arguments.begin() + 3, arguments.end()});
  } else {
    std::cerr << "usage: rulec --sentinels FILE --name NAME INPUT OUT.cpp OUT.h\n"
                 "       rulec --sentinels-header FILE OUT.h\n"
                 "       rulec --check-names SENTINELS STAMP INPUT...\n"
                 "       rulec --format [--check] FILE...\n";
    return 2;
  }
  return 0;
}

}  // namespace
}  // namespace quillary::rulec

int main(int count, char** values) {
  try {
    return quillary::rulec::Main({values + 1, values + count});
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
