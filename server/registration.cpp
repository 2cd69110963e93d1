#include "server/registration.h"

#include "halyard/object/bstr.h"
#include "halyard/object/error.h"
#include "server/script_registrar.h"

namespace halyard {
namespace {

constexpr const OLECHAR* kScriptResources = L"REGISTRY";

#ifdef _WIN64
constexpr SYSKIND kSystem = SYS_WIN64;
#else
constexpr SYSKIND kSystem = SYS_WIN32;
#endif

using ApplyScript = HRESULT (STDMETHODCALLTYPE IScriptRegistrar::*)(LPCOLESTR, UINT, LPCOLESTR);

// The text as it stands between the quotes of a script, where a quote is doubled.
WideString Quoted(WideView text) {
  WideString result;
  for (const OLECHAR c : text) result.append(c == L'\'' ? 2 : 1, c);
  return result;
}

void ApplyScripts(const Module& module, ApplyScript apply) {
  const WideString path = module.Path();
  Ptr<IScriptRegistrar> registrar;
  Check(CoCreateInstance(kScriptRegistrarClass, nullptr, CLSCTX_INPROC_SERVER, IidOf<IScriptRegistrar>,
                         registrar.OutVoid()));
  Check(registrar->AddReplacement(L"MODULE", Quoted(path).c_str()));
  for (const ObjectMapEntry& entry : module.object_map()) {
    Check((registrar.get()->*apply)(path.c_str(), static_cast<UINT>(entry.row->registry_script),
                                    kScriptResources));
  }
}

// The type library in the module's resources.
Ptr<ITypeLib> OwnLibrary(const WideString& path) {
  Ptr<ITypeLib> library;
  Check(LoadTypeLibEx(path.c_str(), REGKIND_NONE, library.Out()));
  return library;
}

class LibraryAttributes {
 public:
  explicit LibraryAttributes(ITypeLib* library) : library_(library) {
    Check(library->GetLibAttr(&attributes_));
  }
  ~LibraryAttributes() { library_->ReleaseTLibAttr(attributes_); }
  LibraryAttributes(const LibraryAttributes&) = delete;
  LibraryAttributes& operator=(const LibraryAttributes&) = delete;
  const TLIBATTR* operator->() const noexcept { return attributes_; }

 private:
  ITypeLib* library_;
  TLIBATTR* attributes_ = nullptr;
};

void RegisterLibrary(const Module& module) {
  WideString path = module.Path();
  WideString folder = path.substr(0, path.find_last_of(L'\\'));
  Check(RegisterTypeLib(OwnLibrary(path).get(), path.data(), folder.data()));
}

void UnregisterLibrary(const Module& module) {
  const Ptr<ITypeLib> library = OwnLibrary(module.Path());
  const LibraryAttributes own(library.get());
  Bstr registered;
  const HRESULT known =
      QueryPathOfRegTypeLib(own->guid, own->wMajorVerNum, own->wMinorVerNum, own->lcid, registered.Out());
  if (FAILED(known)) return;
  Check(UnRegisterTypeLib(own->guid, own->wMajorVerNum, own->wMinorVerNum, own->lcid, kSystem));
}

}  // namespace

void RegisterModule(const Module& module) {
  ApplyScripts(module, &IScriptRegistrar::ResourceRegister);
  RegisterLibrary(module);
}

void UnregisterModule(const Module& module) {
  ApplyScripts(module, &IScriptRegistrar::ResourceUnregister);
  UnregisterLibrary(module);
}

}  // namespace halyard
