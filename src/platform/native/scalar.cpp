#include "platform/native/scalar.h"

#include "platform/native/integer_type.h"
#include "platform/native/variant_type.h"

namespace halyard {
namespace {

Scalar ReadInteger(const VARIANT& source, const IntegerType& type) noexcept {
  const std::uint64_t bits = LoadBits(source, type);
  if (!type.is_signed) return bits;
  return static_cast<std::int64_t>(bits);
}

}  // namespace

HRESULT ReadScalar(const VARIANT& source, Scalar* scalar) noexcept {
  if (const IntegerType* type = FindIntegerType(source.vt)) {
    *scalar = ReadInteger(source, *type);
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
      *scalar = DecimalIn(source);
      return S_OK;
    case VT_BOOL:
      *scalar = Flag{source.boolVal != VARIANT_FALSE};
      return S_OK;
    case VT_BSTR:
      *scalar = WideView(source.bstrVal, SysStringLen(source.bstrVal));
      return S_OK;
    default:
      return DISP_E_TYPEMISMATCH;
  }
}

}  // namespace halyard
