#include "component/public_errors.h"

#include <utility>

namespace quillary {
namespace {

ConversionFailed::Kind PublicKind(Failure::Kind kind) {
  switch (kind) {
    case Failure::Kind::Overflow:
      return ConversionFailed::Kind::Overflow;
    case Failure::Kind::Argument:
      return ConversionFailed::Kind::Argument;
    case Failure::Kind::Subscript:
      return ConversionFailed::Kind::Subscript;
    case Failure::Kind::Type:
      return ConversionFailed::Kind::Type;
    case Failure::Kind::Raised:
      break;
  }
  return ConversionFailed::Kind::Raised;
}

ConversionLimit::Limit PublicLimit(LimitReached::Limit limit) {
  switch (limit) {
    case LimitReached::Limit::Input:
      return ConversionLimit::Limit::Input;
    case LimitReached::Limit::Growth:
      return ConversionLimit::Limit::Growth;
    case LimitReached::Limit::Nesting:
      return ConversionLimit::Limit::Nesting;
    case LimitReached::Limit::Pictures:
      break;
  }
  return ConversionLimit::Limit::Pictures;
}

}  // namespace

ConversionError::ConversionError(std::string words) : words_(std::move(words)) {}
ConversionError::~ConversionError() = default;
const char* ConversionError::what() const noexcept { return words_.c_str(); }

ConversionFailed::ConversionFailed(Kind kind, std::uint32_t code, std::string source, std::string words)
    : ConversionError(std::move(words)), kind_(kind), code_(code), source_(std::move(source)) {}
ConversionFailed::~ConversionFailed() = default;

ConversionLimit::ConversionLimit(Limit limit, std::string words)
    : ConversionError(std::move(words)), limit_(limit) {}
ConversionLimit::~ConversionLimit() = default;

ConversionFailed PublicError(const Failure& failure) {
  return {PublicKind(failure.kind()), failure.code(), failure.source(), failure.what()};
}

ConversionLimit PublicError(const LimitReached& reached) {
  return {PublicLimit(reached.limit()), reached.what()};
}

}  // namespace quillary
