// The system's script registrar, which carries out registry scripts: a class of the
// active template library that is installed with the system.
#pragma once

#include "halyard/object/ptr.h"

namespace halyard {

inline constexpr CLSID kScriptRegistrarClass = {
    0x44EC053A, 0x400F, 0x11D0, {0x9D, 0xCD, 0x00, 0xA0, 0xC9, 0x03, 0x91, 0xD3}};

struct IScriptRegistrar : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x44EC053B, 0x400F, 0x11D0, {0x9D, 0xCD, 0x00, 0xA0, 0xC9, 0x03, 0x91, 0xD3}};

  // Makes %key% in a script stand for a text.
  virtual HRESULT STDMETHODCALLTYPE AddReplacement(LPCOLESTR key, LPCOLESTR text) = 0;
  virtual HRESULT STDMETHODCALLTYPE ClearReplacements() = 0;

  // Carries out the script in a named resource of a file.
  virtual HRESULT STDMETHODCALLTYPE ResourceRegisterSz(LPCOLESTR file, LPCOLESTR name, LPCOLESTR type) = 0;
  virtual HRESULT STDMETHODCALLTYPE ResourceUnregisterSz(LPCOLESTR file, LPCOLESTR name, LPCOLESTR type) = 0;

  // Carries out the script in a file.
  virtual HRESULT STDMETHODCALLTYPE FileRegister(LPCOLESTR file) = 0;
  virtual HRESULT STDMETHODCALLTYPE FileUnregister(LPCOLESTR file) = 0;

  // Carries out a script.
  virtual HRESULT STDMETHODCALLTYPE StringRegister(LPCOLESTR script) = 0;
  virtual HRESULT STDMETHODCALLTYPE StringUnregister(LPCOLESTR script) = 0;

  // Carries out the script in a numbered resource of a file.
  virtual HRESULT STDMETHODCALLTYPE ResourceRegister(LPCOLESTR file, UINT number, LPCOLESTR type) = 0;
  virtual HRESULT STDMETHODCALLTYPE ResourceUnregister(LPCOLESTR file, UINT number, LPCOLESTR type) = 0;
};

}  // namespace halyard
