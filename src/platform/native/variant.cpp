// Life of a variant: made empty, cleared, copied.
#include "halyard/platform/native/variant.h"

#include <cstring>

#include "halyard/platform/native/dispatch.h"
#include "platform/native/variant_type.h"

namespace {

using halyard::BaseType;
using halyard::IsArray;
using halyard::IsByRef;

// This library makes neither arrays nor records, so only a variant without one can be
// cleared or copied.
bool IsForeign(const VARIANT& variant) noexcept {
  if (IsByRef(variant.vt)) return false;
  if (IsArray(variant.vt)) return variant.parray != nullptr;
  return variant.vt == VT_RECORD &&
         (variant.record.pvRecord != nullptr || variant.record.pRecInfo != nullptr);
}

// Gives the variant, a plain copy of another, its own share of what that one owns. The
// copy of a null text is an empty one.
HRESULT OwnContents(VARIANT& variant) noexcept {
  if (variant.vt == VT_BSTR) {
    const UINT bytes = SysStringByteLen(variant.bstrVal);
    variant.bstrVal = SysAllocStringByteLen(reinterpret_cast<const char*>(variant.bstrVal), bytes);
    if (variant.bstrVal == nullptr) return E_OUTOFMEMORY;
  } else if ((variant.vt == VT_DISPATCH || variant.vt == VT_UNKNOWN) && variant.punkVal != nullptr) {
    variant.punkVal->AddRef();
  }
  return S_OK;
}

// The variant without VT_BYREF, borrowing what it refers to.
VARIANT Dereferenced(const VARIANT& reference) noexcept {
  VARIANT value;
  VariantInit(&value);
  const VARTYPE type = BaseType(reference.vt);
  if (type == VT_DECIMAL) {
    halyard::StoreDecimal(value, *reference.pdecVal);
  } else {
    value.vt = type;
    std::memcpy(&value.llVal, reference.byref, halyard::ScalarBytes(type));
  }
  return value;
}

// Replaces the contents of `destination` by a copy of `source` that owns its own.
HRESULT Replace(VARIANT* destination, VARIANT source) noexcept {
  HRESULT hr = OwnContents(source);
  if (FAILED(hr)) return hr;
  hr = VariantClear(destination);
  if (FAILED(hr)) {
    VariantClear(&source);
    return hr;
  }
  *destination = source;
  return S_OK;
}

}  // namespace

HRESULT VariantClear(VARIANTARG* variant) {
  if (variant == nullptr) return E_INVALIDARG;
  const HRESULT hr = halyard::CheckType(variant->vt);
  if (FAILED(hr)) return hr;
  if (IsForeign(*variant)) return DISP_E_BADVARTYPE;
  const VARIANT old = *variant;
  variant->vt = VT_EMPTY;
  if (old.vt == VT_BSTR) {
    SysFreeString(old.bstrVal);
  } else if ((old.vt == VT_DISPATCH || old.vt == VT_UNKNOWN) && old.punkVal != nullptr) {
    old.punkVal->Release();
  }
  return S_OK;
}

HRESULT VariantCopy(VARIANTARG* destination, const VARIANTARG* source) {
  if (destination == nullptr || source == nullptr) return E_INVALIDARG;
  const HRESULT hr = halyard::CheckType(source->vt);
  if (FAILED(hr)) return hr;
  if (IsForeign(*source)) return DISP_E_BADVARTYPE;
  if (destination == source) return S_OK;
  return Replace(destination, *source);
}

HRESULT VariantCopyInd(VARIANT* destination, const VARIANTARG* source) {
  if (destination == nullptr || source == nullptr) return E_INVALIDARG;
  if (!IsByRef(source->vt)) return VariantCopy(destination, source);
  const HRESULT hr = halyard::CheckType(source->vt);
  if (FAILED(hr)) return hr;
  if (IsArray(source->vt) || source->byref == nullptr) return E_INVALIDARG;
  if (BaseType(source->vt) == VT_VARIANT) {
    const VARIANT& inner = *source->pvarVal;
    // A reference may refer to a variant, but that one to no further variant.
    if (inner.vt == (VT_VARIANT | VT_BYREF)) return E_INVALIDARG;
    return VariantCopyInd(destination, &inner);
  }
  if (halyard::ScalarBytes(BaseType(source->vt)) == 0) return DISP_E_BADVARTYPE;
  return Replace(destination, Dereferenced(*source));
}
