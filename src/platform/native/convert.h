// Conversions of a scalar to each kind of type. All of them answer S_OK,
// DISP_E_TYPEMISMATCH (a text that does not parse), DISP_E_OVERFLOW (a value that does
// not fit) or E_OUTOFMEMORY; the result is not touched by a failure.
#pragma once

#include "platform/native/integer_type.h"
#include "platform/native/scalar.h"

namespace halyard {

// Rounds half to even. The result is the two's complement of the type, in 64 bits.
HRESULT ToInteger(const Scalar& source, const IntegerType& type, std::uint64_t* bits) noexcept;

HRESULT ToFloat(const Scalar& source, float* value) noexcept;
HRESULT ToDouble(const Scalar& source, double* value) noexcept;
HRESULT ToDate(const Scalar& source, DATE* value) noexcept;

// Rounds half to even to four decimal places.
HRESULT ToCurrency(const Scalar& source, CY* value) noexcept;

// Keeps 7 digits of a float and 15 of a double; rounds half to even what has more than
// 28 decimal places or does not fit into 96 bits.
HRESULT ToDecimal(const Scalar& source, DECIMAL* value) noexcept;

HRESULT ToBool(const Scalar& source, VARIANT_BOOL* value) noexcept;

// The caller owns the string.
HRESULT ToText(const Scalar& source, BSTR* value) noexcept;

}  // namespace halyard
