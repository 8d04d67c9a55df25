#pragma once

namespace quillary {

/// The version of the library, such as "0.1.0". The text is static.
const char* Version();

}  // namespace quillary
