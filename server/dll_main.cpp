// The entry points of halyard.dll.
#include <optional>

#include "object/boundary.h"
#include "object/module_lock.h"
#include "server/module.h"
#include "server/registration.h"

namespace {

// Alive from the DLL's loading to its unloading.
std::optional<halyard::Module> g_module;

constexpr const char* kModuleName = "Module";

}  // namespace

extern "C" {

BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
  switch (reason) {
    case DLL_PROCESS_ATTACH:
      g_module.emplace(instance);
      DisableThreadLibraryCalls(instance);
      break;
    case DLL_PROCESS_DETACH:
      g_module.reset();
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
