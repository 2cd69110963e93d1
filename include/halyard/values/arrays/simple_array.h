// ISimpleArray: elementary values of one type side by side in one block of memory.
//
// Element widths: Char and Byte 1, Short and Word 2, Long, DWord, Int64 and ShortReal 4,
// Real and Date 8 bytes; other types cannot be held. At is E_NOTIMPL, Name is empty.
#pragma once

#include "halyard/values/arrays/array.h"

namespace halyard {

// What the class SimpleArray answers: a growable array. Encoding: the count (4 bytes)
// and the block.
struct ISimpleArray : IArray {
  using Base = IArray;
  static constexpr IID kIid = {0xCB9DE1AC, 0x5EE6, 0x4E5B, {0x81, 0x06, 0x4B, 0xB6, 0xC0, 0x2C, 0x2B, 0x1F}};

  // The address of the first element. It changes whenever Add, Remove, RemoveAll or
  // ReadFromBuffer moves the block; the array keeps owning it.
  virtual HRESULT STDMETHODCALLTYPE get_GetDataPointer(LONG_PTR* pnPointer) = 0;
};

// What the class SimpleFixedArray answers: a fixed number of elements (at most 65535)
// in a block of its own or, as a shell, in memory of the caller. Encoding: the block.
struct ISimpleFixedArray : ISimpleArray {
  using Base = ISimpleArray;
  static constexpr IID kIid = {0x85678309, 0x2AA8, 0x49D6, {0xAD, 0x72, 0x81, 0xBB, 0x54, 0xF9, 0xCE, 0xDC}};
};

}  // namespace halyard
