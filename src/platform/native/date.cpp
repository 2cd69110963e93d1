// Automation dates from and to calendar times.
#include "halyard/platform/native/date.h"

#include "platform/native/calendar.h"

INT SystemTimeToVariantTime(SYSTEMTIME* time, DOUBLE* date) {
  if (time == nullptr || date == nullptr) return 0;
  const int year = time->wYear < 100 ? halyard::FullYear(time->wYear) : time->wYear;
  if (year > halyard::kLastYear || time->wMonth < 1 || time->wMonth > 12) return 0;
  if (time->wDay < 1 || time->wDay > 31) return 0;
  if (time->wHour > 23 || time->wMinute > 59 || time->wSecond > 59) return 0;
  *date = halyard::JoinDate({year, time->wMonth, time->wDay, time->wHour, time->wMinute, time->wSecond});
  return 1;
}

INT VariantTimeToSystemTime(DOUBLE date, SYSTEMTIME* time) {
  halyard::CalendarTime split;
  if (time == nullptr || !halyard::SplitDate(date, &split)) return 0;
  const std::int64_t day = halyard::DayNumber(split.year, split.month, split.day);
  time->wYear = static_cast<WORD>(split.year);
  time->wMonth = static_cast<WORD>(split.month);
  time->wDayOfWeek = static_cast<WORD>(halyard::DayOfWeek(day));
  time->wDay = static_cast<WORD>(split.day);
  time->wHour = static_cast<WORD>(split.hour);
  time->wMinute = static_cast<WORD>(split.minute);
  time->wSecond = static_cast<WORD>(split.second);
  time->wMilliseconds = 0;
  return 1;
}
