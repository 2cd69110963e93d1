// Conversion of variants: finds the scalar behind the source, then the conversion of
// the target's kind.
#include "halyard/platform/native/dispatch.h"
#include "platform/native/convert.h"
#include "platform/native/variant_type.h"

namespace halyard {
namespace {

// Objects may name objects as their value; more of them in a row than this are a circle.
constexpr int kMaxObjects = 64;

bool IsObject(VARTYPE type) noexcept { return type == VT_DISPATCH || type == VT_UNKNOWN; }

HRESULT ConvertToObject(const VARIANT& source, VARTYPE type, VARIANT* result) {
  void* object = nullptr;
  if (source.punkVal != nullptr) {
    const IID& iid = type == VT_DISPATCH ? IID_IDispatch : IID_IUnknown;
    if (FAILED(source.punkVal->QueryInterface(iid, &object))) return E_NOINTERFACE;
  }
  result->vt = type;
  result->punkVal = static_cast<IUnknown*>(object);
  return S_OK;
}

// Replaces an object in `value` by what its default member answers.
HRESULT ReadDefaultMember(VARIANT* value) {
  if (value->pdispVal == nullptr) return DISP_E_BADVARTYPE;
  DISPPARAMS none{};
  VARIANT member;
  VariantInit(&member);
  const HRESULT hr = value->pdispVal->Invoke(DISPID_VALUE, IID_NULL, LOCALE_USER_DEFAULT,
                                             DISPATCH_PROPERTYGET, &none, &member, nullptr, nullptr);
  if (FAILED(hr)) {
    VariantClear(&member);
    return DISP_E_TYPEMISMATCH;
  }
  const HRESULT copied = VariantCopyInd(value, &member);
  VariantClear(&member);
  return copied;
}

// Puts a value that is no object in the place of an object.
HRESULT ReadDefaultMembers(VARIANT* value) {
  for (int objects = 0; value->vt == VT_DISPATCH; ++objects) {
    if (objects == kMaxObjects) return DISP_E_TYPEMISMATCH;
    const HRESULT hr = ReadDefaultMember(value);
    if (FAILED(hr)) return hr;
  }
  return S_OK;
}

// Types that values are converted to; VT_ERROR and the objects are not among them.
bool IsConvertible(VARTYPE type) noexcept {
  return ScalarBytes(type) != 0 && type != VT_ERROR && !IsObject(type);
}

// Converts to the kind of one member of the variant.
template <class T>
HRESULT Put(HRESULT (*convert)(const Scalar&, T*) noexcept, const Scalar& source, VARTYPE type,
            T VARIANT::*member, VARIANT* result) noexcept {
  T value{};
  const HRESULT hr = convert(source, &value);
  if (FAILED(hr)) return hr;
  result->vt = type;
  result->*member = value;
  return hr;
}

HRESULT PutInteger(const Scalar& source, const IntegerType& type, VARIANT* result) noexcept {
  std::uint64_t bits = 0;
  const HRESULT hr = ToInteger(source, type, &bits);
  if (SUCCEEDED(hr)) StoreBits(*result, type, bits);
  return hr;
}

HRESULT PutDecimal(const Scalar& source, VARIANT* result) noexcept {
  DECIMAL value{};
  const HRESULT hr = ToDecimal(source, &value);
  if (SUCCEEDED(hr)) StoreDecimal(*result, value);
  return hr;
}

HRESULT ConvertScalar(const Scalar& source, VARTYPE type, VARIANT* result) noexcept {
  if (const IntegerType* integer = FindIntegerType(type)) return PutInteger(source, *integer, result);
  switch (type) {
    case VT_R4:
      return Put(ToFloat, source, type, &VARIANT::fltVal, result);
    case VT_R8:
      return Put(ToDouble, source, type, &VARIANT::dblVal, result);
    case VT_DATE:
      return Put(ToDate, source, type, &VARIANT::date, result);
    case VT_CY:
      return Put(ToCurrency, source, type, &VARIANT::cyVal, result);
    case VT_BOOL:
      return Put(ToBool, source, type, &VARIANT::boolVal, result);
    case VT_BSTR:
      return Put(ToText, source, type, &VARIANT::bstrVal, result);
    case VT_DECIMAL:
      return PutDecimal(source, result);
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

// Every value can be forgotten, except a status, and VT_NULL only for VT_NULL.
HRESULT Forget(VARTYPE source, VARTYPE type, VARIANT* result) noexcept {
  if (source == VT_ERROR || (source == VT_NULL && type == VT_EMPTY)) return DISP_E_TYPEMISMATCH;
  result->vt = type;
  return S_OK;
}

// Converts a variant without VT_BYREF, which may change, into an empty one.
HRESULT Convert(VARIANT* source, VARTYPE type, VARIANT* result) {
  if (source->vt == type) return VariantCopy(result, source);
  if (IsArray(source->vt)) return DISP_E_TYPEMISMATCH;
  if (type == VT_EMPTY || type == VT_NULL) return Forget(source->vt, type, result);
  if (IsObject(source->vt) && IsObject(type)) return ConvertToObject(*source, type, result);
  if (!IsConvertible(type)) return DISP_E_TYPEMISMATCH;
  HRESULT hr = ReadDefaultMembers(source);
  if (FAILED(hr)) return hr;
  if (source->vt == type) return VariantCopy(result, source);
  Scalar scalar;
  hr = ReadScalar(*source, &scalar);
  return FAILED(hr) ? hr : ConvertScalar(scalar, type, result);
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
  if (SUCCEEDED(hr)) hr = halyard::Convert(&value, vt, &result);
  VariantClear(&value);
  if (SUCCEEDED(hr)) hr = VariantClear(destination);
  if (FAILED(hr)) {
    VariantClear(&result);
    return hr;
  }
  *destination = result;
  return S_OK;
}
