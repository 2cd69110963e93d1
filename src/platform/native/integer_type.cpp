#include "platform/native/integer_type.h"

namespace halyard {
namespace {

constexpr IntegerType kIntegerTypes[] = {
    {VT_I1, 1, true},   {VT_I2, 2, true},   {VT_I4, 4, true},   {VT_I8, 8, true},   {VT_INT, 4, true},
    {VT_UI1, 1, false}, {VT_UI2, 2, false}, {VT_UI4, 4, false}, {VT_UI8, 8, false}, {VT_UINT, 4, false},
};

template <class Signed, class Unsigned>
std::uint64_t Extend(Unsigned value, bool is_signed) noexcept {
  if (!is_signed) return value;
  return static_cast<std::uint64_t>(std::int64_t{static_cast<Signed>(value)});
}

}  // namespace

const IntegerType* FindIntegerType(VARTYPE type) noexcept {
  for (const IntegerType& row : kIntegerTypes) {
    if (row.type == type) return &row;
  }
  return nullptr;
}

std::uint64_t LoadBits(const VARIANT& variant, const IntegerType& type) noexcept {
  switch (type.bytes) {
    case 1:
      return Extend<std::int8_t>(variant.bVal, type.is_signed);
    case 2:
      return Extend<std::int16_t>(variant.uiVal, type.is_signed);
    case 4:
      return Extend<std::int32_t>(variant.ulVal, type.is_signed);
    default:
      return variant.ullVal;
  }
}

void StoreBits(VARIANT& variant, const IntegerType& type, std::uint64_t bits) noexcept {
  variant.vt = type.type;
  switch (type.bytes) {
    case 1:
      variant.bVal = static_cast<BYTE>(bits);
      break;
    case 2:
      variant.uiVal = static_cast<USHORT>(bits);
      break;
    case 4:
      variant.ulVal = static_cast<ULONG>(bits);
      break;
    default:
      variant.ullVal = bits;
      break;
  }
}

}  // namespace halyard
