// Error objects and the slot that each thread has for one.
#include "halyard/platform/native/error_info.h"

#include <atomic>
#include <new>
#include <utility>

namespace {

class ErrorInfo final : public ICreateErrorInfo, public IErrorInfo {
 public:
  ErrorInfo() = default;
  ErrorInfo(const ErrorInfo&) = delete;
  ErrorInfo& operator=(const ErrorInfo&) = delete;

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    if (object == nullptr) return E_POINTER;
    *object = nullptr;
    if (riid == IID_IUnknown || riid == IID_ICreateErrorInfo) {
      *object = static_cast<ICreateErrorInfo*>(this);
    } else if (riid == IID_IErrorInfo) {
      *object = static_cast<IErrorInfo*>(this);
    } else {
      return E_NOINTERFACE;
    }
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE SetGUID(REFGUID guid) override {
    guid_ = guid;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE SetSource(LPOLESTR text) override { return Store(source_, text); }
  HRESULT STDMETHODCALLTYPE SetDescription(LPOLESTR text) override { return Store(description_, text); }
  HRESULT STDMETHODCALLTYPE SetHelpFile(LPOLESTR text) override { return Store(help_file_, text); }
  HRESULT STDMETHODCALLTYPE SetHelpContext(DWORD context) override {
    help_context_ = context;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE GetGUID(GUID* guid) override {
    if (guid == nullptr) return E_INVALIDARG;
    *guid = guid_;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetSource(BSTR* text) override { return Fetch(source_, text); }
  HRESULT STDMETHODCALLTYPE GetDescription(BSTR* text) override { return Fetch(description_, text); }
  HRESULT STDMETHODCALLTYPE GetHelpFile(BSTR* text) override { return Fetch(help_file_, text); }
  HRESULT STDMETHODCALLTYPE GetHelpContext(DWORD* context) override {
    if (context == nullptr) return E_INVALIDARG;
    *context = help_context_;
    return S_OK;
  }

 private:
  ~ErrorInfo() {
    SysFreeString(source_);
    SysFreeString(description_);
    SysFreeString(help_file_);
  }

  static HRESULT Store(BSTR& slot, LPOLESTR text) noexcept {
    BSTR copy = SysAllocString(text);
    if (copy == nullptr && text != nullptr) return E_OUTOFMEMORY;
    SysFreeString(std::exchange(slot, copy));
    return S_OK;
  }

  static HRESULT Fetch(BSTR slot, BSTR* text) noexcept {
    if (text == nullptr) return E_INVALIDARG;
    *text = nullptr;
    if (slot == nullptr) return S_OK;
    *text = SysAllocStringLen(slot, SysStringLen(slot));
    return *text == nullptr ? E_OUTOFMEMORY : S_OK;
  }

  std::atomic<ULONG> references_{1};
  GUID guid_ = IID_NULL;
  BSTR source_ = nullptr;
  BSTR description_ = nullptr;
  BSTR help_file_ = nullptr;
  DWORD help_context_ = 0;
};

// The error object of one thread; it goes with the thread.
struct ErrorSlot {
  ErrorSlot() = default;
  ErrorSlot(const ErrorSlot&) = delete;
  ErrorSlot& operator=(const ErrorSlot&) = delete;
  ~ErrorSlot() { Put(nullptr); }

  // Takes over a reference. The slot is settled before the old object goes, since an
  // object may use the slot while it is destroyed.
  void Put(IErrorInfo* info) noexcept {
    if (IErrorInfo* old = std::exchange(object, info)) old->Release();
  }

  IErrorInfo* object = nullptr;
};

thread_local ErrorSlot t_slot;

}  // namespace

HRESULT CreateErrorInfo(ICreateErrorInfo** result) {
  if (result == nullptr) return E_INVALIDARG;
  *result = new (std::nothrow) ErrorInfo();
  return *result == nullptr ? E_OUTOFMEMORY : S_OK;
}

HRESULT SetErrorInfo(ULONG reserved, IErrorInfo* info) {
  if (reserved != 0) return E_INVALIDARG;
  if (info != nullptr) info->AddRef();
  t_slot.Put(info);
  return S_OK;
}

HRESULT GetErrorInfo(ULONG reserved, IErrorInfo** result) {
  if (reserved != 0 || result == nullptr) return E_INVALIDARG;
  *result = std::exchange(t_slot.object, nullptr);
  return *result == nullptr ? S_FALSE : S_OK;
}
