// Activation without a registry: the classes of this library are the registered ones.
#include "object/activation.h"

#include "object/class_table.h"

namespace halyard {

Ptr<IUnknown> Activate(REFCLSID clsid) {
  Ptr<IUnknown> object;
  const HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid());
  if (hr == E_OUTOFMEMORY) throw Error(hr);
  return SUCCEEDED(hr) ? object : nullptr;
}

}  // namespace halyard

HRESULT CoCreateInstance(REFCLSID rclsid, IUnknown* pUnkOuter, DWORD dwClsContext, REFIID riid, void** ppv) {
  if (ppv == nullptr) return E_POINTER;
  *ppv = nullptr;
  const halyard::ClassRow* row = halyard::FindClass(rclsid);
  if (row == nullptr || (dwClsContext & CLSCTX_INPROC_SERVER) == 0) return REGDB_E_CLASSNOTREG;
  return row->create(pUnkOuter, riid, ppv);
}
