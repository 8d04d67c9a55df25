// Work that needs more stack than a host's thread may have.
#pragma once

#include <functional>

namespace quillary::platform {

/// Runs the action on a thread with a stack of its own, and waits for it. What
/// it throws leaves this function. Throws Failure (raised) where there is no
/// thread to be had.
void RunOnLargeStack(const std::function<void()>& action);

}  // namespace quillary::platform
