// Activation: making an object by class identifier through the system, as the stream
// classes and the readers of definitions make the objects of their own use. The class
// must be registered, and another server may have taken its place.
#pragma once

#include "halyard/object/error.h"
#include "halyard/object/ptr.h"

namespace halyard {

// Creates an object of the class in any context, asks it for IUnknown and puts it into
// the running state. Empty when any of that fails: what needs the object says so then.
// Raises E_OUTOFMEMORY alone.
Ptr<IUnknown> Activate(REFCLSID clsid);

// As Activate, asked for interface I; empty where the object lacks it.
template <class I>
[[nodiscard]] Ptr<I> ActivateAs(REFCLSID clsid) {
  return QueryFor<I>(Activate(clsid).get());
}

}  // namespace halyard
