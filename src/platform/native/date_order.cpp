#include "platform/native/date_order.h"

#include <ctime>
#include <string_view>

namespace halyard {
namespace {

int ThisYear() noexcept {
  constexpr int kYearOfTmZero = 1900;
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  return localtime_r(&now, &local) == nullptr ? kYearOfTmZero : local.tm_year + kYearOfTmZero;
}

bool IsDay(int year, int month, int day) noexcept {
  return year >= kFirstYear && year <= kLastYear && month >= 1 && month <= 12 && day >= 1 &&
         day <= DaysInMonth(year, month);
}

// Reads the numbers in an order, one letter for each: "MDY". A year below 100 is short
// for one of this or the last century.
bool Fits(const DateNumbers& written, std::string_view order, CalendarTime* time) noexcept {
  int year = -1;
  int month = written.named_month;
  int day = 1;
  for (std::size_t i = 0; i < order.size(); ++i) {
    const int number = written.numbers[i];
    if (order[i] == 'Y') year = number < 100 ? FullYear(number) : number;
    if (order[i] == 'M') month = number;
    if (order[i] == 'D') day = number;
  }
  if (year < 0) year = ThisYear();
  if (!IsDay(year, month, day)) return false;
  time->year = year;
  time->month = month;
  time->day = day;
  return true;
}

bool FitsOne(const DateNumbers& written, std::initializer_list<std::string_view> orders,
             CalendarTime* time) noexcept {
  for (const std::string_view order : orders) {
    if (Fits(written, order, time)) return true;
  }
  return false;
}

}  // namespace

bool OrderDate(const DateNumbers& written, CalendarTime* time) noexcept {
  const bool named = written.named_month != 0;
  switch (written.count) {
    case 1:
      return named && FitsOne(written, {"D", "Y"}, time);
    case 2:
      if (!named) return FitsOne(written, {"MD", "DM", "MY", "YM"}, time);
      if (written.begins_with_name) return FitsOne(written, {"DY"}, time);
      return FitsOne(written, {"DY", "YD"}, time);
    case 3:
      return !named && FitsOne(written, {"MDY", "YMD", "DMY", "YDM"}, time);
    default:
      return false;
  }
}

}  // namespace halyard
