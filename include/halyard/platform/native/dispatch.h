// Late binding for platforms other than Windows: the declarations that the conversion
// of an object by its default member needs.
//
// Of the library's own objects, elsewhere than on Windows, only the default member can be
// read late; whatever else is asked of them is E_NOTIMPL.
#pragma once

#include "halyard/platform/native/variant.h"

// The number of a member in late-bound calls.
using DISPID = LONG;

// Members with fixed numbers: the default member, none, the argument that a put brings,
// and the enumerator of a collection.
inline constexpr DISPID DISPID_VALUE = 0;
inline constexpr DISPID DISPID_UNKNOWN = -1;
inline constexpr DISPID DISPID_PROPERTYPUT = -3;
inline constexpr DISPID DISPID_NEWENUM = -4;

// What Invoke is to do with a member, one bit each: call it, get it, put a value, put a
// reference to an object.
inline constexpr WORD DISPATCH_METHOD = 1;
inline constexpr WORD DISPATCH_PROPERTYGET = 2;
inline constexpr WORD DISPATCH_PROPERTYPUT = 4;
inline constexpr WORD DISPATCH_PROPERTYPUTREF = 8;

// The language of the person, which no call here looks at.
inline constexpr LCID LOCALE_USER_DEFAULT = 0x0400;

// The description of an interface; there is none elsewhere than on Windows.
struct ITypeInfo;

// Arguments of a late-bound call, last argument first: cArgs of them in all, the first
// cNamedArgs with the numbers in rgdispidNamedArgs. They stay the caller's.
struct DISPPARAMS {
  VARIANTARG* rgvarg;
  DISPID* rgdispidNamedArgs;
  UINT cArgs;
  UINT cNamedArgs;
};

// What went wrong in a late-bound call; the receiver frees the strings.
struct EXCEPINFO {
  WORD wCode;
  WORD wReserved;
  BSTR bstrSource;
  BSTR bstrDescription;
  BSTR bstrHelpFile;
  DWORD dwHelpContext;
  void* pvReserved;
  HRESULT (*pfnDeferredFillIn)(EXCEPINFO*);
  SCODE scode;
};

struct IDispatch : IUnknown {
  // How many descriptions of itself the object has: 0 for the library's own.
  virtual HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pctinfo) = 0;

  // One of them; the library's own objects set null and answer E_NOTIMPL.
  virtual HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo) = 0;

  // The numbers of a member and its arguments by name; E_NOTIMPL from the library's own.
  virtual HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID riid, LPOLESTR* rgszNames, UINT cNames, LCID lcid,
                                                  DISPID* rgDispId) = 0;

  // Gets, puts or calls a member. The library's own objects answer a get of DISPID_VALUE:
  // pVarResult, which the caller clears, receives the default member; E_POINTER where it
  // is null, DISP_E_BADPARAMCOUNT for arguments, E_NOTIMPL for every other member.
  virtual HRESULT STDMETHODCALLTYPE Invoke(DISPID dispIdMember, REFIID riid, LCID lcid, WORD wFlags,
                                           DISPPARAMS* pDispParams, VARIANT* pVarResult,
                                           EXCEPINFO* pExcepInfo, UINT* puArgErr) = 0;
};

inline constexpr IID IID_IDispatch = {
    0x00020400, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
