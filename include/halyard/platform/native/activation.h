// Creation of objects by class identifier for platforms other than Windows. There is
// no registry: the library's own classes are the ones that can be created.
#pragma once

#include "halyard/platform/native/unknown.h"

enum CLSCTX : DWORD {
  CLSCTX_INPROC_SERVER = 0x1,
  CLSCTX_INPROC_HANDLER = 0x2,
  CLSCTX_LOCAL_SERVER = 0x4,
  CLSCTX_REMOTE_SERVER = 0x10,
  CLSCTX_ALL = 0x17,
};

// Creates an object of the class and asks it for the interface. With an outer unknown
// the object becomes part of the outer one; only IUnknown may be asked for then
// (CLASS_E_NOAGGREGATION otherwise). REGDB_E_CLASSNOTREG for a class that is not of
// this library; the result is null on every failure.
HRESULT CoCreateInstance(REFCLSID rclsid, IUnknown* pUnkOuter, DWORD dwClsContext, REFIID riid, void** ppv);
