// ISimpleArray: elementary values of one type side by side in one block of memory.
//
// Element widths: Char and Byte 1, Short and Word 2, Long, DWord, Int64 and ShortReal 4,
// Real and Date 8 bytes; other types cannot be held. At is E_NOTIMPL, Name is empty.
//
// Storing an Int64 writes 8 bytes, as far as the array reaches: the following element
// becomes 0, or -1 behind a negative number. Whatever is stored last counts.
//
// Info: a null definition and an object that is no array definition of this library are
// E_INVALIDARG. Where the class cannot serve a definition, for the type of its elements or,
// in a SimpleArray, for its fixed count, Info is S_OK and the array takes the count but
// stays without a definition.
#pragma once

#include "halyard/values/arrays/array.h"

namespace halyard {

// What the class SimpleArray answers: a growable array. Encoding: the count (4 bytes)
// and the block. Add makes an element of zeros first, which stays where the value does not
// convert.
//
// Elements that were announced but did not arrive are zeros without memory. Where they
// would take more than 16 MiB, storing a single one, Add and GetDataPointer are
// E_OUTOFMEMORY.
struct ISimpleArray : IArray {
  using Base = IArray;
  static constexpr IID kIid = {0xCB9DE1AC, 0x5EE6, 0x4E5B, {0x81, 0x06, 0x4B, 0xB6, 0xC0, 0x2C, 0x2B, 0x1F}};

  // The address of the first element. It changes whenever Add, Remove, RemoveAll or
  // ReadFromBuffer moves the block; the array keeps owning it.
  virtual HRESULT STDMETHODCALLTYPE get_GetDataPointer(LONG_PTR* pnPointer) = 0;
};

// What the class SimpleFixedArray answers: a fixed number of elements (at most 65535)
// in a block of its own or, as a shell, in memory of the caller. Encoding: the block.
// Shells and their copies have no definition; a shell keeps its shape when it is given one.
struct ISimpleFixedArray : ISimpleArray {
  using Base = ISimpleArray;
  static constexpr IID kIid = {0x85678309, 0x2AA8, 0x49D6, {0xAD, 0x72, 0x81, 0xBB, 0x54, 0xF9, 0xCE, 0xDC}};
};

}  // namespace halyard
