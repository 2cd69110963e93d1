// The object frame: everything that a class of the library does not do itself.
//
// A class derives from Object<Class, Interfaces...>, lists its interfaces once, the main
// one first, and states its name as `kClassName`. The frame answers QueryInterface from
// the list (and everything that the listed interfaces extend), counts references, holds
// a module lock, serves IDispatch for the main interface, IObjectSafety and
// ISupportErrorInfo, and gives method bodies the error boundary (Call).
//
// Objects are made by NewObject or CreateInstance only: those choose the plain form or
// the aggregated one, in which another object's IUnknown governs the life of both.
// Reference counts are plain numbers: an object belongs to the thread that made it.
#pragma once

#include <new>
#include <tuple>
#include <utility>

#include "halyard/object/error.h"
#include "halyard/object/ptr.h"
#include "object/boundary.h"
#include "object/dispatch.h"
#include "object/ending.h"
#include "object/module_lock.h"
#include "object/object_safety.h"

namespace halyard {
namespace detail {

// `object` as the interface `iid` if that is I or one that I extends, else null.
template <class I, class Top>
void* FindInChain(Top* object, REFIID iid) noexcept {
  if constexpr (std::is_void_v<I>) {
    return nullptr;
  } else {
    if (iid == IidOf<I>) return static_cast<I*>(object);
    return FindInChain<typename InterfaceTraits<I>::Base>(object, iid);
  }
}

}  // namespace detail

template <class T, class... Interfaces>
class Object : public Interfaces..., public IObjectSafety, public ISupportErrorInfo {
 public:
  using MainInterface = std::tuple_element_t<0, std::tuple<Interfaces...>>;

  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;

  // Counted and queried in the plain or the aggregated form.
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override = 0;
  ULONG STDMETHODCALLTYPE AddRef() override = 0;
  ULONG STDMETHODCALLTYPE Release() override = 0;

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pctinfo) override {
    return DispatchTypeInfoCount(pctinfo);
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT iTInfo, LCID lcid, ITypeInfo** ppTInfo) override {
    return DispatchTypeInfo(Target(), iTInfo, lcid, ppTInfo);
  }

  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* rgszNames, UINT cNames, LCID lcid,
                                          DISPID* rgDispId) override {
    return DispatchIdsOfNames(Target(), rgszNames, cNames, lcid, rgDispId);
  }

  HRESULT STDMETHODCALLTYPE Invoke(DISPID dispIdMember, REFIID, LCID lcid, WORD wFlags,
                                   DISPPARAMS* pDispParams, VARIANT* pVarResult, EXCEPINFO* pExcepInfo,
                                   UINT* puArgErr) override {
    return DispatchInvoke(Target(), dispIdMember, lcid, wFlags, pDispParams, pVarResult, pExcepInfo,
                          puArgErr);
  }

  HRESULT STDMETHODCALLTYPE GetInterfaceSafetyOptions(REFIID riid, DWORD* pdwSupportedOptions,
                                                      DWORD* pdwEnabledOptions) override {
    if (pdwSupportedOptions == nullptr || pdwEnabledOptions == nullptr) return E_POINTER;
    *pdwSupportedOptions = 0;
    *pdwEnabledOptions = 0;
    if (FindInterface(riid) == nullptr) return E_NOINTERFACE;
    *pdwSupportedOptions = SafetyOptions::kSupported;
    *pdwEnabledOptions = safety_.current();
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE SetInterfaceSafetyOptions(REFIID riid, DWORD dwOptionSetMask,
                                                      DWORD dwEnabledOptions) override {
    if (FindInterface(riid) == nullptr) return E_NOINTERFACE;
    return safety_.Set(dwOptionSetMask, dwEnabledOptions);
  }

  // Every interface of the library comes with error objects.
  HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID riid) override {
    return FindInterface(riid) != nullptr ? S_OK : S_FALSE;
  }

 protected:
  Object() noexcept = default;
  ~Object() = default;

  // Runs the body of the interface method `operation` inside the error boundary.
  template <class Body>
  HRESULT Call(const char* operation, Body&& body) noexcept {
    return Guarded(T::kClassName, operation, std::forward<Body>(body));
  }

  // What the object stands for where a single value is wanted. Classes that stand for
  // one hide this function.
  HRESULT DefaultValue(VARIANT*) noexcept { return DISP_E_PARAMNOTFOUND; }

  // Whether exactly one reference holds the object, and no outer one does.
  [[nodiscard]] virtual bool HeldOnce() const noexcept = 0;

  // Whether the object is part of an outer one.
  [[nodiscard]] virtual bool IsPart() const noexcept = 0;

  // Makes the frame that of a new object again.
  void ResetFrame() noexcept { safety_ = {}; }

  // The interface `iid` of this object, uncounted; null if it has none of that kind.
  void* FindInterface(REFIID iid) noexcept {
    void* found = nullptr;
    static_cast<void>(
        ((found = detail::FindInChain<Interfaces>(static_cast<Interfaces*>(this), iid)) || ... ||
         ((found = detail::FindInChain<IObjectSafety>(static_cast<IObjectSafety*>(this), iid)) ||
          (found = detail::FindInChain<ISupportErrorInfo>(static_cast<ISupportErrorInfo*>(this), iid)))));
    return found;
  }

  // QueryInterface over the list, counting on the returned interface.
  HRESULT QueryTable(REFIID iid, void** result) noexcept {
    if (result == nullptr) return E_POINTER;
    *result = FindInterface(iid);
    if (*result == nullptr) return E_NOINTERFACE;
    AddRef();
    return S_OK;
  }

 private:
  // The object behind what a DispatchTarget holds.
  static T& Behind(IDispatch* object) noexcept {
    return *static_cast<T*>(static_cast<Object*>(static_cast<MainInterface*>(object)));
  }

  static HRESULT ReadDefaultValue(IDispatch* object, VARIANT* result) {
    return Behind(object).DefaultValue(result);
  }

  static HRESULT GetItem(IDispatch* object, VARIANT index, VARIANT* result) {
    return Behind(object).get_Item(index, result);
  }

  static HRESULT PutItem(IDispatch* object, VARIANT index, VARIANT value) {
    return Behind(object).put_Item(index, value);
  }

  DispatchTarget Target() noexcept {
    DispatchTarget target{IidOf<MainInterface>, static_cast<MainInterface*>(this), T::kClassName,
                          &ReadDefaultValue};
    if constexpr (requires(T & object, VARIANT value) {
                    object.get_Item(value, &value);
                    object.put_Item(value, value);
                  }) {
      target.get_item = &GetItem;
      target.put_item = &PutItem;
    }
    return target;
  }

  ModuleLock module_lock_;
  SafetyOptions safety_;
};

