// The exact decimal digits of a scalar, from which all conversions round once.
#pragma once

#include "platform/native/decimal_digits.h"
#include "platform/native/scalar.h"

namespace halyard {

// As many digits as any finite double has before they all are zeros.
inline constexpr int kAllDigits = 780;

// What a conversion takes of numbers that have more than one reading.
struct Reading {
  // How many digits of floating-point numbers matter.
  int float_digits = kAllDigits;
  int double_digits = kAllDigits;

  // Hexadecimal and octal texts are whole numbers of so many bits, with a sign or
  // without; longer ones overflow.
  int text_bits = 64;
  bool text_bits_signed = false;
};

// DISP_E_TYPEMISMATCH for a text that is no number, DISP_E_OVERFLOW for numbers that
// are infinite or none.
HRESULT ExactDigits(const Scalar& source, DecimalDigits* digits, Reading reading = {}) noexcept;

}  // namespace halyard
