// Scalar: what a variant of a scalar type holds, by kind instead of by tag. The form in
// which conversions see their source.
#pragma once

#include <cstdint>
#include <variant>

#include "halyard/platform/wide_text.h"

namespace halyard {

struct Nothing {};  // VT_EMPTY

struct Money {  // VT_CY
  std::int64_t ten_thousandths;
};

struct Moment {  // VT_DATE
  DATE days;
};

struct Flag {  // VT_BOOL
  bool is_true;
};

// A text is borrowed from its variant.
using Scalar =
    std::variant<Nothing, std::int64_t, std::uint64_t, float, double, Money, Moment, DECIMAL, Flag, WideView>;

// DISP_E_TYPEMISMATCH for types that hold no scalar which converts (VT_NULL, VT_ERROR).
HRESULT ReadScalar(const VARIANT& source, Scalar* scalar) noexcept;

}  // namespace halyard
