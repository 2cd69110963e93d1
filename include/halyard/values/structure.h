// IStructure: a record value. Members are reached by name or position through Item and,
// where a member is an object of its own, through At.
//
// Two classes answer it. SimpleFixedStructure, for definitions whose members all have a
// fixed place, is one block of bytes: At is E_NOTIMPL and the encoding is the block.
// Structure keeps members of fixed size in a block and every other member as a value
// object, which is null (VT_NULL) where it was put so; the encoding is the members one
// after another, a member that can be null led by a flag byte (1: null, nothing follows).
//
// Info (put) fails for null (E_INVALIDARG) and where memory runs out (E_OUTOFMEMORY); any
// other definition that cannot be taken leaves the value without one, with S_OK. A failure
// that a client's definition reports is such a case, whatever its code.
//
// Item (put) converts to the type of the member. What does not convert fails for a fixed
// member; a member that is a value object decides itself, and a simple value drops it with
// S_OK. An object (VT_DISPATCH) that is put into such a member becomes the member itself,
// and makes it null where it is no value.
//
// A member that is null although it must not be makes PacketSize, WriteToBuffer and
// ReadFromBuffer E_POINTER; so does reading into a member that is null, until Item gives it
// a value again. Copy of a structure with null members is E_POINTER. Value (put), Add,
// Remove and RemoveAll do nothing.
//
// A position outside 0..count-1 and an unknown name mean no member: Item reads VT_NULL,
// Name the empty string, At null, and a put does nothing.
#pragma once

#include "halyard/values/value_base.h"

namespace halyard {

struct IStructure : IValueBase {
  using Base = IValueBase;
  static constexpr IID kIid = {0x0EBEB996, 0xAE39, 0x4AB3, {0x83, 0xC7, 0xAB, 0xBB, 0x87, 0x9A, 0x04, 0x61}};
};

// What the class SimpleFixedStructure answers.
struct ISimpleFixedStructure : IStructure {
  using Base = IStructure;
  static constexpr IID kIid = {0x7862DFDE, 0x0F59, 0x435C, {0xAB, 0xFC, 0x91, 0x5B, 0xB2, 0x89, 0xC3, 0x5C}};
};

}  // namespace halyard
