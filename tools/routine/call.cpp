// The arguments of one call: checked against the kinds the routine takes, and
// written back as they are after it.
#include <limits>

#include "registry.h"

namespace quillary::routine {
namespace {

std::int32_t Number(const Json& value, std::int64_t lowest, std::int64_t highest) {
  if (value.is_number_unsigned() && value.get<std::uint64_t>() > static_cast<std::uint64_t>(highest)) {
    throw Refusal("overflow");
  }
  if (!value.is_number_integer()) throw Refusal("usage");
  const auto number = value.get<std::int64_t>();
  if (number < lowest || number > highest) throw Refusal("overflow");
  return static_cast<std::int32_t>(number);
}

template <class Width>
std::int32_t NumberOf(const Json& value) {
  return Number(value, std::numeric_limits<Width>::min(), std::numeric_limits<Width>::max());
}

}  // namespace

Call::Call(Apartment& apartment, Json args, const std::vector<Kind>& kinds)
    : apartment_(apartment), args_(std::move(args)), kinds_(kinds) {
  texts_.resize(args_.size());
  integers_.resize(args_.size());
  for (std::size_t i = 0; i < args_.size(); ++i) {
    const Json& value = args_[i];
    switch (kinds_[i]) {
      case Kind::Text:
        if (!value.is_string()) throw Refusal("usage");
        texts_[i] = ToText(value);
        break;
      case Kind::Integer16:
        integers_[i] = NumberOf<std::int16_t>(value);
        break;
      case Kind::Integer32:
        integers_[i] = NumberOf<std::int32_t>(value);
        break;
      case Kind::Mode:
        if (value != 0 && value != 1) throw Refusal("usage");
        integers_[i] = value.get<std::int32_t>();
        break;
      case Kind::List:
        if (!value.is_array() && !value.is_null()) throw Refusal("usage");
        break;
      case Kind::Record:
        if (!value.is_object()) throw Refusal("usage");
        break;
      case Kind::Any:
        break;
    }
  }
}

Json Call::arguments() const {
  Json now = args_;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (kinds_[i] == Kind::Text) now[i] = ToJson(texts_[i]);
  }
  return now;
}

}  // namespace quillary::routine
