// A value of somebody else whose failures come with words of its own.
#pragma once

#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {

class SpeakingValue : public ForeignValue, public ISupportErrorInfo {
 public:
  // Whether it says that it supports error information for values.
  bool supports = true;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    if (!(riid == IidOf<ISupportErrorInfo>)) return ForeignValue::QueryInterface(riid, ppvObject);
    *ppvObject = static_cast<ISupportErrorInfo*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ForeignValue::AddRef(); }
  ULONG STDMETHODCALLTYPE Release() override { return ForeignValue::Release(); }

  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) override {
    return supports && riid == IidOf<IValueBase> ? S_OK : S_FALSE;
  }

  HRESULT STDMETHODCALLTYPE put_Value(VARIANT) override {
    if (supports) LeaveWords(OLESTR("Client"), OLESTR("the client's own words"));
    return E_ABORT;
  }
};

}  // namespace halyard::test
