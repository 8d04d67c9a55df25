#include "platform/fetcher/public_address.h"

#include <netinet/in.h>

#include <cstdint>
#include <cstring>

namespace quillary::platform {
namespace {

struct Network {
  std::uint32_t start;
  int bits;
};

// The blocks of IPv4 that are not of the public network.
constexpr Network kNotPublic[] = {
    {0x00000000, 8},   // this network
    {0x0A000000, 8},   // private
    {0x64400000, 10},  // shared by the customers of a provider
    {0x7F000000, 8},   // this machine
    {0xA9FE0000, 16},  // this link, and the data of cloud machines
    {0xAC100000, 12},  // private
    {0xC0000000, 24},  // protocols
    {0xC0000200, 24},  // documentation
    {0xC0586300, 24},  // relays from IPv6
    {0xC0A80000, 16},  // private
    {0xC6120000, 15},  // benchmarks
    {0xC6336400, 24},  // documentation
    {0xCB007100, 24},  // documentation
    {0xE0000000, 3},   // multicast, and reserved
};

bool IsPublic(std::uint32_t address) {
  for (const Network& network : kNotPublic) {
    if ((address ^ network.start) >> (32 - network.bits) == 0) return false;
  }
  return true;
}

std::uint32_t NumberAt(const unsigned char* bytes) {
  return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
         bytes[3];
}

bool IsPublic(const in6_addr& address) {
  const unsigned char* bytes = address.s6_addr;
  const std::uint32_t head = NumberAt(bytes);
  if (head >> 29 != 1) {
    // Outside of the global addresses: only those that a translator makes of IPv4 ones.
    const bool translated = head == 0x0064FF9B && NumberAt(bytes + 4) == 0 && NumberAt(bytes + 8) == 0;
    return translated && IsPublic(NumberAt(bytes + 12));
  }
  if (head >> 16 == 0x2002) return IsPublic(NumberAt(bytes + 2));  // routed over IPv4
  return head != 0x20010000 && head != 0x20010DB8;                 // tunnels, documentation
}

}  // namespace

bool IsPublicAddress(const sockaddr& address) {
  if (address.sa_family == AF_INET) {
    sockaddr_in inet{};
    std::memcpy(&inet, &address, sizeof inet);
    return IsPublic(ntohl(inet.sin_addr.s_addr));
  }
  if (address.sa_family == AF_INET6) {
    sockaddr_in6 inet6{};
    std::memcpy(&inet6, &address, sizeof inet6);
    return IsPublic(inet6.sin6_addr);
  }
  return false;
}

}  // namespace quillary::platform
