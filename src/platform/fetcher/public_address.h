// Which addresses lie in the public network.
#pragma once

#include <sys/socket.h>

namespace quillary::platform {

/// False for this machine, private networks, links, multicast, addresses kept for other
/// uses, and IPv4 addresses of these kinds inside IPv6 ones; false for other families.
bool IsPublicAddress(const sockaddr& address);

}  // namespace quillary::platform
