// The bytes of one fuzz input, taken from the front.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "halyard/platform/wide_text.h"

namespace halyard::fuzz {

using Bytes = std::vector<unsigned char>;

class Input {
 public:
  explicit Input(std::span<const unsigned char> bytes) : bytes_(bytes) {}

  [[nodiscard]] bool AtEnd() const noexcept { return bytes_.empty(); }

  // The next byte, the next two as a little-endian number; 0 where there are too few.
  std::uint8_t Byte() noexcept;
  std::uint16_t Word() noexcept;

  // The next `count` bytes, fewer at the end; a block of their own, so that a step behind
  // its end is seen.
  Bytes Take(std::size_t count);

  // All that is left.
  Bytes Rest() { return Take(bytes_.size()); }

  // All that is left, as text: each byte is the character of its number, save that 255 leads
  // the two bytes of a UTF-16 code unit, which may be half of a character.
  WideString Text();

 private:
  std::span<const unsigned char> bytes_;
};

}  // namespace halyard::fuzz
