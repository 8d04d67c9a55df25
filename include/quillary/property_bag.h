// Where a host keeps the properties of a saved object.
#pragma once

#include <string>
#include <string_view>

#include "quillary/export.h"

namespace quillary {

/// A keyed store of texts, which the host supplies. The keys are the names of the properties,
/// such as "HTML_Title". A bag may throw anything.
class QUILLARY_API PropertyBag {
 public:
  PropertyBag() = default;
  PropertyBag(const PropertyBag&) = default;
  PropertyBag& operator=(const PropertyBag&) = default;
  virtual ~PropertyBag();

  /// The text under `key`, or `fallback` if the bag does not hold the key.
  virtual std::u16string ReadProperty(std::string_view key, std::u16string_view fallback) = 0;

  /// Keeps `value` under `key`. A value equal to `fallback` may be left out.
  virtual void WriteProperty(std::string_view key, std::u16string_view value,
                             std::u16string_view fallback) = 0;
};

}  // namespace quillary
