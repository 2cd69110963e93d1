// What definitions and values have in common: a type code with a name, and an encoding.
//
// A class provides the constant `kTypeCode` or hides TypeCode, and implements
// `bool Decode(ReadCursor&)` and `bool Encode(WriteCursor&)`: false when the buffer is
// too short, with what was reached so far kept.
#pragma once

#include "object/buffer_calls.h"
#include "object/object.h"
#include "types/type_names.h"

namespace halyard {

template <class T, class... Interfaces>
class EncodedObject : public Object<T, Interfaces...> {
 public:
  HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) override {
    return this->Call("Type", [&] { Out(pnType) = Self().TypeCode(); });
  }

  HRESULT STDMETHODCALLTYPE get_TypeString(BSTR* psType) override {
    return this->Call("TypeString",
                      [&] { HandOut(psType, [&] { return TypeCodeNameText(Self().TypeCode()); }); });
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

  // The empty string, for a client.
  static Bstr NewEmptyText() { return Bstr(WideView()); }
};

}  // namespace halyard
