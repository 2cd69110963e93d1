// The scripting-safety interface for platforms other than Windows.
#pragma once

#include "halyard/platform/native/unknown.h"

// What an object may promise to a host of scripts, one bit each: to do no harm whoever
// calls it, and whatever data it is given.
inline constexpr DWORD INTERFACESAFE_FOR_UNTRUSTED_CALLER = 1;
inline constexpr DWORD INTERFACESAFE_FOR_UNTRUSTED_DATA = 2;

struct IObjectSafety : IUnknown {
  // The promises that the object can give for an interface, and those that are asked of it
  // now. E_NOINTERFACE, with both set to 0, for an interface that the object lacks;
  // E_POINTER for a null out pointer.
  virtual HRESULT STDMETHODCALLTYPE GetInterfaceSafetyOptions(REFIID riid, DWORD* pdwSupportedOptions,
                                                              DWORD* pdwEnabledOptions) = 0;

  // Asks for promises. The library's own objects drop the bits of dwEnabledOptions from
  // what was asked so far and then add those of dwOptionSetMask. E_FAIL, with nothing
  // changed, for a mask with promises that cannot be given; E_NOINTERFACE as above.
  virtual HRESULT STDMETHODCALLTYPE SetInterfaceSafetyOptions(REFIID riid, DWORD dwOptionSetMask,
                                                              DWORD dwEnabledOptions) = 0;
};

inline constexpr IID IID_IObjectSafety = {
    0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