// A class as an object of its own.
template <class T>
class PlainObject final : public T {
 public:
  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    return this->QueryTable(riid, ppvObject);
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) EndObject(this, [](void* object) { delete static_cast<PlainObject*>(object); });
    return left;
  }

 protected:
  bool HeldOnce() const noexcept override { return references_ == 1; }
  bool IsPart() const noexcept override { return false; }

 private:
  ULONG references_ = 0;
};

// A class as a part of another object, the outer one, whose IUnknown its interfaces
// show. The outer object owns this one through the IUnknown that this class is.
template <class T>
class AggregatedObject final : public IUnknown {
 public:
  explicit AggregatedObject(IUnknown* outer) : part_(outer) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    if (ppvObject == nullptr) return E_POINTER;
    if (!(riid == IidOf<IUnknown>)) return part_.Query(riid, ppvObject);
    *ppvObject = static_cast<IUnknown*>(this);
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) EndObject(this, [](void* object) { delete static_cast<AggregatedObject*>(object); });
    return left;
  }

 private:
  class Part final : public T {
   public:
    explicit Part(IUnknown* outer) : outer_(outer) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
      return outer_->QueryInterface(riid, ppvObject);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return outer_->AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return outer_->Release(); }
    HRESULT Query(REFIID riid, void** result) noexcept { return this->QueryTable(riid, result); }

   protected:
    bool HeldOnce() const noexcept override { return false; }
    bool IsPart() const noexcept override { return true; }

   private:
    IUnknown* outer_;  // not counted: the outer object owns the part
  };

  ULONG references_ = 0;
  Part part_;
};

// A new object, with the one reference that the result holds. Raises what the
// constructor raises and std::bad_alloc.
template <class T>
[[nodiscard]] Ptr<T> NewObject() {
  return Ptr<T>(new PlainObject<T>());
}

// Creates an object of class T, plain or as a part of `outer`, and asks it for an
// interface. The object is destroyed again when it lacks the interface; that query's
// status is the result. CLASS_E_NOAGGREGATION for an outer object with any interface
// but IUnknown. The result is null on every failure.
template <class T>
HRESULT CreateInstance(IUnknown* outer, REFIID iid, void** result) noexcept {
  if (result == nullptr) return E_POINTER;
  *result = nullptr;
  if (outer != nullptr && !(iid == IidOf<IUnknown>)) return CLASS_E_NOAGGREGATION;
  return Guarded(T::kClassName, "CreateInstance", [&] {
    if (outer != nullptr) {
      return Ptr<IUnknown>(new AggregatedObject<T>(outer))->QueryInterface(iid, result);
    }
    return NewObject<T>()->QueryInterface(iid, result);
  });
}

}  // namespace halyard
