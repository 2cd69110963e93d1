// IOrmSession: the definitions that belong to one stream of units, found by type code
// and id, or a structure by its name. Files share their session with the units that
// they read and with clients. A key that a client changes counts from then on.
#pragma once

#include "halyard/object/interface_id.h"

namespace halyard {

struct IValueDefBase;
struct IStructureDef;

struct IOrmSession : IDispatch {
  using Base = IDispatch;
  static constexpr IID kIid = {0xEED6F013, 0xE209, 0x497A, {0x94, 0xEA, 0xEF, 0xE7, 0x6D, 0x4A, 0xA9, 0x15}};

  // The first definition with that type (a code, or a VT_BSTR type name) and id, or
  // null, also for an unknown type name; the caller owns the reference. DISP_E_TYPEMISMATCH
  // or DISP_E_OVERFLOW for what does not convert to a type code.
  virtual HRESULT STDMETHODCALLTYPE GetTypeFromId(VARIANT vtType, SHORT wId, IValueDefBase** ppTypeInfo) = 0;

  // Registers a definition, which is shared; one of the same type and id is replaced in
  // its place. False for null, for an object that is no definition, and for id 0.
  virtual HRESULT STDMETHODCALLTYPE AddType(IValueDefBase* pType, VARIANT_BOOL* pbResult) = 0;

  // The first structure definition of that name, letter case ignored, or null; the
  // caller owns the reference.
  virtual HRESULT STDMETHODCALLTYPE GetStructureByName(BSTR szName, IStructureDef** pStruct) = 0;
};

}  // namespace halyard
