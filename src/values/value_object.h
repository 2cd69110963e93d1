// What the value classes have in common (see types/encoded_object.h), and the calls of
// IValueBase that most kinds have no use for.
#pragma once

#include "halyard/object/variant.h"
#include "halyard/values/value_base.h"
#include "types/encoded_object.h"

namespace halyard {

template <class T, class... Interfaces>
class ValueObject : public EncodedObject<T, Interfaces...> {
 public:
  HRESULT STDMETHODCALLTYPE Add(VARIANT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return S_OK; }

 protected:
  // This object as the content of a composite value: VT_DISPATCH with a reference.
  Variant AsObject() noexcept {
    return Variant(
        static_cast<IDispatch*>(static_cast<typename Object<T, Interfaces...>::MainInterface*>(this)));
  }
};

}  // namespace halyard
