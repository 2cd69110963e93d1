// The class object of one class: makes its objects and holds the module in memory for
// clients that ask for it.
#pragma once

#include "object/class_table.h"
#include "server/critical_section.h"

namespace halyard {

// Class factories are shared by all threads. The module keeps one reference of its own
// from the first request to its end; while anybody else has one, the module is locked.
class ClassFactory final : public IClassFactory {
 public:
  explicit ClassFactory(const ClassRow& row) noexcept : row_(row) {}
  ClassFactory(const ClassFactory&) = delete;
  ClassFactory& operator=(const ClassFactory&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override;
  ULONG STDMETHODCALLTYPE AddRef() override;
  ULONG STDMETHODCALLTYPE Release() override;

  // Makes an object, on its own or as a part of pUnkOuter. E_POINTER for a null place,
  // CLASS_E_NOAGGREGATION for a part that is asked for anything but IUnknown.
  HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown* pUnkOuter, REFIID riid, void** ppvObject) override;

  // Adds a lock to the module, or takes one away.
  HRESULT STDMETHODCALLTYPE LockServer(BOOL fLock) override;

 private:
  ~ClassFactory() = default;

  const ClassRow& row_;
  CriticalSection section_;
  ULONG references_ = 0;  // guarded by section_
};

}  // namespace halyard
