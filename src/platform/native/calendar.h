// Calendar arithmetic of automation dates: whole days since 30 December 1899 and the
// second of the day, in the Gregorian calendar of the years 100 to 9999.
#pragma once

#include <cstdint>

#include "halyard/platform/native/types.h"

namespace halyard {

inline constexpr int kSecondsPerDay = 86400;
inline constexpr int kFirstYear = 100;
inline constexpr int kLastYear = 9999;

struct CalendarTime {
  int year = 1899;
  int month = 12;  // 1 to 12
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
};

bool IsLeapYear(int year) noexcept;

// 28 to 31; the month counts from 1.
int DaysInMonth(int year, int month) noexcept;

// Days from 30 December 1899 to the date; months and days outside their ranges roll
// over into the neighbouring ones.
std::int64_t DayNumber(int year, int month, int day) noexcept;

// 0 is Sunday.
int DayOfWeek(std::int64_t day_number) noexcept;

// The two-digit years of this century end at 49; from 50 on they are of the last one.
int FullYear(int two_digit_year) noexcept;

// True where the date lies in the years 100 to 9999 and is no NaN.
bool IsDate(DATE date) noexcept;

// Splits a date, rounded to the second. False outside the years 100 to 9999, into which
// the rounding must not lead either.
bool SplitDate(DATE date, CalendarTime* time) noexcept;

// The date of a calendar time. Parts outside their ranges, negative ones too, roll over
// into the neighbouring hours, days, months and years.
DATE JoinDate(const CalendarTime& time) noexcept;

}  // namespace halyard
