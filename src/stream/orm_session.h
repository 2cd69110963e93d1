// OrmSession: the definitions of one stream, a list whose first match counts. Clients may
// change the keys of definitions; those of this library tell when that happens, so their
// keys are remembered. Other definitions are asked each time.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "halyard/definitions/structure_def.h"
#include "halyard/definitions/value_def_base.h"
#include "halyard/stream/orm_session.h"
#include "object/object.h"

namespace halyard {

class OrmSession : public Object<OrmSession, IOrmSession> {
 public:
  static constexpr char kClassName[] = "OrmSession";

  HRESULT STDMETHODCALLTYPE GetTypeFromId(VARIANT vtType, SHORT wId, IValueDefBase** ppTypeInfo) override;
  HRESULT STDMETHODCALLTYPE AddType(IValueDefBase* pType, VARIANT_BOOL* pbResult) override;
  HRESULT STDMETHODCALLTYPE GetStructureByName(BSTR szName, IStructureDef** pStruct) override;

 private:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  // The place of the first definition with that type and id, or kNone.
  std::size_t Find(SHORT type, SHORT id);

  // The same, by asking every definition.
  std::size_t Search(SHORT type, SHORT id) const;

  // Puts a definition at a place, or behind the last one for kNone.
  void Put(std::size_t place, Ptr<IValueDefBase> definition, SHORT type, SHORT id);

  // Learns the keys anew where one has changed.
  void LearnKeys();

  std::vector<Ptr<IValueDefBase>> definitions_;

  // The first place of each key, as long as all definitions tell of changes.
  std::unordered_map<std::uint32_t, std::size_t> places_;
  bool keys_are_told_ = true;
  std::uint64_t known_changes_ = 0;
};

}  // namespace halyard
