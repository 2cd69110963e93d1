// The root of all interfaces for platforms other than Windows.
#pragma once

#include "halyard/platform/native/hresult.h"

struct IUnknown {
  // Asks for another interface of the same object. On success the result carries a
  // reference of its own; otherwise it is null and the status is E_NOINTERFACE.
  virtual HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) = 0;

  // Counts one reference more. The number returned is for diagnosis only.
  virtual ULONG STDMETHODCALLTYPE AddRef() = 0;

  // Gives one reference back; the object destroys itself with the last one.
  virtual ULONG STDMETHODCALLTYPE Release() = 0;
};

inline constexpr IID IID_NULL = {0, 0, 0, {0, 0, 0, 0, 0, 0, 0, 0}};
inline constexpr IID IID_IUnknown = {
    0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
