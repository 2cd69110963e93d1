// The exact decimal digits of a scalar, from which all conversions round once.
#pragma once

#include "platform/native/decimal_digits.h"
#include "platform/native/scalar.h"

namespace halyard {

// As many digits as any finite double has before they all are zeros.
inline constexpr int kAllDigits = 780;

// How many digits of floating-point numbers matter.
struct RealDigits {
  int of_float = kAllDigits;
  int of_double = kAllDigits;
};

// DISP_E_TYPEMISMATCH for a text that is no number, DISP_E_OVERFLOW for numbers that
// are infinite or none.
HRESULT ExactDigits(const Scalar& source, DecimalDigits* digits, RealDigits real = {}) noexcept;

}  // namespace halyard
