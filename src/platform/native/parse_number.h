// Texts as numbers, in the US English forms of automation: blanks around, a sign before
// or behind, parentheses for negative amounts, a currency sign, thousands separators,
// a decimal point, an exponent; or whole numbers as &H hexadecimal and &O octal.
#pragma once

#include "halyard/platform/wide_text.h"
#include "platform/native/decimal_digits.h"

namespace halyard {

struct ParsedNumber {
  // True for &H and &O: the value is `bits` then, whose width in digits decides nothing.
  bool is_bits = false;
  std::uint64_t bits = 0;
  DecimalDigits digits;
};

// S_OK, DISP_E_TYPEMISMATCH where the text is no number, DISP_E_OVERFLOW for bits beyond
// 64 and exponents beyond all numbers.
HRESULT ParseNumber(WideView text, ParsedNumber* number) noexcept;

}  // namespace halyard
