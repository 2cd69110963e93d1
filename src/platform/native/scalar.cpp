#include "platform/native/scalar.h"

#include "platform/native/variant_type.h"

namespace halyard {
namespace {

WideView ReadText(BSTR text) noexcept {
  const WideView whole(text, SysStringLen(text));
  return whole.substr(0, whole.find(u'\0'));
}

HRESULT ReadDecimal(const DECIMAL& value, Scalar* scalar) noexcept {
  if (value.scale > kMaxDecimalScale) return E_INVALIDARG;
  *scalar = value;
  return S_OK;
}

}  // namespace

HRESULT ReadScalar(const VARIANT& source, Scalar* scalar) noexcept {
  if (const IntegerType* type = FindIntegerType(source.vt)) {
    *scalar = Integer{LoadBits(source, *type), type};
    return S_OK;
  }
  switch (source.vt) {
    case VT_EMPTY:
      *scalar = Nothing{};
      return S_OK;
    case VT_R4:
      *scalar = source.fltVal;
      return S_OK;
    case VT_R8:
      *scalar = source.dblVal;
      return S_OK;
    case VT_CY:
      *scalar = Money{source.cyVal.int64};
      return S_OK;
    case VT_DATE:
      *scalar = Moment{source.date};
      return S_OK;
    case VT_DECIMAL:
      return ReadDecimal(DecimalIn(source), scalar);
    case VT_BOOL:
      *scalar = Flag{source.boolVal};
      return S_OK;
    case VT_BSTR:
      *scalar = ReadText(source.bstrVal);
      return S_OK;
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

}  // namespace halyard
