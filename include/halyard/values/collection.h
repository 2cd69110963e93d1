// ICollection: the value class of type code 16. It holds no data: Type and TypeString
// answer, every other call is E_NOTIMPL and leaves its out arguments alone; PacketSize is
// E_NOTIMPL, too, but writes 0.
#pragma once

#include "halyard/values/value_base.h"

namespace halyard {

struct ICollection : IValueBase {
  using Base = IValueBase;
  static constexpr IID kIid = {0xA7BB8F24, 0xFEE7, 0x486F, {0x9F, 0xFA, 0xC4, 0xBC, 0x9F, 0x1E, 0x59, 0xFA}};
};

// What the class Collection answers.
struct ICollectionImpl : ICollection {
  using Base = ICollection;
  static constexpr IID kIid = {0xBB307E80, 0x0314, 0x43D5, {0xAF, 0x98, 0x1C, 0x93, 0x19, 0x12, 0x1A, 0x46}};
};

}  // namespace halyard
