// The type codes that every definition and every value carries.
//
// Codes 1 to 13 are elementary: one number, text or date. Codes 14 to 17 are composite
// and have a definition of their own class. The numbers are part of the file format.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

enum TypeCode : SHORT {
  kInvalid = 0,       // no type; also what an unknown type name stands for
  kString = 1,        // text of any length
  kFixedString = 2,   // text in a field of fixed length
  kByteArray = 3,     // raw bytes in a field of fixed length, carried but never interpreted
  kChar = 4,          // 8 bits
  kByte = 5,          // 8 bits, the same conversions as kChar
  kShort = 6,         // 16 bits
  kWord = 7,          // 16 bits, the same conversions as kShort
  kLong = 8,          // 32 bits
  kDWord = 9,         // 32 bits, the same conversions as kLong
  kInt64 = 10,        // sized 4 bytes by every definition
  kShortReal = 11,    // 32-bit IEEE number
  kReal = 12,         // 64-bit IEEE number
  kDate = 13,         // date and time to the second, 8 packed bytes
  kStructure = 14,    // named members in a fixed order
  kArray = 15,        // elements of one definition
  kCollection = 16,   // declared only: its values hold no data
  kEnumeration = 17,  // one of a list of named numbers
};

// The largest elementary code; anything above is composite or unknown.
inline constexpr SHORT kLastElementaryType = kDate;

// The largest size, in bytes, of a FixedString or ByteArray field; larger wishes are cut to it.
inline constexpr LONG kLargestFieldSize = 65000;

}  // namespace halyard
