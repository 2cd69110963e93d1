// Automation dates from and to calendar times.
#include "halyard/platform/native/date.h"

#include "platform/native/calendar.h"

namespace {

constexpr WORD kMaxMonth = 12;
constexpr WORD kMaxDay = 31;

// Larger words are negative numbers.
int Signed(WORD part) noexcept { return static_cast<SHORT>(part); }

}  // namespace

INT SystemTimeToVariantTime(SYSTEMTIME* time, DOUBLE* date) {
  if (time == nullptr || date == nullptr) return 0;
  if (time->wMonth > kMaxMonth || time->wDay > kMaxDay || Signed(time->wYear) < 0) return 0;
  const int year = time->wYear < 100 ? halyard::FullYear(time->wYear) : time->wYear;
  if (year > halyard::kLastYear) return 0;
  const DATE joined = halyard::JoinDate(
      {year, time->wMonth, time->wDay, Signed(time->wHour), Signed(time->wMinute), Signed(time->wSecond)});
  if (!halyard::IsDate(joined)) return 0;
  *date = joined;
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
