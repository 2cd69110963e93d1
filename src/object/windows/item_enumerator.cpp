#include "object/windows/item_enumerator.h"

#include "halyard/object/variant.h"
#include "object/boundary.h"
#include "object/module_lock.h"

namespace halyard {

template <>
struct InterfaceTraits<IEnumVARIANT> {
  static constexpr IID kIid = {0x00020404, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
  using Base = IUnknown;
};

namespace {

constexpr const char* kClassName = "Enumerator";

// The properties by which an object is counted and indexed.
struct Walk {
  DISPID count;
  DISPID item;
};

struct WalkNames {
  const OLECHAR* count;
  const OLECHAR* item;
};

constexpr WalkNames kWalks[] = {
    {L"Count", L"Item"}, {L"MemberCount", L"Members"}, {L"ElementCount", L"ElementName"}};

// The property `id` of the object, with an index or without; raises the failure.
Variant Get(IDispatch* object, DISPID id, VARIANT* index) {
  DISPPARAMS arguments{index, nullptr, index == nullptr ? 0u : 1u, 0};
  Variant result;
  EXCEPINFO exception{};
  const HRESULT hr = object->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &arguments,
                                    result.Out(), &exception, nullptr);
  const Bstr source = Bstr::Adopt(exception.bstrSource);
  const Bstr description = Bstr::Adopt(exception.bstrDescription);
  const Bstr help = Bstr::Adopt(exception.bstrHelpFile);
  Check(hr == DISP_E_EXCEPTION ? exception.scode : hr, object);
  return result;
}

class ItemEnumerator final : public IEnumVARIANT {
 public:
  ItemEnumerator(IDispatch* object, Walk walk, LONG position)
      : object_(object), walk_(walk), position_(position) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppvObject) override {
    if (ppvObject == nullptr) return E_POINTER;
    *ppvObject = nullptr;
    if (riid != IidOf<IUnknown> && riid != IidOf<IEnumVARIANT>) return E_NOINTERFACE;
    *ppvObject = static_cast<IEnumVARIANT*>(this);
    AddRef();
    return S_OK;
  }

  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }

  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  // Gives up to celt items, which the caller clears; S_FALSE when there were fewer. After
  // a failure there are none, and the walk stands where it stood.
  HRESULT STDMETHODCALLTYPE Next(ULONG celt, VARIANT* rgVar, ULONG* pCeltFetched) override {
    ULONG fetched = 0;
    const LONG start = position_;
    const HRESULT hr = Guarded(kClassName, "Next", [&] {
      Out(rgVar);
      while (fetched != celt && position_ < Count()) {
        Variant index(position_);
        rgVar[fetched] = Get(object_.get(), walk_.item, &index.get()).Detach();
        ++fetched;
        ++position_;
      }
      return fetched == celt ? S_OK : S_FALSE;
    });
    if (FAILED(hr)) {
      while (fetched != 0) VariantClear(&rgVar[--fetched]);
      position_ = start;
    }
    if (pCeltFetched != nullptr) *pCeltFetched = fetched;
    return hr;
  }

  HRESULT STDMETHODCALLTYPE Skip(ULONG celt) override {
    return Guarded(kClassName, "Skip", [&] {
      const ULONG left = static_cast<ULONG>(Count() - position_);
      position_ += static_cast<LONG>(celt < left ? celt : left);
      return celt <= left ? S_OK : S_FALSE;
    });
  }

  HRESULT STDMETHODCALLTYPE Reset() override {
    position_ = 0;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE Clone(IEnumVARIANT** ppEnum) override {
    return Guarded(kClassName, "Clone", [&] {
      Out(ppEnum) = nullptr;
      *ppEnum = Ptr<IEnumVARIANT>(new ItemEnumerator(object_.get(), walk_, position_)).Detach();
    });
  }

 private:
  // Never less than the position reached, however the object has shrunk meanwhile.
  LONG Count() {
    const LONG count = Variant::Converted(Get(object_.get(), walk_.count, nullptr).get(), VT_I4)->lVal;
    return count < position_ ? position_ : count;
  }

  ULONG references_ = 0;
  Ptr<IDispatch> object_;
  Walk walk_;
  LONG position_;
  ModuleLock module_lock_;
};

}  // namespace

Ptr<IEnumVARIANT> EnumerateItems(IDispatch* object, const InterfaceInformation& information) {
  for (const WalkNames& names : kWalks) {
    const Walk walk{information.IdOf(names.count), information.IdOf(names.item)};
    if (walk.count != DISPID_UNKNOWN && walk.item != DISPID_UNKNOWN) {
      return Ptr<IEnumVARIANT>(new ItemEnumerator(object, walk, 0));
    }
  }
  return nullptr;
}

}  // namespace halyard
