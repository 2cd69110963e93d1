#include "tools/halyard/scalar_text.h"

#include <fmt/format.h>

#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

// The digits that tell the number from its neighbours; whole numbers without a point.
template <class Real>
std::string Shortest(Real number) {
  std::string text = fmt::format("{}", number);
  if (text.ends_with(".0")) text.resize(text.size() - 2);
  return text;
}

}  // namespace

std::string NumberText(double number) { return Shortest(number); }
std::string NumberText(float number) { return Shortest(number); }

bool SplitDate(DATE date, SYSTEMTIME& time) { return VariantTimeToSystemTime(date, &time) != 0; }

std::optional<std::string> DateText(DATE date) {
  SYSTEMTIME t{};
  if (!SplitDate(date, t)) return std::nullopt;
  const std::string day = fmt::format("{:04}-{:02}-{:02}", t.wYear, t.wMonth, t.wDay);
  if (t.wHour == 0 && t.wMinute == 0 && t.wSecond == 0) return day;
  return fmt::format("{} {:02}:{:02}:{:02}", day, t.wHour, t.wMinute, t.wSecond);
}

std::string ScalarText(const Variant& value) {
  switch (value.type()) {
    case VT_UI1:
      return std::to_string(value->bVal);
    case VT_I2:
      return std::to_string(value->iVal);
    case VT_I4:
      return std::to_string(value->lVal);
    case VT_R4:
      return NumberText(value->fltVal);
    case VT_R8:
      return NumberText(value->dblVal);
    case VT_DATE:
      return DateText(value->date).value_or(NumberText(value->date));
    case VT_BSTR:
      return FromLibrary(ViewOf(value->bstrVal));
    default:
      return {};
  }
}

}  // namespace halyard::tool
