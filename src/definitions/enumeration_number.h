// The number of an enumeration as it lies in encodings, of the definition's elements and
// of values alike: signed, in 1, 2 or 4 bytes for the number types Char, Short and Long.
#pragma once

#include "halyard/platform/automation.h"
#include "object/cursor.h"

namespace halyard {

// The bytes that a number takes; 0 for a number type that has no encoding.
std::size_t EnumerationNumberWidth(SHORT type) noexcept;

// Takes a number, its sign kept; nothing is taken for a type without encoding.
[[nodiscard]] bool TakeEnumerationNumber(ReadCursor& cursor, SHORT type, LONG& value) noexcept;

// Puts the low bytes of a number; nothing for a type without encoding.
[[nodiscard]] bool PutEnumerationNumber(WriteCursor& cursor, SHORT type, LONG value) noexcept;

}  // namespace halyard
