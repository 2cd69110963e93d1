// The scripting-safety interface for platforms other than Windows.
#pragma once

#include "halyard/platform/native/unknown.h"

inline constexpr DWORD INTERFACESAFE_FOR_UNTRUSTED_CALLER = 1;
inline constexpr DWORD INTERFACESAFE_FOR_UNTRUSTED_DATA = 2;

struct IObjectSafety : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE GetInterfaceSafetyOptions(REFIID riid, DWORD* pdwSupportedOptions,
                                                              DWORD* pdwEnabledOptions) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetInterfaceSafetyOptions(REFIID riid, DWORD dwOptionSetMask,
                                                              DWORD dwEnabledOptions) = 0;
};

inline constexpr IID IID_IObjectSafety = {
    0xCB5BDC81, 0x93C1, 0x11CF, {0x8F, 0x20, 0x00, 0x80, 0x5F, 0x2C, 0xD0, 0x64}};
