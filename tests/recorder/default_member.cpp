#include "tests/recorder/default_member.h"

#include <utility>

#include "tests/recorder/value_text.h"

namespace halyard::recorder {
namespace {

class DefaultMember final : public IDispatch {
 public:
  explicit DefaultMember(std::string notation) : notation_(std::move(notation)) {}

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** object) override {
    *object = nullptr;
    if (!(riid == IID_IUnknown) && !(riid == IID_IDispatch)) return E_NOINTERFACE;
    *object = static_cast<IDispatch*>(this);
    AddRef();
    return S_OK;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return ++references_; }
  ULONG STDMETHODCALLTYPE Release() override {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
  }

  HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override {
    *count = 0;
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
  HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
    return E_NOTIMPL;
  }
  HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                   EXCEPINFO*, UINT*) override {
    const bool reads = id == DISPID_VALUE && (flags & DISPATCH_PROPERTYGET) != 0;
    if (!reads || params == nullptr || params->cArgs != 0) return DISP_E_MEMBERNOTFOUND;
    if (notation_.front() == '!') {
      unsigned long long status = 0;
      ParseHex(std::string_view(notation_).substr(1), &status);
      return static_cast<HRESULT>(status);
    }
    Value value;
    if (!ParseValue(notation_, &value)) return E_FAIL;
    return VariantCopy(result, &value.variant);
  }

 private:
  ~DefaultMember() = default;

  std::string notation_;
  ULONG references_ = 1;
};

}  // namespace

IDispatch* NewDefaultMember(std::string notation) { return new DefaultMember(std::move(notation)); }

}  // namespace halyard::recorder
