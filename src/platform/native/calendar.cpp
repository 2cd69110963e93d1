#include "platform/native/calendar.h"

#include <cmath>

namespace halyard {
namespace {

// Day numbers of 1 January 100 and of the day after 31 December 9999.
constexpr double kFirstDay = -657434.0;
constexpr double kEndDay = 2958466.0;

constexpr int kLastYearOfThisCentury = 49;
constexpr int kSaturday = 6;  // 30 December 1899 was one

// Added to the fraction of a day before it is cut into seconds: what was half a second
// when a program computed it must not fall short of it in binary.
constexpr double kFractionMargin = 1e-11;

// Days from 1 March of the year 0 to 30 December 1899, in a calendar whose years start
// in March, so that the leap day is the last of its year.
constexpr std::int64_t kMarchDaysToEpoch = 693899;
constexpr std::int64_t kDaysPer400Years = 146097;

std::int64_t FloorDivide(std::int64_t a, std::int64_t b) noexcept { return a / b - (a % b < 0 ? 1 : 0); }

// Days from 1 March to the first of the month, months counted from March as 0.
std::int64_t DaysBeforeMarchMonth(std::int64_t month) noexcept { return (153 * month + 2) / 5; }

void SplitDay(std::int64_t day_number, CalendarTime* time) noexcept {
  const std::int64_t days = day_number + kMarchDaysToEpoch;
  const std::int64_t era = FloorDivide(days, kDaysPer400Years);
  const std::int64_t of_era = days - era * kDaysPer400Years;
  const std::int64_t year = (of_era - of_era / 1460 + of_era / 36524 - of_era / 146096) / 365;
  const std::int64_t of_year = of_era - (365 * year + year / 4 - year / 100);
  const std::int64_t march_month = (5 * of_year + 2) / 153;
  time->day = static_cast<int>(of_year - DaysBeforeMarchMonth(march_month) + 1);
  time->month = static_cast<int>(march_month < 10 ? march_month + 3 : march_month - 9);
  time->year = static_cast<int>(year + era * 400 + (time->month <= 2 ? 1 : 0));
}

int SecondOfDay(double fraction) noexcept {
  if (fraction + kFractionMargin < 1.0) fraction += kFractionMargin;
  const double seconds = fraction * kSecondsPerDay;
  const double whole = std::floor(seconds);
  return static_cast<int>(whole) + (seconds - whole > 0.5 ? 1 : 0);
}

}  // namespace

bool IsLeapYear(int year) noexcept { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

int DaysInMonth(int year, int month) noexcept {
  constexpr int kDays[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  return month == 2 && IsLeapYear(year) ? 29 : kDays[month - 1];
}

std::int64_t DayNumber(int year, int month, int day) noexcept {
  const std::int64_t months = std::int64_t{year} * 12 + (month - 1) - 2;
  const std::int64_t march_year = FloorDivide(months, 12);
  const std::int64_t march_month = months - march_year * 12;
  const std::int64_t leap_days =
      FloorDivide(march_year, 4) - FloorDivide(march_year, 100) + FloorDivide(march_year, 400);
  return march_year * 365 + leap_days + DaysBeforeMarchMonth(march_month) + (day - 1) - kMarchDaysToEpoch;
}

int DayOfWeek(std::int64_t day_number) noexcept {
  const std::int64_t day = (day_number + kSaturday) % 7;
  return static_cast<int>(day < 0 ? day + 7 : day);
}

int FullYear(int two_digit_year) noexcept {
  return two_digit_year + (two_digit_year <= kLastYearOfThisCentury ? 2000 : 1900);
}

bool IsDate(DATE date) noexcept { return date > kFirstDay - 1.0 && date < kEndDay; }

bool SplitDate(DATE date, CalendarTime* time) noexcept {
  if (!IsDate(date)) return false;
  const double whole = std::trunc(date);
  std::int64_t day = static_cast<std::int64_t>(whole);
  int seconds = SecondOfDay(std::fabs(date - whole));
  if (seconds == kSecondsPerDay) {
    seconds = 0;
    ++day;
  }
  SplitDay(day, time);
  time->hour = seconds / 3600;
  time->minute = seconds / 60 % 60;
  time->second = seconds % 60;
  return time->year >= kFirstYear && time->year <= kLastYear;
}

DATE JoinDate(const CalendarTime& time) noexcept {
  const std::int64_t seconds = (std::int64_t{time.hour} * 60 + time.minute) * 60 + time.second;
  const std::int64_t rolled_days = FloorDivide(seconds, kSecondsPerDay);
  const auto of_day = static_cast<double>(seconds - rolled_days * kSecondsPerDay);
  DATE date = static_cast<double>(DayNumber(time.year, time.month, time.day) + rolled_days);
  // Before the epoch the fraction counts away from zero. Each part is rounded into the
  // sum for itself.
  const double sign = date < 0 ? -1.0 : 1.0;
  date += sign * std::floor(of_day / 3600) / 24;
  date += sign * std::fmod(std::floor(of_day / 60), 60) / (24 * 60);
  date += sign * std::fmod(of_day, 60) / kSecondsPerDay;
  return date;
}

}  // namespace halyard
