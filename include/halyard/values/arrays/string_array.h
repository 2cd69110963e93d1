// IStringArray: an array of texts, kept narrow. Encoding: the count (4 bytes), then for
// each text its length plus 1 (2 bytes), its characters and a zero byte.
#pragma once

#include "halyard/values/arrays/array.h"

namespace halyard {

struct IStringArray : IArray {
  using Base = IArray;
  static constexpr IID kIid = {0x63A8E110, 0x4F40, 0x4A6E, {0xB5, 0x42, 0xD4, 0x41, 0xEA, 0xDA, 0x9C, 0x58}};
};

}  // namespace halyard
