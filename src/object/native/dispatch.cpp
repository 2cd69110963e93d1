// Late binding where there is no type library: only what the conversion of an object
// to its default value needs.
#include "object/dispatch.h"

namespace halyard {

HRESULT DispatchTypeInfoCount(UINT* count) noexcept {
  if (count == nullptr) return E_POINTER;
  *count = 0;
  return S_OK;
}

HRESULT DispatchTypeInfo(const DispatchTarget&, UINT, LCID, ITypeInfo** info) noexcept {
  if (info == nullptr) return E_POINTER;
  *info = nullptr;
  return E_NOTIMPL;
}

HRESULT DispatchIdsOfNames(const DispatchTarget&, LPOLESTR*, UINT, LCID, DISPID*) noexcept {
  return E_NOTIMPL;
}

HRESULT DispatchInvoke(const DispatchTarget& target, DISPID id, LCID, WORD flags, DISPPARAMS* params,
                       VARIANT* result, EXCEPINFO*, UINT*) noexcept {
  const bool reads_default = id == DISPID_VALUE && (flags & DISPATCH_PROPERTYGET) != 0;
  if (!reads_default) return E_NOTIMPL;
  if (params != nullptr && params->cArgs != 0) return DISP_E_BADPARAMCOUNT;
  if (result == nullptr) return E_POINTER;
  return target.default_value(target.object, result);
}

}  // namespace halyard
