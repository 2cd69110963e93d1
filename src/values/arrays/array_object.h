// What the four array classes share: a definition, a name that is always empty, and
// Value, which is the array itself.
#pragma once

#include "halyard/values/arrays/array.h"
#include "values/arrays/array_type.h"
#include "values/value_object.h"

namespace halyard {

template <class T, class... Interfaces>
class ArrayObject : public ValueObject<T, Interfaces...> {
 public:
  static constexpr SHORT kTypeCode = kArray;

  HRESULT STDMETHODCALLTYPE get_Name(VARIANT, BSTR* psName) override {
    return this->Call("Name", [&] { HandOut(psName, [&] { return this->NewEmptyText(); }); });
  }

  // Elements are no objects of their own unless a class says otherwise.
  HRESULT STDMETHODCALLTYPE get_At(VARIANT, IValueBase** ppValue) override {
    return this->Call("At", [&] {
      EmptyOut(ppValue);
      throw Error(E_NOTIMPL, "the elements of this array are no objects of their own; use Item");
    });
  }

  HRESULT STDMETHODCALLTYPE get_Value(VARIANT* pvValue) override {
    return this->Call("Value", [&] { HandOut(pvValue, this->AsObject()); });
  }

  HRESULT STDMETHODCALLTYPE put_Value(VARIANT) override { return S_OK; }

  HRESULT STDMETHODCALLTYPE get_Info(IValueDefBase** ppInfo) override {
    return this->Call("Info", [&] { HandOut(ppInfo, [&] { return type_.BaseDefinition(); }); });
  }

  HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) override {
    return this->Call("Id", [&] { Out(pnId) = type_.Id(); });
  }

 protected:
  ArrayType type_;
};

}  // namespace halyard
