// Numbers in the byte order of files.
#pragma once

#include <cstdint>
#include <span>

namespace halyard::tool {

// The number in the first bytes of a span, which must be that long.
template <class N>
[[nodiscard]] constexpr N LittleEndian(std::span<const unsigned char> bytes) noexcept {
  std::uint64_t value = 0;
  for (std::size_t i = sizeof(N); i-- > 0;) value = value << 8 | bytes[i];
  return static_cast<N>(value);
}

// Puts a number into the first bytes of a span, which must be that long.
template <class N>
constexpr void PutLittleEndian(std::span<unsigned char> bytes, N value) noexcept {
  for (std::size_t i = 0; i < sizeof(N); ++i) {
    bytes[i] = static_cast<unsigned char>(static_cast<std::uint64_t>(value) >> (8 * i));
  }
}

}  // namespace halyard::tool
