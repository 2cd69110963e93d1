// ISimpleValue: the default interface of the class SimpleValue, a single elementary
// datum. It has no calls of its own; the data is reached through IValueBase, which is
// also what the object answers when it is asked for IDispatch.
//
// A simple value keeps type code and field size of its definition and nothing else.
// Value converts what it is given to the variant type that it holds; what does not
// convert is dropped and the old content stays, with S_OK. Item reads the same
// content; Item (put), Add, Remove and RemoveAll do nothing. A definition that Info (put)
// cannot take leaves the value without a type, with S_OK as well. Info and Value (put) fail
// where memory runs out (E_OUTOFMEMORY), and not otherwise.
//
// Encoding: a String is a length (2 bytes) and that many narrow characters; any other
// type is its elementary bytes, for which the buffer size is NOT checked: the caller
// must give room for a whole field (8 bytes for an Int64, which counts 4). A Date outside
// the years 100 to 9999 cannot be written (DISP_E_OVERFLOW).
#pragma once

#include "halyard/values/value_base.h"

namespace halyard {

struct ISimpleValue : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0x698DB786, 0xC264, 0x4039, {0xA6, 0x4F, 0x25, 0x45, 0xD7, 0x55, 0x94, 0x9D}};
};

}  // namespace halyard
