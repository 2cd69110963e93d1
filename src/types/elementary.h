// Where elementary values meet bytes and variants: the one place that knows how each
// type lies in a buffer or block, which variant it becomes and which it is made from.
//
// Bytes are little-endian, unaligned and unpadded. Char and Byte are one conversion
// (VT_UI1), so are Short and Word (VT_I2), and Long, DWord and Int64 (VT_I4).
#pragma once

#include <cstdint>
#include <span>

#include "halyard/types/type_codes.h"

namespace halyard {

// No conversion touches more bytes than this, whatever the type (text fields aside).
inline constexpr std::size_t kWidestElementary = 8;

// The bytes counted for one value: the data size of its definition where that is not 0,
// else the elementary size. A String counts its own length elsewhere.
std::uint16_t ElementaryByteCount(SHORT type, std::uint16_t data_size) noexcept;

// The variant type that a type is converted to before it is stored; VT_EMPTY for types
// without a conversion (ByteArray, composite and unknown codes).
VARTYPE VariantTypeOf(SHORT type) noexcept;

// Makes `variant`, which already holds some value, hold the value at the start of
// `bytes`; what it held decides among equals: a VT_BOOL stays one where a whole number
// is read, a VT_ERROR where 4 bytes are, a VT_DATE where a Real is. False, and nothing
// touched, for codes other than FixedString and Char to Date.
//
// The caller must provide the bytes of the type; an Int64 is read from 4. The text of a
// FixedString goes on to the first zero, beyond its own field if that is full, but
// never beyond `bytes`.
bool ReadElementary(std::span<const unsigned char> bytes, SHORT type, VARIANT& variant);

// Stores the value of `variant`, converted to the type, at `bytes`. False, and nothing
// stored, for codes other than FixedString and Char to Date; a failing conversion is
// raised. A variant stored as a Date holds a VT_DATE afterwards.
//
// The caller must provide the bytes of the type: `data_size` for a FixedString, 8 for
// an Int64, which is stored sign-extended although it counts 4.
bool WriteElementary(VARIANT& variant, SHORT type, unsigned char* bytes, std::uint16_t data_size);

}  // namespace halyard
