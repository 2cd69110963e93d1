// The integer types of variants, as rows of one table.
#pragma once

#include <cstdint>

#include "halyard/platform/native/variant.h"

namespace halyard {

struct IntegerType {
  VARTYPE type;
  int bytes;
  bool is_signed;

  // The largest value, and the magnitude of the smallest.
  [[nodiscard]] constexpr std::uint64_t max() const noexcept {
    return ~std::uint64_t{0} >> (64 - 8 * bytes + (is_signed ? 1 : 0));
  }
  [[nodiscard]] constexpr std::uint64_t min_magnitude() const noexcept { return is_signed ? max() + 1 : 0; }
};

// The row of the tag; null for tags that are no integer type.
const IntegerType* FindIntegerType(VARTYPE type) noexcept;

// The value of a variant of the type, extended to 64 bits by its sign.
std::uint64_t LoadBits(const VARIANT& variant, const IntegerType& type) noexcept;

// Makes the variant, which must own nothing, an integer of the type from its low bits.
void StoreBits(VARIANT& variant, const IntegerType& type, std::uint64_t bits) noexcept;

}  // namespace halyard
