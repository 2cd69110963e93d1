#include "tests/support/variants.h"

#include <array>
#include <cstdio>

namespace halyard::test {
namespace {

std::string Number(const char* type, const char* format, double value) {
  std::array<char, 64> buffer{};
  std::snprintf(buffer.data(), buffer.size(), format, value);
  return std::string(type) + " " + buffer.data();
}

std::string Whole(const char* type, long long value) {
  return std::string(type) + " " + std::to_string(value);
}

}  // namespace

Variant Tagged(VARTYPE type) {
  Variant result;
  result.get().vt = type;
  return result;
}

Variant ByReference(BSTR* text) {
  Variant result = Tagged(static_cast<VARTYPE>(VT_BSTR | VT_BYREF));
  result.get().pbstrVal = text;
  return result;
}

std::string Describe(const VARIANT& value) {
  switch (value.vt) {
    case VT_EMPTY:
      return "EMPTY";
    case VT_NULL:
      return "NULL";
    case VT_I2:
      return Whole("I2", value.iVal);
    case VT_I4:
      return Whole("I4", value.lVal);
    case VT_UI1:
      return Whole("UI1", value.bVal);
    case VT_BOOL:
      return Whole("BOOL", value.boolVal);
    case VT_ERROR:
      return Whole("ERROR", value.scode);
    case VT_R4:
      return Number("R4", "%.9g", static_cast<double>(value.fltVal));
    case VT_R8:
      return Number("R8", "%.17g", value.dblVal);
    case VT_DATE:
      return Number("DATE", "%.17g", value.date);
    case VT_BSTR:
      return "BSTR " + Plain(value.bstrVal);
    case VT_DISPATCH:
      return "DISPATCH";
    default:
      return Whole("type", value.vt);
  }
}

std::string Plain(WideView text) {
  std::string result;
  for (const OLECHAR character : text) {
    const unsigned code = static_cast<unsigned>(character);
    if (code >= 0x20 && code < 0x7F) {
      result += static_cast<char>(code);
    } else {
      std::array<char, 8> buffer{};
      std::snprintf(buffer.data(), buffer.size(), "\\u%04X", code & 0xFFFFu);
      result += buffer.data();
    }
  }
  return result;
}

std::string Plain(BSTR text) { return text == nullptr ? "(null)" : Plain(ViewOf(text)); }

HRESULT ConvertObject(IUnknown* object, VARTYPE type, Variant* result) {
  const Variant source(Ptr<IUnknown>(object).As<IDispatch>().get());
  Variant& converted = *result;
  return VariantChangeType(converted.Out(), const_cast<VARIANT*>(&source.get()), 0, type);
}

}  // namespace halyard::test
