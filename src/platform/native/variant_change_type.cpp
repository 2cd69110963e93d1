// Conversion of variants: finds the scalar behind the source, then the conversion of
// the target's kind.
#include "halyard/platform/native/dispatch.h"
#include "platform/native/convert.h"
#include "platform/native/variant_type.h"

namespace halyard {
namespace {

// The value of an object is its default member.
HRESULT ReadDefaultMember(IDispatch* object, VARIANT* value) {
  if (object == nullptr) return DISP_E_TYPEMISMATCH;
  DISPPARAMS none{};
  const HRESULT hr = object->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none,
                                    value, nullptr, nullptr);
  return FAILED(hr) ? DISP_E_TYPEMISMATCH : S_OK;
}

HRESULT ConvertObject(const VARIANT& source, VARTYPE type, VARIANT* result) {
  if (type == VT_DISPATCH || type == VT_UNKNOWN) {
    if (source.punkVal == nullptr) {
      result->vt = type;
      result->punkVal = nullptr;
      return S_OK;
    }
    const IID& iid = type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown;
    void* object = nullptr;
    if (FAILED(source.punkVal->QueryInterface(iid, &object))) return E_NOINTERFACE;
    result->vt = type;
    result->punkVal = static_cast<IUnknown*>(object);
    return S_OK;
  }
  if (source.vt != VT_DISPATCH) return DISP_E_TYPEMISMATCH;
  VARIANT value;
  VariantInit(&value);
  HRESULT hr = ReadDefaultMember(source.pdispVal, &value);
  if (SUCCEEDED(hr))
    hr = value.vt == VT_DISPATCH ? DISP_E_TYPEMISMATCH : VariantChangeType(result, &value, 0, type);
  VariantClear(&value);
  return hr;
}

template <class T>
HRESULT Store(HRESULT hr, VARTYPE type, T VARIANT::*member, const T& value, VARIANT* result) noexcept {
  if (FAILED(hr)) return hr;
  result->vt = type;
  result->*member = value;
  return hr;
}

HRESULT ConvertScalar(const Scalar& source, VARTYPE type, VARIANT* result) noexcept {
  if (const IntegerType* integer = FindIntegerType(type)) {
    std::uint64_t bits = 0;
    const HRESULT hr = ToInteger(source, *integer, &bits);
    if (SUCCEEDED(hr)) StoreBits(*result, *integer, bits);
    return hr;
  }
  switch (type) {
    case VT_EMPTY:
      return S_OK;
    case VT_R4: {
      float value = 0;
      const HRESULT hr = ToFloat(source, &value);
      return Store(hr, type, &VARIANT::fltVal, value, result);
    }
    case VT_R8: {
      double value = 0;
      const HRESULT hr = ToDouble(source, &value);
      return Store(hr, type, &VARIANT::dblVal, value, result);
    }
    case VT_DATE: {
      DATE value = 0;
      const HRESULT hr = ToDate(source, &value);
      return Store(hr, type, &VARIANT::date, value, result);
    }
    case VT_CY: {
      CY value{};
      const HRESULT hr = ToCurrency(source, &value);
      return Store(hr, type, &VARIANT::cyVal, value, result);
    }
    case VT_BOOL: {
      VARIANT_BOOL value = VARIANT_FALSE;
      const HRESULT hr = ToBool(source, &value);
      return Store(hr, type, &VARIANT::boolVal, value, result);
    }
    case VT_BSTR: {
      BSTR value = nullptr;
      const HRESULT hr = ToText(source, &value);
      return Store(hr, type, &VARIANT::bstrVal, value, result);
    }
    case VT_DECIMAL: {
      DECIMAL value{};
      const HRESULT hr = ToDecimal(source, &value);
      if (SUCCEEDED(hr)) StoreDecimal(*result, value);
      return hr;
    }
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

// Converts a variant without VT_BYREF into an empty one.
HRESULT Convert(const VARIANT& source, VARTYPE type, VARIANT* result) {
  if (source.vt == type) return VariantCopy(result, &source);
  if (source.vt == VT_DISPATCH || source.vt == VT_UNKNOWN) return ConvertObject(source, type, result);
  Scalar scalar;
  const HRESULT hr = ReadScalar(source, &scalar);
  if (FAILED(hr)) return hr;
  return ConvertScalar(scalar, type, result);
}

}  // namespace
}  // namespace halyard

HRESULT VariantChangeType(VARIANTARG* destination, const VARIANTARG* source, USHORT, VARTYPE vt) {
  if (destination == nullptr || source == nullptr) return E_INVALIDARG;
  HRESULT hr = halyard::CheckType(source->vt);
  if (SUCCEEDED(hr)) hr = halyard::CheckType(vt);
  if (FAILED(hr)) return hr;
  if (halyard::IsArray(source->vt) || halyard::IsArray(vt) || halyard::IsByRef(vt))
    return DISP_E_TYPEMISMATCH;
  VARIANT value;
  VARIANT result;
  VariantInit(&value);
  VariantInit(&result);
  hr = VariantCopyInd(&value, source);
  if (SUCCEEDED(hr)) hr = halyard::Convert(value, vt, &result);
  VariantClear(&value);
  if (SUCCEEDED(hr)) hr = VariantClear(destination);
  if (FAILED(hr)) {
    VariantClear(&result);
    return hr;
  }
  *destination = result;
  return S_OK;
}
