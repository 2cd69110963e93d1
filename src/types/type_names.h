// The names of the type codes, the sizes that definitions assume for them, and the
// look-ups between code and name.
#pragma once

#include <cstdint>

#include "halyard/object/bstr.h"
#include "halyard/types/type_codes.h"

namespace halyard {

// The name of a code, a constant of the library; "Unknown" for a code without one.
const char* TypeCodeName(SHORT code) noexcept;

// The same as a wide string for a client.
Bstr TypeCodeNameText(SHORT code);

// The code that a client's type argument means: a VT_BSTR is a type name, letter case
// ignored, and 0 when no type has it, even if it holds digits; any other variant is
// converted to VT_I2 and taken as the code, unchecked. A failing conversion is raised.
SHORT TypeCodeFromVariant(const VARIANT& type);

// The bytes that a definition assumes for a value of a code: 1, 2, 4 or 8 for Char to
// Date, 0 for every other code. An Int64 is sized 4, as definitions on both sides of a
// stream must agree.
std::uint16_t ElementarySize(SHORT code) noexcept;

}  // namespace halyard
