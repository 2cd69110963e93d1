// Objects of somebody else: test doubles behind the library's interfaces, whose calls
// fail, answer nothing or lie as a test tells them.
#pragma once

#include <memory>
#include <utility>

#include "halyard/object/ptr.h"

namespace halyard::test {

// Counting, querying and an IDispatch without members for a double of interface I.
template <class I>
class Foreign : public I {
 public:
  Foreign() = default;
  Foreign(const Foreign&) = delete;
  Foreign& operator=(const Foreign&) = delete;
  virtual ~Foreign() = default;

  // What queries for interface I answer: S_OK hands it out.
  HRESULT query_status = S_OK;

  // Expires when the object is destroyed.
  [[nodiscard]] std::weak_ptr<void> Life() const { return life_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    *ppvObject = nullptr;
    if (riid == IidOf<I> && FAILED(query_status)) return query_status;
    if (!IsBase<I>(riid)) return E_NOINTERFACE;
    *ppvObject = static_cast<I*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                   UINT*) override {
    return E_NOTIMPL;
  }

 private:
  template <class J>
  static bool IsBase(REFIID riid) {
    if constexpr (std::is_void_v<J>) {
      return false;
    } else {
      return riid == IidOf<J> || IsBase<typename InterfaceTraits<J>::Base>(riid);
    }
  }

  ULONG references_ = 0;
  std::shared_ptr<int> life_ = std::make_shared<int>(0);
};

// An answer of a double: a status and, on success, what is handed out.
template <class T>
struct Answer {
  T value{};
  HRESULT status = S_OK;

  // Hands the answer out as an interface method does.
  HRESULT To(T* out) const {
    if (SUCCEEDED(status)) *out = value;
    return status;
  }
};

// The same for an object, whose reference is counted.
template <class I>
struct ObjectAnswer {
  Ptr<I> value;
  HRESULT status = S_OK;

  HRESULT To(I** out) const {
    *out = SUCCEEDED(status) ? Ptr<I>(value).Detach() : nullptr;
    return status;
  }
};

// What a buffer call of a double does: it reads or writes nothing and answers this.
struct BufferAnswer {
  VARIANT_BOOL result = VARIANT_TRUE;
  ULONG count = 0;
  HRESULT status = S_OK;

  HRESULT To(ULONG* out_count, VARIANT_BOOL* out_result) const {
    *out_result = result;
    if (result != VARIANT_FALSE) *out_count = count;
    return status;
  }
};

template <class T>
Ptr<T> NewForeign() {
  return Ptr<T>(new T);
}

}  // namespace halyard::test
