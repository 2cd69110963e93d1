// The quick way between number fields and variants: for a number that a field of its
// type takes as it is. It allocates nothing, raises nothing and answers exactly what
// the general conversion (types/elementary.h) answers; whatever it does not know is
// left to that one.
#pragma once

#include <cstdint>
#include <cstring>

#include "halyard/object/number_variant.h"
#include "halyard/types/type_codes.h"

namespace halyard {

namespace detail {

template <class N>
N LoadField(const unsigned char* bytes) noexcept {
  N value;
  std::memcpy(&value, bytes, sizeof value);
  return value;
}

template <class N>
bool StoreField(unsigned char* bytes, N value) noexcept {
  std::memcpy(bytes, &value, sizeof value);
  return true;
}

}  // namespace detail

// How fields of a number type are read and stored, for whoever keeps that beside the field.
struct NumberForm {
  VARTYPE variant = VT_EMPTY;   // of the number
  std::uint8_t read_width = 0;  // the bytes that it is read from; 0 for no number type
  std::uint8_t own_width = 0;   // the bytes that a number of that variant is stored in as it is, or 0
};

constexpr NumberForm NumberFormOf(SHORT type) noexcept {
  switch (type) {
    case kChar:
    case kByte:
      return {VT_UI1, 1, 1};
    case kShort:
    case kWord:
      return {VT_I2, 2, 2};
    case kLong:
    case kDWord:
      return {VT_I4, 4, 4};
    case kInt64:
      return {VT_I4, 4, 0};
    case kShortReal:
      return {VT_R4, 4, 4};
    case kReal:
      return {VT_R8, 8, 8};
    default:
      return {};
  }
}

// As LoadNumber for a field of that form.
inline bool LoadNumberOf(NumberForm form, const unsigned char* field, VARIANT& fresh) noexcept {
  switch (form.read_width) {
    case 1:
      fresh = ScalarVariant(form.variant, *field);
      return true;
    case 2:
      fresh = ScalarVariant(form.variant, detail::LoadField<std::uint16_t>(field));
      return true;
    case 4:
      fresh = ScalarVariant(form.variant, detail::LoadField<std::uint32_t>(field));
      return true;
    case 8:
      fresh = ScalarVariant(form.variant, detail::LoadField<std::uint64_t>(field));
      return true;
    default:
      return false;
  }
}

// As StoreOwnNumber for a field of that form, where that stores the number as it is.
inline bool StoreNumberOf(NumberForm form, const VARIANT& value, unsigned char* field) noexcept {
  if (value.vt != form.variant) return false;
  switch (form.own_width) {
    case 1:
      std::memcpy(field, &value.llVal, 1);
      return true;
    case 2:
      std::memcpy(field, &value.llVal, 2);
      return true;
    case 4:
      std::memcpy(field, &value.llVal, 4);
      return true;
    case 8:
      std::memcpy(field, &value.llVal, 8);
      return true;
    default:
      return false;
  }
}

// Makes `fresh`, which is empty and new, hold the number of a field as a new variant
// holds it; false, and nothing changed, for types that are no number type.
inline bool LoadNumber(const unsigned char* field, SHORT type, VARIANT& fresh) noexcept {
  switch (type) {
    case kChar:
    case kByte:
      fresh = ScalarVariant(VT_UI1, *field);
      return true;
    case kShort:
    case kWord:
      fresh = ScalarVariant(VT_I2, detail::LoadField<std::uint16_t>(field));
      return true;
    case kLong:
    case kDWord:
    case kInt64:
      fresh = ScalarVariant(VT_I4, detail::LoadField<std::uint32_t>(field));
      return true;
    case kShortReal:
      fresh = ScalarVariant(VT_R4, detail::LoadField<std::uint32_t>(field));
      return true;
    case kReal:
      fresh = ScalarVariant(VT_R8, detail::LoadField<std::uint64_t>(field));
      return true;
    default:
      return false;
  }
}

// Whether a number has the variant type of the field's type, a number type.
inline bool IsNumberOf(const VARIANT& value, SHORT type) noexcept {
  switch (type) {
    case kChar:
    case kByte:
      return value.vt == VT_UI1;
    case kShort:
    case kWord:
      return value.vt == VT_I2;
    case kLong:
    case kDWord:
    case kInt64:
      return value.vt == VT_I4;
    case kShortReal:
      return value.vt == VT_R4;
    case kReal:
      return value.vt == VT_R8;
    default:
      return false;
  }
}

// Stores a number of another type, where the field's type holds that very number.
bool StoreOtherNumber(const VARIANT& value, SHORT type, unsigned char* field) noexcept;

// Stores a number that has the variant type of the field's type.
inline bool StoreOwnNumber(const VARIANT& value, SHORT type, unsigned char* field) noexcept {
  switch (type) {
    case kChar:
    case kByte:
      if (value.vt == VT_UI1) return detail::StoreField(field, value.bVal);
      break;
    case kShort:
    case kWord:
      if (value.vt == VT_I2) return detail::StoreField(field, value.iVal);
      break;
    case kLong:
    case kDWord:
      if (value.vt == VT_I4) return detail::StoreField(field, value.lVal);
      break;
    case kInt64:
      if (value.vt == VT_I4) return detail::StoreField(field, std::int64_t{value.lVal});
      break;
    case kShortReal:
      if (value.vt == VT_R4) return detail::StoreField(field, value.fltVal);
      break;
    case kReal:
      if (value.vt == VT_R8) return detail::StoreField(field, value.dblVal);
      break;
    default:
      break;
  }
  return false;
}

// Stores a number in a field; false, and nothing stored, where the type is no number
// type or the value is no number of it.
inline bool StoreNumber(const VARIANT& value, SHORT type, unsigned char* field) noexcept {
  return StoreOwnNumber(value, type, field) || StoreOtherNumber(value, type, field);
}

}  // namespace halyard
