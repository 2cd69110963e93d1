// Error objects for platforms other than Windows: each thread has a slot for the
// description of its last failed call.
#pragma once

#include "halyard/platform/native/bstr.h"
#include "halyard/platform/native/unknown.h"

// Describes a failure. The caller owns the strings it receives, which are null where
// nothing was set. A null out pointer is E_INVALIDARG.
struct IErrorInfo : IUnknown {
  // The interface whose call failed; all zeros for none in particular.
  virtual HRESULT STDMETHODCALLTYPE GetGUID(GUID* pGUID) = 0;

  // The class that failed, as its programmatic name ("Halyard.Unit").
  virtual HRESULT STDMETHODCALLTYPE GetSource(BSTR* pBstrSource) = 0;

  // What went wrong, in a sentence.
  virtual HRESULT STDMETHODCALLTYPE GetDescription(BSTR* pBstrDescription) = 0;

  // A file that helps, and the number of the topic in it.
  virtual HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* pBstrHelpFile) = 0;
  virtual HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* pdwHelpContext) = 0;
};

// Fills in an error object: each call sets what the call of the same name of IErrorInfo
// gets. Texts end at their first zero and are copied, a null one takes the text away;
// E_OUTOFMEMORY leaves the old one.
struct ICreateErrorInfo : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE SetGUID(REFGUID rguid) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR szSource) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR szDescription) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR szHelpFile) = 0;
  virtual HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD dwHelpContext) = 0;
};

// Tells whether failures of an interface come with error objects.
struct ISupportErrorInfo : IUnknown {
  virtual HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) = 0;
};

inline constexpr IID IID_IErrorInfo = {
    0x1CF2B120, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
inline constexpr IID IID_ICreateErrorInfo = {
    0x22F03340, 0x547D, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};
inline constexpr IID IID_ISupportErrorInfo = {
    0xDF0B3D60, 0x548F, 0x101B, {0x8E, 0x65, 0x08, 0x00, 0x2B, 0x2B, 0xD1, 0x19}};

// A new, empty error object that answers ICreateErrorInfo and IErrorInfo; the caller owns
// it. E_INVALIDARG for a null result, E_OUTOFMEMORY when memory is out.
HRESULT CreateErrorInfo(ICreateErrorInfo** result);

// Makes `info` (null empties the slot) the error object of this thread. `reserved` must
// be 0; E_INVALIDARG, and nothing is changed, otherwise.
HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* info);

// Takes the error object out of this thread's slot; the caller owns it. S_FALSE and
// null when the slot is empty; E_INVALIDARG for a null result or a `reserved` other than 0.
HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** result);
