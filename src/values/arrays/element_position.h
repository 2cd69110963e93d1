// The position of an array element that a client's index means.
#pragma once

#include <string>

#include "halyard/object/variant.h"

namespace halyard {

// Raises E_INVALIDARG for a position outside an array of `count` elements and what the
// conversion of the index raises.
inline ULONG ElementPosition(const VARIANT& index, ULONG count) {
  const LONG position = index.vt == VT_I4 ? index.lVal : Variant::Converted(index, VT_I4)->lVal;
  if (position < 0 || static_cast<ULONG>(position) >= count) {
    throw Error(E_INVALIDARG, "the array has " + std::to_string(count) + " elements and none at position " +
                                  std::to_string(position));
  }
  return static_cast<ULONG>(position);
}

}  // namespace halyard
