// Calendar times and automation dates for platforms other than Windows.
#pragma once

#include "halyard/platform/native/types.h"

// A calendar time in parts.
struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;      // 1 to 12
  WORD wDayOfWeek;  // 0 is Sunday
  WORD wDay;        // of the month, from 1
  WORD wHour;       // 0 to 23
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

// Turns a calendar time into a date. A day, hour, minute or second beyond its month,
// day, hour or minute rolls over into the next one (30 February is 2 March), month 0 and
// day 0 into the one before; years below 50 are of this century, other years below 100
// of the last one. False, with `*date` unchanged, for months above 12, days above 31 and
// results outside the years 100 to 9999. Milliseconds are not part of the date.
INT SystemTimeToVariantTime(SYSTEMTIME* time, DOUBLE* date);

// Splits a date, rounded to the second, into a calendar time. False for dates outside
// the years 100 to 9999.
INT VariantTimeToSystemTime(DOUBLE date, SYSTEMTIME* time);
