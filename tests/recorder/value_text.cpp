#include "tests/recorder/value_text.h"

#include <charconv>
#include <cstring>

#include "tests/recorder/default_member.h"

namespace halyard::recorder {
namespace {

struct TypeName {
  VARTYPE type;
  std::string_view name;
};

constexpr TypeName kTypeNames[] = {
    {VT_EMPTY, "EMPTY"},     {VT_NULL, "NULL"},       {VT_I1, "I1"},
    {VT_I2, "I2"},           {VT_I4, "I4"},           {VT_I8, "I8"},
    {VT_INT, "INT"},         {VT_UI1, "UI1"},         {VT_UI2, "UI2"},
    {VT_UI4, "UI4"},         {VT_UI8, "UI8"},         {VT_UINT, "UINT"},
    {VT_R4, "R4"},           {VT_R8, "R8"},           {VT_CY, "CY"},
    {VT_DATE, "DATE"},       {VT_BSTR, "BSTR"},       {VT_DISPATCH, "DISPATCH"},
    {VT_ERROR, "ERROR"},     {VT_BOOL, "BOOL"},       {VT_VARIANT, "VARIANT"},
    {VT_UNKNOWN, "UNKNOWN"}, {VT_DECIMAL, "DECIMAL"},
};

// How the values of a tag are written.
enum class Form { kNothing, kSigned, kUnsigned, kBits, kDecimal, kText, kObject, kTag };

Form FormOf(VARTYPE type) {
  switch (type) {
    case VT_EMPTY:
    case VT_NULL:
      return Form::kNothing;
    case VT_I1:
    case VT_I2:
    case VT_I4:
    case VT_I8:
    case VT_INT:
    case VT_CY:
    case VT_BOOL:
      return Form::kSigned;
    case VT_UI1:
    case VT_UI2:
    case VT_UI4:
    case VT_UI8:
    case VT_UINT:
      return Form::kUnsigned;
    case VT_R4:
    case VT_R8:
    case VT_DATE:
    case VT_ERROR:
      return Form::kBits;
    case VT_DECIMAL:
      return Form::kDecimal;
    case VT_BSTR:
      return Form::kText;
    case VT_DISPATCH:
    case VT_UNKNOWN:
      return Form::kObject;
    default:
      return Form::kTag;
  }
}

int BytesOf(VARTYPE type) {
  switch (type) {
    case VT_I1:
    case VT_UI1:
      return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL:
      return 2;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_CY:
    case VT_DATE:
      return 8;
    default:
      return 4;
  }
}

unsigned long long Bits(const VARIANT& value) {
  return value.ullVal & (~0ULL >> (64 - 8 * BytesOf(value.vt)));
}

template <class T>
bool ParseWhole(std::string_view text, T* value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *value);
  return error == std::errc() && end == text.data() + text.size();
}

bool ParseDecimal(std::string_view text, VARIANT* variant) {
  unsigned long long sign = 0;
  unsigned long long scale = 0;
  unsigned long long high = 0;
  unsigned long long low = 0;
  if (text.size() != 31 || !ParseHex(text.substr(0, 2), &sign) || !ParseHex(text.substr(3, 2), &scale) ||
      !ParseHex(text.substr(6, 8), &high) || !ParseHex(text.substr(15, 16), &low)) {
    return false;
  }
  DECIMAL decimal{};
  decimal.scale = static_cast<BYTE>(scale);
  decimal.sign = static_cast<BYTE>(sign);
  decimal.Hi32 = static_cast<ULONG>(high);
  decimal.Lo64 = low;
  std::memcpy(variant, &decimal, sizeof(decimal));
  variant->vt = VT_DECIMAL;
  return true;
}

std::string FormatDecimal(const VARIANT& variant) {
  DECIMAL decimal;
  std::memcpy(&decimal, &variant, sizeof(decimal));
  return FormatHex(decimal.sign, 2) + '.' + FormatHex(decimal.scale, 2) + '.' + FormatHex(decimal.Hi32, 8) +
         '.' + FormatHex(decimal.Lo64, 16);
}

bool ParseText(std::string_view text, VARIANT* variant) {
  if (text.size() < 2 || text.front() != '"' || text.back() != '"') return false;
  text = text.substr(1, text.size() - 2);
  std::basic_string<OLECHAR> wide;
  while (!text.empty()) {
    unsigned long long unit = static_cast<unsigned char>(text.front());
    std::size_t taken = 1;
    if (text.substr(0, 2) == "\\u") {
      if (!ParseHex(text.substr(2, 4), &unit)) return false;
      taken = 6;
    } else if (text.substr(0, 2) == "\\\\") {
      taken = 2;
    }
    wide.push_back(static_cast<OLECHAR>(unit));
    text.remove_prefix(taken);
  }
  variant->bstrVal = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
  return variant->bstrVal != nullptr;
}

std::string FormatText(BSTR text) {
  if (text == nullptr) return "null";
  std::string result = "\"";
  for (UINT i = 0; i < SysStringLen(text); ++i) {
    const auto unit = static_cast<unsigned>(text[i]);
    if (unit < 0x20 || unit > 0x7E) {
      result += "\\u" + FormatHex(unit, 4);
    } else {
      if (unit == '\\') result += '\\';
      result += static_cast<char>(unit);
    }
  }
  return result + '"';
}

bool ParseObject(std::string_view text, VARIANT* variant) {
  if (text == "null") return true;
  if (text.size() < 2 || text.front() != '{' || text.back() != '}') return false;
  variant->pdispVal = NewDefaultMember(std::string(text.substr(1, text.size() - 2)));
  return true;
}

bool ParsePayload(Form form, std::string_view text, VARIANT* variant) {
  unsigned long long bits = 0;
  switch (form) {
    case Form::kSigned:
      return ParseWhole(text, &variant->llVal);
    case Form::kUnsigned:
      return ParseWhole(text, &variant->ullVal);
    case Form::kBits:
      if (!ParseHex(text, &bits)) return false;
      variant->ullVal = bits;
      return true;
    case Form::kDecimal:
      return ParseDecimal(text, variant);
    case Form::kText:
      return text == "null" || ParseText(text, variant);
    case Form::kObject:
      return ParseObject(text, variant);
    default:
      return false;
  }
}

bool ParseReference(std::string_view text, bool to_variant, Value* value) {
  auto target = std::make_unique<Value>();
  if (!ParseValue(text, target.get())) return false;
  VARIANT& pointed = target->variant;
  value->variant.vt = static_cast<VARTYPE>(VT_BYREF | (to_variant ? VARTYPE{VT_VARIANT} : pointed.vt));
  const bool whole = to_variant || pointed.vt == VT_DECIMAL;
  value->variant.byref = whole ? static_cast<void*>(&pointed) : static_cast<void*>(&pointed.llVal);
  value->targets.push_back(std::move(target));
  return true;
}

}  // namespace

