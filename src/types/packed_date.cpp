#include "types/packed_date.h"

#include <bit>
#include <cmath>

#include "halyard/object/error.h"

namespace halyard {
namespace {

constexpr WORD kMonths = 12;
constexpr WORD kMillisecondsPerHundredth = 10;

WORD WidenSigned(std::uint8_t byte) noexcept { return static_cast<WORD>(static_cast<std::int8_t>(byte)); }

SYSTEMTIME CalendarTimeOf(const PackedDate& packed) noexcept {
  SYSTEMTIME time{};
  time.wYear = packed.year;
  time.wMonth = WidenSigned(packed.month);
  time.wDay = WidenSigned(packed.day);
  time.wHour = WidenSigned(packed.hour);
  time.wMinute = WidenSigned(packed.minute);
  time.wSecond = WidenSigned(packed.second);
  time.wMilliseconds = static_cast<WORD>(WidenSigned(packed.hundredths) * kMillisecondsPerHundredth);
  return time;
}

}  // namespace

DATE DateFromPacked(const PackedDate& packed) noexcept {
  SYSTEMTIME time = CalendarTimeOf(packed);
  DATE date = 0.0;
  // Platforms disagree about months that do not exist, so they are not asked.
  const bool has_month = time.wMonth >= 1 && time.wMonth <= kMonths;
  if (has_month && SystemTimeToVariantTime(&time, &date)) return date;
  return std::bit_cast<double>(packed);
}

PackedDate PackedFromDate(DATE date) {
  SYSTEMTIME time{};
  // What is no number passes the range checks of some platforms.
  if (std::isnan(date) || !VariantTimeToSystemTime(date, &time)) {
    throw Error(DISP_E_OVERFLOW, "the date is outside the years 100 to 9999");
  }
  PackedDate packed{};
  packed.year = time.wYear;
  packed.day = static_cast<std::uint8_t>(time.wDay);
  packed.month = static_cast<std::uint8_t>(time.wMonth);
  packed.minute = static_cast<std::uint8_t>(time.wMinute);
  packed.hour = static_cast<std::uint8_t>(time.wHour);
  // Only the low byte of the milliseconds is looked at, as in every file written so far.
  packed.hundredths = static_cast<std::uint8_t>((time.wMilliseconds & 0xFF) / kMillisecondsPerHundredth);
  packed.second = static_cast<std::uint8_t>(time.wSecond);
  return packed;
}

}  // namespace halyard
