// Variants that hold a number, made so that handing them over by value is cheap.
//
// A variant travels to a call as a copy of its bytes. Processors hand bytes that were
// just stored on to a copy at once where one store made them all, and wait for the
// memory where several did: that takes longer than storing the number in its field.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "halyard/platform/automation.h"

namespace halyard {

// A variant of that type with these bytes of content, the others zero. For types that
// own nothing.
inline VARIANT ScalarVariant(VARTYPE type, std::uint64_t content) noexcept {
  static_assert(offsetof(VARIANT, llVal) == sizeof(std::uint64_t));
  VARIANT result{};
#ifdef __SSE2__
  const __m128i both = _mm_set_epi64x(static_cast<long long>(content), type);
  _mm_storeu_si128(reinterpret_cast<__m128i*>(&result), both);
#else
  const std::uint64_t both[] = {type, content};
  std::memcpy(static_cast<void*>(&result), both, sizeof both);
#endif
  return result;
}

// VT_I2, VT_I4, VT_UI1, VT_R4, VT_R8.
inline VARIANT NumberVariant(SHORT value) noexcept {
  return ScalarVariant(VT_I2, static_cast<std::uint16_t>(value));
}
inline VARIANT NumberVariant(LONG value) noexcept {
  return ScalarVariant(VT_I4, static_cast<std::uint32_t>(value));
}
inline VARIANT NumberVariant(BYTE value) noexcept { return ScalarVariant(VT_UI1, value); }
inline VARIANT NumberVariant(float value) noexcept {
  return ScalarVariant(VT_R4, std::bit_cast<std::uint32_t>(value));
}
inline VARIANT NumberVariant(double value) noexcept {
  return ScalarVariant(VT_R8, std::bit_cast<std::uint64_t>(value));
}

}  // namespace halyard
