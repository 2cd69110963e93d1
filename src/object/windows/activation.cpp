// Activation through COM.
#include "object/activation.h"

namespace halyard {

Ptr<IUnknown> Activate(REFCLSID clsid) {
  Ptr<IUnknown> object;
  Check(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, IidOf<IUnknown>, object.OutVoid()));
  Check(OleRun(object.get()));
  return object;
}

}  // namespace halyard
