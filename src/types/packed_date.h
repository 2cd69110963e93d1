// The date and time of a Date field: 8 bytes, to the second.
#pragma once

#include <cstdint>

#include "halyard/platform/automation.h"

namespace halyard {

struct PackedDate {
  std::uint16_t year;
  std::uint8_t day;    // of the month
  std::uint8_t month;  // 1 to 12
  std::uint8_t minute;
  std::uint8_t hour;
  std::uint8_t hundredths;  // of a second
  std::uint8_t second;
};
static_assert(sizeof(PackedDate) == 8, "the layout of a Date field");

// The automation date of the fields, each of them but the year taken as a signed byte.
// Fields beyond their range roll over as SystemTimeToVariantTime has it: 31 February is
// 3 March, hour 25 is 1 o'clock of the next day, minute -1 the last of the hour before,
// year 4 is 2004. What is left (a month other than 1 to 12, a day above 31 or below 0, a
// result outside the years 100 to 9999) is taken as the double that the bytes would be, so
// a field of zeros is the date 0.0.
DATE DateFromPacked(const PackedDate& packed) noexcept;

// The fields of an automation date. Raises DISP_E_OVERFLOW outside the years 100 to 9999.
PackedDate PackedFromDate(DATE date);

}  // namespace halyard
