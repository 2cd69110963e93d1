// OrmHelp: ready-made arrays, of prepared or of the client's element definitions, and
// arrays over memory of the client.
#pragma once

#include <vector>

#include "halyard/definitions/array_def.h"
#include "halyard/stream/orm_help.h"
#include "object/object.h"

namespace halyard {

class OrmHelp : public Object<OrmHelp, IOrmHelp> {
 public:
  static constexpr char kClassName[] = "OrmHelp";

  // Prepares the definitions; raises what that raises.
  OrmHelp();

  HRESULT STDMETHODCALLTYPE CreateArray(VARIANT vElementType, IDispatch** ppResult) override;
  HRESULT STDMETHODCALLTYPE CreateShellArray(VARIANT vElementType, USHORT wElementSize, LONG nElemCount,
                                             unsigned char* pDataPointer,
                                             ISimpleFixedArray** pResult) override;

 private:
  struct Prepared {
    SHORT element_type;
    Ptr<IArrayDef> definition;  // shared by all arrays made of it
  };

  // The definition of arrays of the element type; empty where none was prepared.
  Ptr<IArrayDef> FindPrepared(SHORT element_type) const;

  std::vector<Prepared> prepared_;
};

}  // namespace halyard
