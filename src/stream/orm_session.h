// OrmSession: the definitions of one stream. A short list, searched from its start; the
// keys are asked of the definitions each time, because clients may change them.
#pragma once

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
  std::size_t Find(SHORT type, SHORT id) const;

  std::vector<Ptr<IValueDefBase>> definitions_;
};

}  // namespace halyard
