#include "tests/server/support/component.h"

#include "tests/server/support/class_factory_traits.h"

namespace halyard::test {

WideString ComponentPath(const wchar_t* variable) {
  WideString path(MAX_PATH, L'\0');
  const DWORD length = GetEnvironmentVariableW(variable, path.data(), static_cast<DWORD>(path.size()));
  if (length == 0 || length >= path.size())
    throw Error(E_FAIL, "the environment does not name the component DLL");
  path.resize(length);
  return path;
}

Component::Component(const WideString& path) : module_(LoadLibraryW(path.c_str())) {
  if (module_ == nullptr) throw Error(HRESULT_FROM_WIN32(GetLastError()));
}

Component::~Component() { FreeLibrary(module_); }

HRESULT Component::GetClassObject(REFCLSID clsid, REFIID iid, void** result) const {
  using Function = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
  return reinterpret_cast<Function>(reinterpret_cast<void*>(EntryPoint("DllGetClassObject")))(clsid, iid,
                                                                                              result);
}

Ptr<IClassFactory> Component::Factory(REFCLSID clsid) const {
  Ptr<IClassFactory> factory;
  Check(GetClassObject(clsid, IidOf<IClassFactory>, factory.OutVoid()));
  return factory;
}

HRESULT Component::Call(const char* entry_point) const {
  using Function = HRESULT(STDAPICALLTYPE*)();
  return reinterpret_cast<Function>(reinterpret_cast<void*>(EntryPoint(entry_point)))();
}

FARPROC Component::EntryPoint(const char* name) const {
  const FARPROC function = GetProcAddress(module_, name);
  if (function == nullptr) throw Error(HRESULT_FROM_WIN32(GetLastError()));
  return function;
}

}  // namespace halyard::test
