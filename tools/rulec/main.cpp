// rulec: the rule compiler.
//
//   rulec --sentinels FILE --name src/links/foo.rules INPUT OUT.cpp OUT.h
//   rulec --sentinels-header FILE OUT.h
//   rulec --registry ORDER OUT.cpp INPUT...
//   rulec --masking SENTINELS INPUT...
//
// The last prints the rules that an earlier rule of their stage always eats.
//
// A malformed rule file ends it with "file:line: cause" and status 1.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>
#include <vector>

#include "emit.h"
#include "expand.h"
#include "grams.h"
#include "masking.h"
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

Sentinels SentinelsOf(const std::string& path) {
  return Of(path, [&] { return ReadSentinels(ReadFile(path)); });
}

std::vector<FlatChain> ChainsOf(const std::string& path, const Sentinels& known, const std::string& folder) {
  return Of(path, [&] {
    std::vector<FlatChain> flat;
    for (const ChainSource& chain : ReadRules(ReadFile(path), known, folder)) flat.push_back(Expand(chain));
    return flat;
  });
}

void Compile(const std::string& sentinels, const std::string& name, const std::string& input,
             const std::string& tables, const std::string& header) {
  const std::string folder = std::filesystem::path(name).parent_path().filename();
  std::vector<FlatChain> chains = ChainsOf(input, SentinelsOf(sentinels), folder);
  for (FlatChain& chain : chains) CutIntoBlocks(chain);
  WriteFile(header, EmitHeader(chains, name));
  WriteFile(tables, EmitTables(chains, name));
}

// The names of the chains of a rule file, without the rest of it.
std::vector<std::string> ChainNames(const std::string& path) {
  std::vector<std::string> names;
  std::ifstream in(path);
  if (!in) throw BadFile(path + ": cannot be read");
  std::string line;
  while (std::getline(in, line)) {
    if (line.starts_with("chain ")) names.push_back(line.substr(6, line.find(' ', 6) - 6));
  }
  return names;
}

void Register(const std::string& order, const std::string& output, const Arguments& inputs) {
  std::vector<std::string> ranks;
  std::ifstream in(order);
  if (!in) throw BadFile(order + ": cannot be read");
  for (std::string line; std::getline(in, line);) ranks.push_back(line);
  std::vector<std::string> chains;
  for (const std::string& input : inputs) {
    for (std::string& name : ChainNames(input)) chains.push_back(std::move(name));
  }
  const auto rank = [&](const std::string& name) { return std::find(ranks.begin(), ranks.end(), name); };
  std::stable_sort(chains.begin(), chains.end(), [&](const std::string& left, const std::string& right) {
    return rank(left) < rank(right);
  });
  WriteFile(output, EmitRegistry(chains));
}

void ReportMasked(const std::string& sentinels, const Arguments& inputs) {
  const Sentinels known = SentinelsOf(sentinels);
  for (const std::string& input : inputs) {
    for (const FlatChain& chain :
         ChainsOf(input, known, std::filesystem::path(input).parent_path().filename())) {
      for (const Masked& masked : FindMasked(chain)) {
        std::cout << input << ':' << masked.rule->line << ": " << chain.name << ": "
                  << ToUtf8(masked.rule->find) << "\n    is eaten in line " << masked.by->line << " by "
                  << ToUtf8(masked.by->find) << '\n';
        if (masked.joined_by != nullptr) {
          std::cout << "    unless line " << masked.joined_by->line << " joins its parts again\n";
        }
      }
    }
  }
}

int Main(const Arguments& arguments) {
  if (arguments.size() == 7 && arguments[0] == "--sentinels" && arguments[2] == "--name") {
    Compile(arguments[1], arguments[3], arguments[4], arguments[5], arguments[6]);
  } else if (arguments.size() == 3 && arguments[0] == "--sentinels-header") {
    WriteFile(arguments[2], EmitSentinels(SentinelsOf(arguments[1])));
  } else if (arguments.size() >= 3 && arguments[0] == "--registry") {
    Register(arguments[1], arguments[2], {arguments.begin() + 3, arguments.end()});
  } else if (arguments.size() >= 2 && arguments[0] == "--masking") {
    ReportMasked(arguments[1], {arguments.begin() + 2, arguments.end()});
  } else {
    std::cerr << "usage: rulec --sentinels FILE --name NAME INPUT OUT.cpp OUT.h\n"
                 "       rulec --sentinels-header FILE OUT.h\n"
                 "       rulec --registry ORDER OUT.cpp INPUT...\n"
                 "       rulec --masking SENTINELS INPUT...\n";
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
