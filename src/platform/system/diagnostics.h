// Where words for a person go, and the debug dump.
#pragma once

#include <memory>

#include "text/text.h"

namespace quillary::platform {

class Diagnostics {
 public:
  virtual ~Diagnostics() = default;

  /// Shows a message to a person.
  virtual void Message(TextView words) = 0;
  /// Writes `text` and a line end to rtftext.txt in the temporary folder,
  /// replacing it, never through a symbolic link. Throws Failure (raised) if it
  /// cannot be written.
  virtual void WriteDump(TextView text) = 0;
};

/// Standard error, and the system's temporary folder.
std::shared_ptr<Diagnostics> MakeDiagnostics();

}  // namespace quillary::platform
