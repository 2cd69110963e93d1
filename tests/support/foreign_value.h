// A value of somebody else, of type Long and without content until a test says otherwise.
#pragma once

#include "halyard/object/variant.h"
#include "halyard/types/type_codes.h"
#include "halyard/values/value_base.h"
#include "tests/support/foreign.h"

namespace halyard::test {

class ForeignValue : public Foreign<IValueBase> {
 public:
  Answer<SHORT> type{kLong};
  Answer<SHORT> id{};
  Answer<ULONG> packet_size{0};
  ObjectAnswer<IValueBase> copied;
  BufferAnswer read;
  BufferAnswer write;
  HRESULT get_value_status = S_OK;
  HRESULT put_value_status = S_OK;

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT, VARIANT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT, VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Name(VARIANT, BSTR*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Count(LONG*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Add(VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_At(VARIANT, IValueBase**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* out) override {
    if (SUCCEEDED(get_value_status)) *out = Variant(LONG{7}).Detach();
    return get_value_status;
  }
  HRESULT STDMETHODCALLTYPE put_Value(VARIANT) override { return put_value_status; }
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** out) override { return copied.To(out); }
  HRESULT STDMETHODCALLTYPE get_Type(SHORT* out) override { return type.To(out); }
  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE put_Info(IValueDefBase*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE get_Id(SHORT* out) override { return id.To(out); }
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* out) override { return packet_size.To(out); }
  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char*, ULONG, ULONG* count,
                                           VARIANT_BOOL* result) override {
    return read.To(count, result);
  }
  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char*, ULONG, ULONG* count,
                                          VARIANT_BOOL* result) override {
    return write.To(count, result);
  }
  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR*) override { return E_NOTIMPL; }
};

}  // namespace halyard::test
