// IEnumerationDef: the definition of an enumerated value, an ordered list of names with
// signed 32-bit numbers, stored in values as a Char, Short or Long.
//
// Encoding: id (2 bytes), name and caption (length 2, narrow text each), stored number
// type (2), element count (2); then for each element its number (1, 2 or 4 bytes) and
// its name (length 2, narrow text).
#pragma once

#include "halyard/definitions/value_def_base.h"

namespace halyard {

struct IEnumerationDef : IValueDefBase {
  using Base = IValueDefBase;
  static constexpr IID kIid = {0x58D25DAD, 0x9B1D, 0x4BD5, {0x8A, 0xF6, 0xAA, 0x14, 0x1A, 0x61, 0xB3, 0x88}};

  // The number of elements.
  virtual HRESULT STDMETHODCALLTYPE get_ElementCount(LONG* pnCount) = 0;

  // The name of the element at a position; E_INVALIDARG outside 0..count-1. The caller
  // frees the string, which is null for an element without a name.
  virtual HRESULT STDMETHODCALLTYPE get_ElementName(LONG nIndex, BSTR* psName) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_ElementName(LONG nIndex, BSTR sName) = 0;

  // The number of the element at a position; E_INVALIDARG outside 0..count-1.
  virtual HRESULT STDMETHODCALLTYPE get_ElementValue(LONG nIndex, LONG* pnValue) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_ElementValue(LONG nIndex, LONG nValue) = 0;

  // The number type that values are stored in: Char, Short or Long. Others are ignored.
  virtual HRESULT STDMETHODCALLTYPE get_DataType(SHORT* pnType) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_DataType(SHORT nType) = 0;

  // Appends an element; always true. Neither name nor number is checked: both may
  // repeat, and a number too wide for the stored type is cut when it is written.
  virtual HRESULT STDMETHODCALLTYPE AddMember(BSTR sName, LONG nValue, VARIANT_BOOL* pbResult) = 0;

  // Takes an element out; later ones move down. E_INVALIDARG outside 0..count-1.
  virtual HRESULT STDMETHODCALLTYPE Remove(LONG nIndex) = 0;

  // Takes all elements out.
  virtual HRESULT STDMETHODCALLTYPE RemoveAll() = 0;

  // The name of the stored number type; the caller frees it.
  virtual HRESULT STDMETHODCALLTYPE get_DataTypeString(BSTR* psType) = 0;
};

// What the class EnumerationInfo answers.
struct IEnumerationInfo : IEnumerationDef {
  using Base = IEnumerationDef;
  static constexpr IID kIid = {0x9D9BA863, 0x5B55, 0x44F3, {0xA2, 0x00, 0x83, 0x4D, 0xB8, 0xFD, 0x48, 0xB0}};
};

}  // namespace halyard