Value::~Value() { VariantClear(&variant); }

bool ParseValue(std::string_view text, Value* value) {
  if (text.empty()) return false;
  if (text.front() == '&' || text.front() == '*') {
    return ParseReference(text.substr(1), text.front() == '*', value);
  }
  const std::size_t colon = text.find(':');
  const std::string_view name = text.substr(0, colon);
  const std::string_view payload = colon == std::string_view::npos ? "" : text.substr(colon + 1);
  if (name == "TAG") return ParseType(payload, &value->variant.vt);
  if (!ParseType(name, &value->variant.vt)) return false;
  const Form form = FormOf(value->variant.vt);
  return form == Form::kNothing ? colon == std::string_view::npos
                                : ParsePayload(form, payload, &value->variant);
}

std::string FormatValue(const VARIANT& value) {
  const std::string name = FormatType(value.vt) + ':';
  const Form form = FormOf(value.vt);
  switch (form) {
    case Form::kNothing:
      return FormatType(value.vt);
    case Form::kSigned: {
      const int unused = 64 - 8 * BytesOf(value.vt);
      return name + std::to_string(static_cast<long long>(Bits(value) << unused) >> unused);
    }
    case Form::kUnsigned:
      return name + std::to_string(Bits(value));
    case Form::kBits:
      return name + FormatHex(Bits(value), 2 * BytesOf(value.vt));
    case Form::kDecimal:
      return name + FormatDecimal(value);
    case Form::kText:
      return name + FormatText(value.bstrVal);
    case Form::kObject:
      return name + (value.punkVal == nullptr ? "null" : "object");
    default:
      return "TAG:" + FormatHex(value.vt, 4);
  }
}

bool ParseType(std::string_view text, VARTYPE* type) {
  for (const TypeName& row : kTypeNames) {
    if (row.name == text) {
      *type = row.type;
      return true;
    }
  }
  unsigned long long number = 0;
  if (text.size() != 4 || !ParseHex(text, &number)) return false;
  *type = static_cast<VARTYPE>(number);
  return true;
}

std::string FormatType(VARTYPE type) {
  for (const TypeName& row : kTypeNames) {
    if (row.type == type) return std::string(row.name);
  }
  return FormatHex(type, 4);
}

bool ParseHex(std::string_view text, unsigned long long* value) {
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), *value, 16);
  return error == std::errc() && end == text.data() + text.size();
}

std::string FormatHex(unsigned long long value, int digits) {
  std::string result(static_cast<std::size_t>(digits), '0');
  for (auto digit = result.rbegin(); digit != result.rend(); ++digit, value >>= 4) {
    *digit = "0123456789ABCDEF"[value & 0xF];
  }
  return result;
}

}  // namespace halyard::recorder
