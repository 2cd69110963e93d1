// What enumeration, structure and array definitions have in common beyond the definition
// base: an identity, which clients read and change as Id and Name.
#pragma once

#include "definitions/definition_key.h"
#include "definitions/definition_object.h"
#include "definitions/identity.h"

namespace halyard {

template <class T, class... Interfaces>
class CompositeDefinition : public DefinitionObject<T, Interfaces..., IKeyedDefinition> {
 public:
  HRESULT STDMETHODCALLTYPE get_Id(SHORT* pnId) override {
    return this->Call("Id", [&] { Out(pnId) = static_cast<SHORT>(identity_.id()); });
  }

  HRESULT STDMETHODCALLTYPE put_Id(SHORT nId) override {
    identity_.SetId(static_cast<std::uint16_t>(nId));
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE get_Name(BSTR* psName) override {
    return this->Call("Name", [&] { HandOut(psName, [&] { return identity_.NewName(); }); });
  }

  HRESULT STDMETHODCALLTYPE put_Name(BSTR sName) override {
    return this->Call("Name", [&] { identity_.SetName(sName); });
  }

  bool WatchKey(const IValueDefBase* definition) noexcept override {
    if (definition != static_cast<const IValueDefBase*>(static_cast<T*>(this))) return false;
    identity_.WatchId();
    return true;
  }

 protected:
  Identity identity_;
};

}  // namespace halyard
