// IOrmHelp: makes arrays without a definition made by hand first, and wraps a block of
// the client's memory as an array.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

struct ISimpleFixedArray;

struct IOrmHelp : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0x1E0AD807, 0x4C73, 0x4A4B, {0x82, 0xB2, 0xFA, 0x23, 0xA8, 0x0D, 0x91, 0x42}};

  // A new, empty array of variable length. The element type is a type name, a type
  // code, or a definition object (VT_DISPATCH) that becomes the element definition.
  // Null for types without a prepared definition (FixedString, ByteArray, Int64, codes
  // above 13) and for objects that are no definition. DISP_E_TYPEMISMATCH or
  // DISP_E_OVERFLOW for what does not convert to a type code. The caller owns the array.
  //
  // Its definition is named "Array<...>" after the element, and has the id 4700 plus the
  // type code (Long: 4708) or, over a definition object, that one's id plus 12000, in 16 bits.
  virtual HRESULT STDMETHODCALLTYPE CreateArray(VARIANT vElementType, IDispatch** ppResult) = 0;

  // An array of nElemCount elements over the caller's block, which it neither allocates
  // nor frees and which must outlive it. Null when wElementSize (bytes) times count is
  // not what the element type needs: 0 for String and FixedString. A count above 65535 is
  // cut to 16 bits. E_POINTER for type codes above 13, failures of the conversion as above.
  // The array has no definition, and so no numeric transfer; over a null block its elements
  // are E_POINTER. The caller owns the array.
  virtual HRESULT STDMETHODCALLTYPE CreateShellArray(VARIANT vElementType, USHORT wElementSize,
                                                     LONG nElemCount, unsigned char* pDataPointer,
                                                     ISimpleFixedArray** pResult) = 0;
};

}  // namespace halyard
