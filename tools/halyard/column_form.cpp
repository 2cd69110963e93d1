#include "tools/halyard/column_form.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>

#include "tools/halyard/scalar_text.h"

namespace halyard::tool {
namespace {

constexpr int kMostDecimals = 17;
constexpr std::string_view kDecimalsWord = "decimals ";
constexpr std::string_view kPointWord = "point";
constexpr std::string_view kDateTimeWord = "date-time";
constexpr std::string_view kIsoWord = "date-T-time";

template <class N>
std::optional<N> ParseWhole(std::string_view text) {
  N number{};
  const auto result = std::from_chars(text.data(), text.data() + text.size(), number);
  if (result.ec != std::errc() || result.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

// Digits of a fixed count at the front of a text, which they are taken off.
bool TakeDigits(std::string_view& text, std::size_t count, WORD& number) {
  if (text.size() < count) return false;
  unsigned value = 0;
  for (const char c : text.substr(0, count)) {
    if (c < '0' || c > '9') return false;
    value = 10 * value + static_cast<unsigned>(c - '0');
  }
  number = static_cast<WORD>(value);
  text.remove_prefix(count);
  return true;
}

bool IsSameTime(const SYSTEMTIME& a, const SYSTEMTIME& b) {
  return a.wYear == b.wYear && a.wMonth == b.wMonth && a.wDay == b.wDay && a.wHour == b.wHour &&
         a.wMinute == b.wMinute && a.wSecond == b.wSecond;
}

bool TakeMark(std::string_view& text, std::string_view marks) {
  if (text.empty() || marks.find(text.front()) == std::string_view::npos) return false;
  text.remove_prefix(1);
  return true;
}

}  // namespace

std::string ColumnForm::Name() const {
  switch (kind) {
    case Kind::kPoint:
      return std::string(kPointWord);
    case Kind::kDecimals:
      return fmt::format("{}{}", kDecimalsWord, decimals);
    case Kind::kDateTime:
      return std::string(kDateTimeWord);
    case Kind::kIso:
      return std::string(kIsoWord);
    default:
      return {};
  }
}

std::optional<ColumnForm> ColumnForm::Named(std::string_view name) {
  if (name == kPointWord) return ColumnForm{Kind::kPoint, 0};
  if (name == kDateTimeWord) return ColumnForm{Kind::kDateTime, 0};
  if (name == kIsoWord) return ColumnForm{Kind::kIso, 0};
  if (!name.starts_with(kDecimalsWord)) return std::nullopt;
  const auto count = ParseWhole<int>(name.substr(kDecimalsWord.size()));
  if (!count || *count < 0 || *count > kMostDecimals) return std::nullopt;
  return ColumnForm{Kind::kDecimals, *count};
}

std::string ColumnForm::Number(double number) const {
  if (kind == Kind::kPoint) return fmt::format("{}", number);
  if (kind == Kind::kDecimals) return fmt::format("{:.{}f}", number, decimals);
  return NumberText(number);
}

std::optional<std::string> ColumnForm::Date(DATE date) const {
  if (kind != Kind::kDateTime && kind != Kind::kIso) return DateText(date);
  SYSTEMTIME t{};
  if (!SplitDate(date, t)) return std::nullopt;
  return fmt::format("{:04}-{:02}-{:02}{}{:02}:{:02}:{:02}", t.wYear, t.wMonth, t.wDay,
                     kind == Kind::kIso ? 'T' : ' ', t.wHour, t.wMinute, t.wSecond);
}

std::string ColumnForm::Text(const Node& node) const {
  if (kind == Kind::kUsual) return node.Text();
  const Variant& content = node.content();
  if (content.type() == VT_R8) return Number(content->dblVal);
  if (content.type() == VT_DATE) return Date(content->date).value_or(node.Text());
  return node.Text();
}

std::optional<DATE> ParseDate(std::string_view text) {
  SYSTEMTIME t{};
  const bool has_day = TakeDigits(text, 4, t.wYear) && TakeMark(text, "-") && TakeDigits(text, 2, t.wMonth) &&
                       TakeMark(text, "-") && TakeDigits(text, 2, t.wDay);
  if (!has_day) return std::nullopt;
  if (!text.empty()) {
    const bool has_time = TakeMark(text, " T") && TakeDigits(text, 2, t.wHour) && TakeMark(text, ":") &&
                          TakeDigits(text, 2, t.wMinute) && TakeMark(text, ":") &&
                          TakeDigits(text, 2, t.wSecond);
    if (!has_time || !text.empty()) return std::nullopt;
  }
  DATE date = 0;
  if (SystemTimeToVariantTime(&t, &date) == 0) return std::nullopt;
  // The conversion makes 1 March of 30 February, and 2001 of the year 1.
  SYSTEMTIME stored{};
  if (!SplitDate(date, stored) || !IsSameTime(stored, t)) return std::nullopt;
  return date;
}

std::optional<double> ParseNumber(std::string_view text) {
  const auto number = ParseWhole<double>(text);
  if (!number || !std::isfinite(*number)) return std::nullopt;
  return number;
}

std::optional<std::int64_t> ParseInteger(std::string_view text) { return ParseWhole<std::int64_t>(text); }

}  // namespace halyard::tool
