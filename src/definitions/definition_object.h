// What the definition classes have in common (see types/encoded_object.h), and the put of
// a type, which composite definitions accept without storing anything.
#pragma once

#include "definitions/held_definition.h"
#include "halyard/definitions/value_def_base.h"
#include "types/encoded_object.h"

namespace halyard {

template <class T, class... Interfaces>
class DefinitionObject : public EncodedObject<T, Interfaces..., IInsideDefinition> {
 public:
  HRESULT STDMETHODCALLTYPE put_Type(SHORT) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE WriteToBuffer(unsigned char* pBuffer, ULONG dwBufferSize, ULONG* pdwBytesWritten,
                                          VARIANT_BOOL* pbResult) override {
    if (pBuffer == nullptr) {
      return this->Call("WriteToBuffer", [] { throw Error(E_POINTER, "the buffer is a null pointer"); });
    }
    return EncodedObject<T, Interfaces..., IInsideDefinition>::WriteToBuffer(pBuffer, dwBufferSize,
                                                                             pdwBytesWritten, pbResult);
  }

  IValueDefBase* Itself() noexcept override {
    return this->IsPart() ? nullptr : static_cast<IValueDefBase*>(static_cast<T*>(this));
  }
};

}  // namespace halyard
