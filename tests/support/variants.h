// Variants for tests: short makers, and a text form to compare them by.
#pragma once

#include <string>

#include "halyard/object/variant.h"

namespace halyard::test {

inline Variant I2(SHORT value) { return Variant(value); }
inline Variant I4(LONG value) { return Variant(value); }
inline Variant Ui1(BYTE value) { return Variant(value); }
inline Variant R4(float value) { return Variant(value); }
inline Variant R8(double value) { return Variant(value); }
inline Variant Text(const OLECHAR* value) { return Variant(value); }
inline Variant Date(DATE days) { return Variant::FromDate(days); }

// A variant of a type without content, or of a type that no variant can have.
Variant Tagged(VARTYPE type);

// VT_BYREF | VT_BSTR over a string that outlives it.
Variant ByReference(BSTR* text);

// A variant type that the automation library rejects.
inline constexpr VARTYPE kImpossibleType = 15;

// Type and content in one line: "I4 7", "BSTR abc", "R8 1.5", "DISPATCH". A character
// outside ASCII is shown as its number: "\u20AC".
std::string Describe(const VARIANT& value);
inline std::string Describe(const Variant& value) { return Describe(value.get()); }

// A wide text in the form that Describe shows; "(null)" for a null string.
std::string Plain(WideView text);
std::string Plain(BSTR text);

// Converts an object, by its default member, to a variant of that type, as the
// automation library does; the status of the conversion.
HRESULT ConvertObject(IUnknown* object, VARTYPE type, Variant* result);

}  // namespace halyard::test
