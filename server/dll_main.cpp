// The entry points of halyard.dll.
#include "object/boundary.h"
#include "object/module_lock.h"
#include "server/module.h"
#include "server/registration.h"

namespace {

// Alive from the DLL's loading to its unloading. When the process ends it is left to the
// system: other threads were stopped wherever they were, and other DLLs may be gone.
halyard::Module* g_module = nullptr;

constexpr const char* kModuleName = "Module";

// False where there is no memory for the module: the system does not load the DLL then.
BOOL Load(HINSTANCE instance) noexcept {
  try {
    g_module = new halyard::Module(instance);
  } catch (...) {
    return FALSE;
  }
  DisableThreadLibraryCalls(instance);
  return TRUE;
}

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* process_ends) {
  switch (reason) {
    case DLL_PROCESS_ATTACH:
      return Load(instance);
    case DLL_PROCESS_DETACH:
      if (process_ends == nullptr) delete g_module;
      break;
    default:
      break;
  }
  return TRUE;
}

// S_OK when no object, no client of a class factory and no server lock is left.
STDAPI DllCanUnloadNow() { return halyard::ModuleLockCount() == 0 ? S_OK : S_FALSE; }

// The class factory of a class; CLASS_E_CLASSNOTAVAILABLE for any other identifier.
STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** result) {
  return halyard::Guarded(kModuleName, "DllGetClassObject",
                          [&] { return g_module->GetClassObject(clsid, iid, result); });
}

STDAPI DllRegisterServer() {
  return halyard::Guarded(kModuleName, "DllRegisterServer", [] { halyard::RegisterModule(*g_module); });
}

STDAPI DllUnregisterServer() {
  return halyard::Guarded(kModuleName, "DllUnregisterServer", [] { halyard::UnregisterModule(*g_module); });
}

}  // extern "C"
