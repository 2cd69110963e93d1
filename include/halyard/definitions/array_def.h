// IArrayDef: the definition of an array, an element definition and a count. A count of
// 0 means that each value has a length of its own.
//
// Which class a value gets follows from the element type: String a StringArray, other
// elementary types a SimpleFixedArray (fixed count) or SimpleArray, composite types an
// Array. Without an element definition, every call that needs one is E_POINTER.
//
// DataSize is the element definition's DataSize times the count. CalculateDataSize lets
// the element definition calculate itself and counts the low 16 bits of its size only;
// it alone tells the simple arrays that are made later how wide their elements are.
//
// Encoding: id (2 bytes), name and caption (length 2, narrow text each), element count
// (2, the low 16 bits), element type (2), element size (2, the low 16 bits), then the
// element definition's own encoding. Of the pointers, this class's buffer calls need the
// result only; a null buffer is an empty one.
#pragma once

#include "halyard/definitions/value_def_base.h"

namespace halyard {

struct IArrayDef : IValueDefBase {
  using Base = IValueDefBase;
  static constexpr IID kIid = {0xAE44EAB0, 0x13E2, 0x492B, {0xB1, 0x3C, 0x51, 0xC9, 0xE1, 0x33, 0x69, 0xBE}};

  // The element definition's type code. A put of an elementary code makes a simple
  // element definition where there is none; codes above 13 are ignored.
  virtual HRESULT STDMETHODCALLTYPE get_DataType(SHORT* pnType) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_DataType(SHORT nType) = 0;

  // The element definition (the caller owns the reference), or null. A put shares the
  // object; null, or an object that is no definition, leaves none.
  virtual HRESULT STDMETHODCALLTYPE get_ValueType(IValueDefBase** ppDef) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_ValueType(IValueDefBase* pDef) = 0;

  // The number of elements that every value has; 0 for values of their own length. Kept
  // unchecked: sizes take a negative count as 32 bits without a sign, the encoding and the
  // simple arrays of a fixed count take its low 16 bits.
  virtual HRESULT STDMETHODCALLTYPE get_ElementCount(LONG* pnCount) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_ElementCount(LONG nCount) = 0;

  // The name of the element type; the caller frees it.
  virtual HRESULT STDMETHODCALLTYPE get_DataTypeString(BSTR* psType) = 0;
};

}  // namespace halyard
