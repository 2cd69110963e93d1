#include "server/class_factory.h"

#include "object/module_lock.h"

namespace halyard {
namespace {

// The reference that the module itself keeps.
constexpr ULONG kOwnReference = 1;

}  // namespace

HRESULT ClassFactory::QueryInterface(REFIID riid, void** ppvObject) {
  if (ppvObject == nullptr) return E_POINTER;
  *ppvObject = nullptr;
  if (riid != IID_IUnknown && riid != IID_IClassFactory) return E_NOINTERFACE;
  *ppvObject = static_cast<IClassFactory*>(this);
  AddRef();
  return S_OK;
}

ULONG ClassFactory::AddRef() {
  const CriticalSectionHold hold(section_);
  if (references_++ == kOwnReference) LockModule();
  return references_;
}

ULONG ClassFactory::Release() {
  ULONG left = 0;
  {
    const CriticalSectionHold hold(section_);
    left = --references_;
    if (left == kOwnReference) UnlockModule();
  }
  if (left == 0) delete this;
  return left;
}

HRESULT ClassFactory::CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObject) {
  if (ppvObject == nullptr) return E_POINTER;
  *ppvObject = nullptr;
  if (pUnkOuter != nullptr && riid != IID_IUnknown) return CLASS_E_NOAGGREGATION;
  return row_.create(pUnkOuter, riid, ppvObject);
}

HRESULT ClassFactory::LockServer(BOOL fLock) {
  if (fLock) {
    LockModule();
  } else {
    UnlockModule();
  }
  return S_OK;
}

}  // namespace halyard
