// The tags of variants: which exist, and where a scalar value lies.
#pragma once

#include "halyard/platform/native/variant.h"

namespace halyard {

// The tag without VT_BYREF and its like.
constexpr VARTYPE BaseType(VARTYPE type) noexcept { return type & VT_TYPEMASK; }

constexpr bool IsByRef(VARTYPE type) noexcept { return (type & VT_BYREF) != 0; }
constexpr bool IsArray(VARTYPE type) noexcept { return (type & VT_ARRAY) != 0; }

// The bytes of a value of the scalar type: 0 for types without a value (VT_EMPTY,
// VT_NULL) and for tags that are no scalar type. VT_DECIMAL counts 16.
std::size_t ScalarBytes(VARTYPE type) noexcept;

// S_OK for tags that a variant can carry, DISP_E_BADVARTYPE for all others.
HRESULT CheckType(VARTYPE type) noexcept;

// The largest count of decimal places that a decimal may have.
inline constexpr BYTE kMaxDecimalScale = 28;

// The decimal of a VT_DECIMAL variant, which lies over the variant's tag.
DECIMAL DecimalIn(const VARIANT& variant) noexcept;

// Overwrites the variant, which must own nothing, with a VT_DECIMAL.
void StoreDecimal(VARIANT& variant, const DECIMAL& value) noexcept;

}  // namespace halyard
