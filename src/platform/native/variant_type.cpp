#include "platform/native/variant_type.h"

#include <cstring>

namespace halyard {
namespace {

constexpr VARTYPE kUnassigned = 15;     // no type was ever given this number
constexpr VARTYPE kFirstNonValue = 24;  // void, pointers and user types: descriptions only
constexpr VARTYPE kVectorOrReserved = 0x9000;

}  // namespace

std::size_t ScalarBytes(VARTYPE type) noexcept {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_R4:
    case VT_ERROR:
      return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return sizeof(void*);
    case VT_DECIMAL:
      return sizeof(DECIMAL);
    default:
      return 0;
  }
}

HRESULT CheckType(VARTYPE type) noexcept {
  const VARTYPE base = BaseType(type);
  if ((type & kVectorOrReserved) != 0 || base == kUnassigned) return DISP_E_BADVARTYPE;
  if (base >= kFirstNonValue && base != VT_RECORD) return DISP_E_BADVARTYPE;
  if (base <= VT_NULL && (IsByRef(type) || IsArray(type))) return DISP_E_BADVARTYPE;
  return S_OK;
}

DECIMAL DecimalIn(const VARIANT& variant) noexcept {
  DECIMAL value;
  std::memcpy(&value, &variant, sizeof(value));
  value.wReserved = 0;
  return value;
}

void StoreDecimal(VARIANT& variant, const DECIMAL& value) noexcept {
  std::memcpy(&variant, &value, sizeof(value));
  variant.vt = VT_DECIMAL;
}

}  // namespace halyard
