#include "tests/fuzz/support/input.h"

#include <algorithm>

namespace halyard::fuzz {

std::uint8_t Input::Byte() noexcept {
  if (bytes_.empty()) return 0;
  const std::uint8_t byte = bytes_.front();
  bytes_ = bytes_.subspan(1);
  return byte;
}

std::uint16_t Input::Word() noexcept {
  const std::uint16_t low = Byte();
  return static_cast<std::uint16_t>(low | Byte() << 8);
}

Bytes Input::Take(std::size_t count) {
  const auto part = bytes_.first(std::min(count, bytes_.size()));
  bytes_ = bytes_.subspan(part.size());
  return {part.begin(), part.end()};
}

WideString Input::Text() {
  constexpr std::uint8_t kLeadsUnit = 255;
  WideString text;
  while (!AtEnd()) {
    const std::uint8_t byte = Byte();
    text.push_back(static_cast<OLECHAR>(byte == kLeadsUnit ? Word() : byte));
  }
  return text;
}

}  // namespace halyard::fuzz
