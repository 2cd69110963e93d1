// IStringArray: an array of texts, kept narrow. Encoding: the count (4 bytes), then for
// each text its length plus 1 (2 bytes), its characters and a zero byte. A text that is
// longer than the rest of the buffer ends the reading with false; what it held stays.
//
// Add makes an empty text first, which stays where the value does not convert.
//
// Info takes array definitions of anybody. A null definition and an object that is no
// array definition are E_POINTER; for elements of another type than String, Info is S_OK
// and the array stays without a definition.
#pragma once

#include "halyard/values/arrays/array.h"

namespace halyard {

struct IStringArray : IArray {
  using Base = IArray;
  static constexpr IID kIid = {0x63A8E110, 0x4F40, 0x4A6E, {0xB5, 0x42, 0xD4, 0x41, 0xEA, 0xDA, 0x9C, 0x58}};
};

}  // namespace halyard
