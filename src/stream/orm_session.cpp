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

// Whether the definition tells of changes of its key from now on.
bool Watch(const Ptr<IValueDefBase>& definition) {
  const auto keyed = definition.As<IKeyedDefinition>();
  return keyed && keyed->WatchKey(definition.get());
}

bool HasName(const Ptr<IValueDefBase>& definition, const std::string& name) {
  Bstr text;
  Check(definition->get_Name(text.Out()), definition);
  return EqualIgnoringCase(NarrowToZero(text.View()), name);
}

}  // namespace

HRESULT OrmSession::GetTypeFromId(VARIANT vtType, SHORT wId, IValueDefBase** ppTypeInfo) {
  return Call("GetTypeFromId", [&] {
    EmptyOut(ppTypeInfo);
    const SHORT type = TypeCodeFromVariant(vtType);
    if (type == kInvalid) return;
    const std::size_t place = Find(type, wId);
    if (place == kNone) return;
    const Ptr<IValueDefBase> found = definitions_[place];
    Check(found->QueryInterface(IidOf<IValueDefBase>, reinterpret_cast<void**>(ppTypeInfo)), found);
    Remember(place, KeyOf(type, wId));
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
    Put(Find(type, id), std::move(definition), type, id);
  });
}

HRESULT OrmSession::GetStructureByName(BSTR szName, IStructureDef** pStruct) {
  return Call("GetStructureByName", [&] {
    EmptyOut(pStruct);
    const std::string name = NarrowToZero(ViewOf(szName));
    for (std::size_t i = 0; i < definitions_.size(); ++i) {
      const Ptr<IValueDefBase> definition = definitions_[i];
      if (!HasName(definition, name) || TypeOf(definition) != kStructure) continue;
      *pStruct = QueryFor<IStructureDef>(definition.get()).Detach();
      return;
    }
  });
}

std::size_t OrmSession::Find(SHORT type, SHORT id) {
  if (!keys_are_told_) return Search(type, id);
  if (known_changes_ != KeyChanges::Count()) LearnKeys();
  const auto found = places_.find(KeyOf(type, id));
  return found == places_.end() ? kNone : found->second;
}

std::size_t OrmSession::Search(SHORT type, SHORT id) const {
  // By place and with a reference: a definition of the client's may add others while it
  // is asked.
  for (std::size_t i = 0; i < definitions_.size(); ++i) {
    const Ptr<IValueDefBase> definition = definitions_[i];
    if (IdOf(definition) == id && TypeOf(definition) == type) return i;
  }
  return kNone;
}

OrmSession* OrmSession::Behind(IOrmSession* session) noexcept {
  IInsideSession* inside = nullptr;
  if (session == nullptr) return nullptr;
  if (FAILED(session->QueryInterface(IidOf<IInsideSession>, reinterpret_cast<void**>(&inside))))
    return nullptr;
  inside->Release();
  OrmSession* self = inside->Self();
  return static_cast<IOrmSession*>(self) == session ? self : nullptr;
}

void OrmSession::Put(std::size_t place, Ptr<IValueDefBase> definition, SHORT type, SHORT id) {
  const bool is_told = keys_are_told_ && Watch(definition);
  last_ = {};  // last, because the question may have run a client's code
  if (keys_are_told_ && !is_told) {
    keys_are_told_ = false;
    places_.clear();
  }
  if (place != kNone) {
    definitions_[place] = std::move(definition);
    return;
  }
  definitions_.push_back(std::move(definition));
  if (!keys_are_told_) return;
  try {
    places_.emplace(KeyOf(type, id), definitions_.size() - 1);
  } catch (...) {
    definitions_.pop_back();
    throw;
  }
}

void OrmSession::Remember(std::size_t place, std::uint32_t key) noexcept {
  if (last_.inside != nullptr && last_.place == place && last_.key == key) return;
  // Kept while it is asked: that may run a client's code.
  const Ptr<IValueDefBase> definition = definitions_[place];
  last_ = {};
  IInsideDefinition* inside = InsideOf(definition.get());
  if (keys_are_told_ && definitions_[place] == definition) last_ = {place, key, inside};
}

void OrmSession::LearnKeys() {
  last_ = {};
  places_.clear();
  for (std::size_t i = 0; i < definitions_.size(); ++i)
    places_.emplace(KeyOf(TypeOf(definitions_[i]), IdOf(definitions_[i])), i);
  known_changes_ = KeyChanges::Count();
}

}  // namespace halyard
