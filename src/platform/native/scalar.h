// Scalar: what a variant of a scalar type holds, by kind instead of by tag. The form in
// which conversions see their source.
#pragma once

#include <cstdint>
#include <variant>

#include "halyard/platform/wide_text.h"
#include "platform/native/integer_type.h"

namespace halyard {

struct Nothing {};  // VT_EMPTY

struct Integer {  // the integer types, extended to 64 bits by their sign
  std::uint64_t bits;
  const IntegerType* type;
};

struct Money {  // VT_CY
  std::int64_t ten_thousandths;
};

struct Moment {  // VT_DATE
  DATE days;
};

struct Flag {  // VT_BOOL; -1 for true, but variants come with other numbers as well
  VARIANT_BOOL value;
};

// A text is borrowed from its variant. It ends at its first zero, as for everything that
// reads texts as numbers.
using Scalar = std::variant<Nothing, Integer, float, double, Money, Moment, DECIMAL, Flag, WideView>;

// DISP_E_TYPEMISMATCH for types that hold no scalar which converts (VT_NULL, VT_ERROR),
// E_INVALIDARG for a decimal with more than 28 places.
HRESULT ReadScalar(const VARIANT& source, Scalar* scalar) noexcept;

}  // namespace halyard
