#include "types/elementary.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "halyard/object/variant.h"
#include "object/widened.h"
#include "platform/text.h"
#include "types/number_fields.h"
#include "types/packed_date.h"
#include "types/type_names.h"

namespace halyard {
namespace {

using detail::LoadField;
using detail::StoreField;

// Gives the variant another type, freeing what it held.
VARIANT& Retype(VARIANT& variant, VARTYPE type) {
  Check(VariantClear(&variant));
  variant.vt = type;
  return variant;
}

VARIANT_BOOL ToBool(LONG number) noexcept { return number != 0 ? VARIANT_TRUE : VARIANT_FALSE; }

void AssignShort(VARIANT& variant, SHORT value) {
  if (variant.vt == VT_BOOL) {
    variant.boolVal = ToBool(value);
  } else if (variant.vt == VT_I2) {
    variant.iVal = value;
  } else {
    Retype(variant, VT_I2).iVal = value;
  }
}

void AssignLong(VARIANT& variant, LONG value) {
  if (variant.vt == VT_BOOL) {
    variant.boolVal = ToBool(value);
  } else if (variant.vt == VT_I4 || variant.vt == VT_ERROR) {
    variant.lVal = value;
  } else {
    Retype(variant, VT_I4).lVal = value;
  }
}

void AssignReal(VARIANT& variant, double value) {
  if (variant.vt == VT_R8 || variant.vt == VT_DATE) {
    variant.dblVal = value;
  } else {
    Retype(variant, VT_R8).dblVal = value;
  }
}

void AssignText(VARIANT& variant, std::string_view narrow) {
  Bstr text = Widened(narrow);
  Retype(variant, VT_BSTR).bstrVal = text.Detach();
}

std::string_view TextToZero(std::span<const unsigned char> bytes) noexcept {
  const auto end = std::find(bytes.begin(), bytes.end(), static_cast<unsigned char>(0));
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<std::size_t>(end - bytes.begin())};
}

// Fills the field with the text, cut or followed by zeros.
void StoreText(unsigned char* field, std::uint16_t size, WideView text) {
  const std::string narrow = NarrowToZero(text);
  const std::size_t used = std::min<std::size_t>(narrow.size(), size);
  if (used != 0) std::memcpy(field, narrow.data(), used);
  std::memset(field + used, 0, size - used);
}

// Stores a value that already has the variant type of `type`.
void StoreConverted(const VARIANT& value, SHORT type, unsigned char* bytes, std::uint16_t data_size) {
  switch (type) {
    case kFixedString:
      StoreText(bytes, data_size, ViewOf(value.bstrVal));
      break;
    case kChar:
    case kByte:
      StoreField(bytes, value.bVal);
      break;
    case kShort:
    case kWord:
      StoreField(bytes, value.iVal);
      break;
    case kLong:
    case kDWord:
      StoreField(bytes, value.lVal);
      break;
    case kInt64:
      StoreField(bytes, static_cast<std::int64_t>(value.lVal));
      break;
    case kShortReal:
      StoreField(bytes, value.fltVal);
      break;
    case kReal:
      StoreField(bytes, value.dblVal);
      break;
    default:
      break;
  }
}

void StoreDate(VARIANT& variant, unsigned char* bytes) {
  if (variant.vt != VT_DATE) Check(VariantChangeType(&variant, &variant, 0, VT_DATE));
  StoreField(bytes, PackedFromDate(variant.date));
}

}  // namespace

std::uint16_t ElementaryByteCount(SHORT type, std::uint16_t data_size) noexcept {
  return data_size != 0 ? data_size : ElementarySize(type);
}

VARTYPE VariantTypeOf(SHORT type) noexcept {
  switch (type) {
    case kString:
    case kFixedString:
      return VT_BSTR;
    case kChar:
    case kByte:
      return VT_UI1;
    case kShort:
    case kWord:
      return VT_I2;
    case kLong:
    case kDWord:
    case kInt64:
      return VT_I4;
    case kShortReal:
      return VT_R4;
    case kReal:
      return VT_R8;
    case kDate:
      return VT_DATE;
    default:
      return VT_EMPTY;
  }
}

bool ReadElementary(std::span<const unsigned char> bytes, SHORT type, VARIANT& variant) {
  switch (type) {
    case kFixedString:
      AssignText(variant, TextToZero(bytes));
      return true;
    case kChar:
    case kByte:
      Retype(variant, VT_UI1).bVal = bytes[0];
      return true;
    case kShort:
    case kWord:
      AssignShort(variant, LoadField<SHORT>(bytes.data()));
      return true;
    case kLong:
    case kDWord:
    case kInt64:
      AssignLong(variant, LoadField<LONG>(bytes.data()));
      return true;
    case kShortReal:
      Retype(variant, VT_R4).fltVal = LoadField<float>(bytes.data());
      return true;
    case kReal:
      AssignReal(variant, LoadField<double>(bytes.data()));
      return true;
    case kDate:
      Retype(variant, VT_DATE).date = DateFromPacked(LoadField<PackedDate>(bytes.data()));
      return true;
    default:
      return false;
  }
}

bool WriteElementary(VARIANT& variant, SHORT type, unsigned char* bytes, std::uint16_t data_size) {
  const VARTYPE needed = VariantTypeOf(type);
  if (needed == VT_EMPTY || type == kString) return false;
  if (type == kDate) {
    StoreDate(variant, bytes);
  } else if (variant.vt == needed) {
    StoreConverted(variant, type, bytes, data_size);
  } else {
    StoreConverted(Variant::Converted(variant, needed).get(), type, bytes, data_size);
  }
  return true;
}

}  // namespace halyard
