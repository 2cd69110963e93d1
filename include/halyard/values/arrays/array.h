// IArray: a value with elements of one definition, and the bulk transfer of one number
// of every element to or from a flat buffer.
//
// Member paths: "Depth" is the member Depth of each element, "Position.X" a member of a
// nested structure, "Samples[3]" an element of a nested array; the empty path is the
// element itself. "X[Y,Z]" and, where X is not wanted, "[Y,Z]" select several members of
// one structure, whose numbers follow one another for each element. An index of the
// array itself in front ("[3].Depth") is checked, but every element is visited all the
// same. A path has at most 510 characters, a "." or "[" at its start not counted, and
// selects at most 512 members.
//
// Number types are Char, Byte, Short, Word, Long, DWord, ShortReal and Real, given by
// name (letter case ignored) or code; Char members are signed here. With other number
// types, and for members of other types, nothing is moved and the result is true.
//
// What all arrays share: a position outside the array is E_INVALIDARG. Reading keeps the
// count that the buffer announces, also where the buffer then ends before the elements do.
#pragma once

#include "halyard/values/value_base.h"

namespace halyard {

struct IArray : IValueBase {
  using Base = IValueBase;
  static constexpr IID kIid = {0xF5F524F0, 0xF1CC, 0x4B4D, {0xAF, 0xF5, 0x96, 0x9F, 0x26, 0x63, 0x7E, 0x1E}};

  // Writes the number that the path selects in each element into pBuffer, in element
  // order, little-endian and without gaps, converted as C++ converts numbers (reals are
  // cut toward zero). False when the path is not understood; its fault is shown as a
  // message. The caller's buffer must hold elements x selected members x number width
  // bytes: its size is not known here and not checked.
  //
  // With the result false: E_POINTER for an array without a definition, as shells and their
  // copies are, and for a null buffer that numbers would go to; what definitions and the
  // conversion of the number type fail with. With the result true, when the elements in
  // front have moved already: E_POINTER for an empty slot or a null member on the way,
  // E_INVALIDARG for an element that a nested array lacks or that is of another type than
  // the definition says; what values fail with.
  virtual HRESULT STDMETHODCALLTYPE BuildNumericArray(BSTR szMemberString, VARIANT vtNumberType,
                                                      unsigned char* pBuffer, VARIANT_BOOL* pbResult) = 0;

  // The reverse: takes numbers from pBuffer, one an element, and stores them. False,
  // without a message, when the path is not understood. Fails as BuildNumericArray does.
  virtual HRESULT STDMETHODCALLTYPE ReadNumericArray(BSTR szMemberString, VARIANT vtNumberType,
                                                     unsigned char* pBuffer, VARIANT_BOOL* pbResult) = 0;
};

// What the class Array answers: an array of value objects (structures, enumerations,
// arrays, simple values). Encoding: the count (4 bytes, only where the definition fixes
// none) and the elements' own encodings one after another.
//
// Info: a null definition and an object that is no array definition of this library are
// E_INVALIDARG.
//
// Add of an object of the type and id that the element definition has makes that very
// object an element; for any other object a fresh element is added that takes its value.
// Anything but an object is taken likewise where elements are simple values, and does
// nothing for other elements. Item (put) of an object replaces the element, and empties
// the slot where it is no value; anything else is put into the element. At hands out the
// element itself.
//
// An array of fixed length ignores Add, Remove and RemoveAll. Item, Copy and WriteToBuffer
// are E_POINTER where they meet an empty slot, and PacketSize where it must ask the
// elements; reading gives it a fresh element.
struct IArrayImpl : IArray {
  using Base = IArray;
  static constexpr IID kIid = {0xF8C4CE65, 0xDC32, 0x4B21, {0xBF, 0xB1, 0x4A, 0xB6, 0x04, 0xE0, 0x01, 0x9C}};
};

}  // namespace halyard
