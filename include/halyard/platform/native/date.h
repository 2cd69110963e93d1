// Calendar times and automation dates for platforms other than Windows.
#pragma once

#include "halyard/platform/native/types.h"

struct SYSTEMTIME {
  WORD wYear;
  WORD wMonth;      // 1 to 12
  WORD wDayOfWeek;  // 0 is Sunday
  WORD wDay;
  WORD wHour;
  WORD wMinute;
  WORD wSecond;
  WORD wMilliseconds;
};

// Turns a calendar time into a date. False, with `*date` unchanged, where the time
// is none (a month 13, say); milliseconds are not part of the date.
INT SystemTimeToVariantTime(SYSTEMTIME* time, DOUBLE* date);

// Splits a date, rounded to the second, into a calendar time. False for dates outside
// the years 100 to 9999.
INT VariantTimeToSystemTime(DOUBLE date, SYSTEMTIME* time);
