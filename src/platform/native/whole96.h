// Whole96: an unsigned whole number of 96 bits, the magnitude of a decimal.
#pragma once

#include <array>
#include <cstdint>

#include "halyard/platform/native/variant.h"

namespace halyard {

class Whole96 {
 public:
  constexpr Whole96() noexcept = default;
  constexpr explicit Whole96(std::uint64_t value) noexcept
      : limbs_{static_cast<std::uint32_t>(value), static_cast<std::uint32_t>(value >> 32), 0} {}

  // The magnitude of a decimal, its scale left aside.
  static Whole96 Of(const DECIMAL& value) noexcept;

  // this = this * factor + addend. False, with this unchanged, where that needs more
  // than 96 bits.
  bool MultiplyAdd(std::uint32_t factor, std::uint32_t addend) noexcept;

  // this = this / divisor, rounded down; the remainder is returned.
  std::uint32_t Divide(std::uint32_t divisor) noexcept;

  [[nodiscard]] bool IsZero() const noexcept { return (limbs_[0] | limbs_[1] | limbs_[2]) == 0; }

  [[nodiscard]] std::uint64_t Low64() const noexcept { return std::uint64_t{limbs_[1]} << 32 | limbs_[0]; }
  [[nodiscard]] std::uint32_t High32() const noexcept { return limbs_[2]; }

  friend bool operator==(const Whole96&, const Whole96&) noexcept = default;

 private:
  // Least significant first.
  std::array<std::uint32_t, 3> limbs_{};
};

}  // namespace halyard
