#include "stream/orm_session.h"

#include <string>

#include "platform/text.h"
#include "types/type_names.h"

namespace halyard {
namespace {

SHORT IdOf(const Ptr<IValueDefBase>& definition) {
  SHORT id = 0;
  Check(definition->get_Id(&id), definition);
  return id;
}

SHORT TypeOf(const Ptr<IValueDefBase>& definition) {
  SHORT type = 0;
  Check(definition->get_Type(&type), definition);
  return type;
}

bool HasName(const Ptr<IValueDefBase>& definition, const std::string& name) {
  Bstr text;
  Check(definition->get_Name(text.Out()), definition);
  return EqualIgnoringCase(NarrowToZero(text.View()), name);
}

}  // namespace

HRESULT OrmSession::GetTypeFromId(VARIANT vtType, SHORT wId, IValueDefBase** ppTypeInfo) {
  return Call("GetTypeFromId", [&] {
    Out(ppTypeInfo) = nullptr;
    const SHORT type = TypeCodeFromVariant(vtType);
    if (type == kInvalid) return;
    const std::size_t place = Find(type, wId);
    if (place == kNone) return;
    const Ptr<IValueDefBase> found = definitions_[place];
    Check(found->QueryInterface(IidOf<IValueDefBase>, reinterpret_cast<void**>(ppTypeInfo)), found);
  });
}

HRESULT OrmSession::AddType(IValueDefBase* pType, VARIANT_BOOL* pbResult) {
  return Call("AddType", [&] {
    Out(pbResult) = VARIANT_FALSE;
    Ptr<IValueDefBase> definition = QueryFor<IValueDefBase>(pType);
    if (!definition || IdOf(definition) == 0) return;
    const SHORT type = TypeOf(definition);
    const SHORT id = IdOf(definition);
    *pbResult = VARIANT_TRUE;
    const std::size_t place = Find(type, id);
    if (place == kNone) {
      definitions_.push_back(std::move(definition));
    } else {
      definitions_[place] = std::move(definition);
    }
  });
}

HRESULT OrmSession::GetStructureByName(BSTR szName, IStructureDef** pStruct) {
  return Call("GetStructureByName", [&] {
    Out(pStruct) = nullptr;
    const std::string name = NarrowToZero(ViewOf(szName));
    for (std::size_t i = 0; i < definitions_.size(); ++i) {
      const Ptr<IValueDefBase> definition = definitions_[i];
      if (!HasName(definition, name) || TypeOf(definition) != kStructure) continue;
      *pStruct = QueryFor<IStructureDef>(definition.get()).Detach();
      return;
    }
  });
}

std::size_t OrmSession::Find(SHORT type, SHORT id) const {
  // By place and with a reference: a definition of the client's may add others while it
  // is asked.
  for (std::size_t i = 0; i < definitions_.size(); ++i) {
    const Ptr<IValueDefBase> definition = definitions_[i];
    if (IdOf(definition) == id && TypeOf(definition) == type) return i;
  }
  return kNone;
}

}  // namespace halyard
