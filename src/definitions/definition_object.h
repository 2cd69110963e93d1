// What the definition classes have in common: buffer calls, type name, and the calls
// that composite definitions accept without storing anything.
//
// A class provides the constant `kTypeCode` (composite definitions) or hides TypeCode,
// and implements `bool Decode(ReadCursor&)` and `bool Encode(WriteCursor&)`: false when
// the buffer is too short, with the fields reached so far kept.
#pragma once

#include "halyard/definitions/value_def_base.h"
#include "object/buffer_calls.h"
#include "object/object.h"
#include "types/type_names.h"

namespace halyard {

template <class T, class... Interfaces>
class DefinitionObject : public Object<T, Interfaces...> {
 public:
  HRESULT STDMETHODCALLTYPE get_Type(SHORT* pnType) override {
    return this->Call("Type", [&] { Out(pnType) = Self().TypeCode(); });
  }

  HRESULT STDMETHODCALLTYPE put_Type(SHORT) override { return S_OK; }

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
      Out(pBuffer);
      WriteBuffer(pBuffer, dwBufferSize, pdwBytesWritten, pbResult,
                  [&](WriteCursor& cursor) { return Self().Encode(cursor); });
    });
  }

 protected:
  SHORT TypeCode() const noexcept { return T::kTypeCode; }

 private:
  T& Self() noexcept { return static_cast<T&>(*this); }
};

}  // namespace halyard
