#include "text/failure.h"

namespace quillary {

const char* Failure::name() const {
  switch (kind_) {
    case Kind::Overflow:
      return "overflow";
    case Kind::Argument:
      return "argument";
    case Kind::Subscript:
      return "subscript";
    case Kind::Type:
      return "type";
    case Kind::Raised:
      break;
  }
  return "raised";
}

const char* LimitReached::what() const noexcept {
  switch (limit_) {
    case Limit::Input:
      return "the input is longer than the limit";
    case Limit::Growth:
      return "the text under conversion grew beyond the limit";
    case Limit::Nesting:
      return "the document is nested deeper than the limit";
    case Limit::Pictures:
      break;
  }
  return "a picture is beyond the limit";
}

}  // namespace quillary
