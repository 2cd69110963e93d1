// Creation of objects by class identifier for platforms other than Windows. There is
// no registry: the library's own classes are the ones that can be created.
#pragma once

#include "halyard/platform/native/unknown.h"

// Where an object may live, one bit each: in this process, behind a handler in it, in
// another process of the machine, on another machine.
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
// this library and for a context without CLSCTX_INPROC_SERVER, as all of them live in the
// process; E_POINTER for a null `ppv`. The result is null on every other failure.
HRESULT CoCreateInstance(REFCLSID rclsid, IUnknown* pUnkOuter, DWORD dwClsContext, REFIID riid, void** ppv);
