// What the value classes have in common (see types/encoded_object.h), and the calls of
// IValueBase that most kinds have no use for.
#pragma once

#include "halyard/object/variant.h"
#include "halyard/values/value_base.h"
#include "types/encoded_object.h"
#include "values/inside_value.h"

namespace halyard {

template <class T, class... Interfaces>
class ValueObject : public EncodedObject<T, Interfaces..., IInsideValue> {
 public:
  // Classes that promise more than nothing have a constant of their own.
  static constexpr ValueTraits kTraits{};

  HRESULT STDMETHODCALLTYPE Add(VARIANT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE Remove(VARIANT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE RemoveAll() override { return S_OK; }

  IValueBase* Outside() noexcept override { return static_cast<Main*>(this); }

  bool DecodeInside(ReadCursor& cursor) override {
    return Inside("ReadFromBuffer", [&] { return this->Self().Decode(cursor); });
  }

  bool EncodeInside(WriteCursor& cursor) override {
    return Inside("WriteToBuffer", [&] { return this->Self().Encode(cursor); });
  }

  bool FindReadyBody(ReadyBody&) override { return false; }
  bool Renew(IValueDefBase*, REFCLSID) override { return false; }

  // A part of another object promises nothing: to hold it is to hold the whole.
  ValueTraits Traits() const noexcept final { return this->IsPart() ? ValueTraits{} : T::kTraits; }

 protected:
  // This object as the content of a composite value: VT_DISPATCH with a reference.
  Variant AsObject() noexcept { return Variant(static_cast<IDispatch*>(static_cast<Main*>(this))); }

 private:
  using Main = typename Object<T, Interfaces..., IInsideValue>::MainInterface;

  // Runs the body of the public call `operation` for a caller inside the library.
  template <class Body>
  bool Inside(const char* operation, Body&& body) {
    try {
      return body();
    } catch (...) {
      ReraiseAsOf(T::kClassName, operation);
    }
  }
};

}  // namespace halyard
