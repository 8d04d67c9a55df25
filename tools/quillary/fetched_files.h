// Pictures that a page has on the web, downloaded among the temporary files: the rules put them
// into the folder of the page, where a file of the same name could be lost.
#pragma once

#include "platform/services/services.h"

namespace quillary::command_line {

/// The services with downloads from public hosts. The files are deleted with the last copy of the
/// services.
platform::Services WithDownloads(platform::Services services);

}  // namespace quillary::command_line
