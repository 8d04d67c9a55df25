// quillary-routine: one JSON request a line on standard input, one answer a
// line on standard output.
#include <iostream>

#include "registry.h"

namespace {

using quillary::routine::AllRoutines;
using quillary::routine::Json;

Json Refused() {
  return {{"result", nullptr}, {"args", Json::array()}, {"state", Json::object()}, {"failure", "usage"}};
}

int Serve() {
  std::ios::sync_with_stdio(false);
  std::string line;
  while (std::getline(std::cin, line)) {
    if (line.empty()) continue;
    Json answer;
    try {
      answer = AllRoutines().Run(quillary::routine::ParseLine(line));
    } catch (const Json::exception&) {
      answer = Refused();
    }
    std::cout << quillary::routine::WriteLine(answer) << std::endl;
  }
  return 0;
}

}  // namespace

int main(int count, char** words) {
  const std::string option = count == 2 ? words[1] : "";
  if (count == 1) return Serve();
  if (option == "--list") {
    for (const std::string& name : AllRoutines().Names()) std::cout << name << '\n';
    return 0;
  }
  if (option == "--rules") {
    for (const Json& row : quillary::routine::RuleRows()) {
      std::cout << quillary::routine::WriteLine(row) << '\n';
    }
    return 0;
  }
  std::cerr << "usage: quillary-routine [--list | --rules] <requests >answers\n";
  return 2;
}
