// Activation through COM.
#include "object/activation.h"

namespace halyard {

Ptr<IUnknown> Activate(REFCLSID clsid) noexcept {
  Ptr<IUnknown> object;
  if (FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid()))) return nullptr;
  if (object && FAILED(OleRun(object.get()))) object.Reset();
  return object;
}

}  // namespace halyard
