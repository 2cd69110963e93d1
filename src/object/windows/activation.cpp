// Activation through COM.
#include "object/activation.h"

namespace halyard {

Ptr<IUnknown> Activate(REFCLSID clsid) {
  Ptr<IUnknown> object;
  const HRESULT hr = CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid());
  if (hr == E_OUTOFMEMORY) throw Error(hr);
  if (FAILED(hr)) return nullptr;
  if (object && FAILED(OleRun(object.get()))) object.Reset();
  return object;
}

}  // namespace halyard
