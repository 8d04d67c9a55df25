#include "for_each.h"

#include <iostream>
#include <new>

#include "text/failure.h"

namespace quillary::command_line {

void Say(const std::string& document, const std::string& words) {
  std::cerr << "quillary: " << (document == "-" ? "standard input" : document) << ": " << words << '\n';
}

int ForEach(const std::vector<std::string>& documents,
            const std::function<void(const std::string& document)>& convert) {
  int status = 0;
  for (const std::string& document : documents) {
    try {
      convert(document);
      continue;
    } catch (const FileError& error) {
      std::cerr << "quillary: " << error.what() << '\n';
    } catch (const Failure& failure) {
      Say(document, failure.source().empty() ? failure.what() : failure.source() + ": " + failure.what());
    } catch (const LimitReached& reached) {
      Say(document, reached.what());
    } catch (const std::bad_alloc&) {
      Say(document, "not enough memory");
    }
    status = 1;
  }
  return status;
}

}  // namespace quillary::command_line
