// ISimpleValueDef: the definition of one elementary value, with an optional range and
// script that travel with it. The definition carries them; nobody checks values
// against them.
//
// Encoding: type code (2 bytes), data size (2). Types String and Char to Real go on
// with the validation type (2): 0, or the type code again, followed by minimum and
// maximum (elementary size each), script length (2) and script text.
#pragma once

#include "halyard/definitions/value_def_base.h"

namespace halyard {

struct ISimpleValueDef : IValueDefBase {
  using Base = IValueDefBase;
  static constexpr IID kIid = {0x5DEFF013, 0x1882, 0x4D26, {0x96, 0x2E, 0xF7, 0xA3, 0xAD, 0xCD, 0xEA, 0xB2}};

  // The bounds of the range, copied in and out as they are, unconverted; of a reference,
  // what it points at when it is put. They are converted to the type's own variant type
  // when the definition is written; a bound that does not convert fails that call.
  virtual HRESULT STDMETHODCALLTYPE get_MinValue(VARIANT* pvMin) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_MinValue(VARIANT vMin) = 0;
  virtual HRESULT STDMETHODCALLTYPE get_MaxValue(VARIANT* pvMax) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_MaxValue(VARIANT vMax) = 0;

  // Whether range and script are written with the definition. Setting Type turns it off.
  virtual HRESULT STDMETHODCALLTYPE get_Validation(VARIANT_BOOL* pbValidation) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_Validation(VARIANT_BOOL bValidation) = 0;

  // A text for a validating client, in a language of its choice; null when there is
  // none. The caller frees the copy it gets.
  virtual HRESULT STDMETHODCALLTYPE get_ValidationScript(BSTR* psScript) = 0;
  virtual HRESULT STDMETHODCALLTYPE put_ValidationScript(BSTR sScript) = 0;

  // The field size in bytes of a FixedString or ByteArray, cut to 0..65000. Nothing
  // happens for other types.
  virtual HRESULT STDMETHODCALLTYPE SetDataSize(LONG nSize) = 0;
};

// What the class SimpleValueInfo answers.
struct ISimpleValueInfo : ISimpleValueDef {
  using Base = ISimpleValueDef;
  static constexpr IID kIid = {0x1F112FBC, 0xB767, 0x4696, {0x85, 0x9A, 0x13, 0x76, 0xF7, 0xD6, 0x97, 0xB0}};
};

}  // namespace halyard
