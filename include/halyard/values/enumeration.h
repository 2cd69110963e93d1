// IEnumeration: a value of an enumeration, held and exchanged as its number. Names stay
// with the definition, and the number is never compared with the elements. Item reads the
// number as Value does; Item (put), Add, Remove and RemoveAll do nothing.
//
// Encoding: the number in 1, 2 or 4 bytes for a stored type of Char, Short or Long;
// other stored types have a PacketSize but cannot be written or read (result false).
#pragma once

#include "halyard/values/value_base.h"

namespace halyard {

struct IEnumeration : IValueBase {
  using Base = IValueBase;
  static constexpr IID kIid = {0xAA83A492, 0x9F82, 0x47F5, {0xA4, 0xDE, 0x51, 0x3C, 0xBA, 0x4D, 0x0B, 0x24}};
};

}  // namespace halyard
