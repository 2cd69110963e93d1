// The position of an array element that a client's index means.
#pragma once

#include <string>

#include "halyard/object/variant.h"

namespace halyard {

// Raises E_INVALIDARG for a position outside the array and what the conversion of the
// index raises. `count_elements` tells the number of elements when it is needed: an index
// that is an object is asked for its value first, and its code may change the array.
template <class CountElements>
ULONG ElementPosition(const VARIANT& index, CountElements&& count_elements) {
  const LONG position = index.vt == VT_I4 ? index.lVal : Variant::Converted(index, VT_I4)->lVal;
  const ULONG count = count_elements();
  if (position < 0 || static_cast<ULONG>(position) >= count) {
    throw Error(E_INVALIDARG, "the array has " + std::to_string(count) + " elements and none at position " +
                                  std::to_string(position));
  }
  return static_cast<ULONG>(position);
}

}  // namespace halyard
