// What the value classes have in common: type code and name, buffer calls, and the calls
// of IValueBase that most kinds have no use for.
//
// A class provides the constant `kTypeCode` or hides TypeCode, and implements
// `bool Decode(ReadCursor&)` and `bool Encode(WriteCursor&)`: false when the buffer is
// too short.
#pragma once

#include "halyard/object/variant.h"
#include "halyard/values/value_base.h"
#include "object/buffer_calls.h"
#include "object/object.h"
#include "types/type_names.h"

namespace halyard {

template <class T, class... Interfaces>
class ValueObject : public Object<T, Interfaces...> {
 public:
  HRESULT STDMETHODCALLTYPE Add(VARIANT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return S_OK; }

  HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) override {
    return this->Call("Type", [&] { Out(pnType) = Self().TypeCode(); });
  }

  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* psType) override {
    return this->Call("TypeString", [&] { HandOut(psType, TypeCodeNameText(Self().TypeCode())); });
  }

  HRESULT STDMETHODCALLTYPE ReadFromBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesRead,
                                           VARIANT_BOOL* pbResult) override {
    return this->Call("ReadFromBuffer", [&] {
      ReadBuffer(pBuffer, dwBufferSize, pdwBytesRead, pbResult,
                 [&](ReadCursor& cursor) { return Self().Decode(cursor); });
    });
  }

  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                                          VARIANT_BOOL* pbResult) override {
    return this->Call("WriteToBuffer", [&] {
      WriteBuffer(pBuffer, dwBufferSize, pdwBytesWritten, pbResult,
                  [&](WriteCursor& cursor) { return Self().Encode(cursor); });
    });
  }

 protected:
  SHORT TypeCode() const noexcept { return T::kTypeCode; }

  T& Self() noexcept { return static_cast<T&>(*this); }

  // This object as the content of a composite value: VT_DISPATCH with a reference.
  Variant AsObject() noexcept {
    return Variant(
        static_cast<IDispatch*>(static_cast<typename Object<T, Interfaces...>::MainInterface*>(this)));
  }

  // The empty string, for a client.
  static Bstr NewEmptyText() { return Bstr(WideView()); }
};

}  // namespace halyard
