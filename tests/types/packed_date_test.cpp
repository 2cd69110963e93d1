#include "types/packed_date.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>

#include "halyard/object/error.h"
#include "tests/support/bytes.h"

namespace halyard::test {
namespace {

DATE Unpack(std::string_view hex) {
  PackedDate packed{};
  std::memcpy(&packed, Hex(hex).data(), sizeof packed);
  return DateFromPacked(packed);
}

std::string Pack(DATE date) {
  const PackedDate packed = PackedFromDate(date);
  Bytes bytes(sizeof packed);
  std::memcpy(bytes.data(), &packed, sizeof packed);
  return ToHex(bytes);
}

DATE RawBytes(std::string_view hex) {
  DATE date = 0;
  std::memcpy(&date, Hex(hex).data(), sizeof date);
  return date;
}

struct Row {
  const char* bytes;
  DATE date;
};

constexpr double kSecond = 1.0 / 86400;

constexpr Row kDates[] = {
    {"D4 07 0F 03 1E 0C 00 2D", 38061 + 45045 * kSecond},    // 15 March 2004, 12:30:45
    {"6B 07 1E 0C 00 00 00 00", 0.0},                        // 30 December 1899
    {"6C 07 01 01 00 00 00 00", 2.0},                        // 1 January 1900
    {"6B 07 1D 0C 00 06 00 00", -1.25},                      // 29 December 1899, 06:00
    {"D0 07 1D 02 3B 17 00 3B", 36585 + 86399 * kSecond},    // 29 February 2000, 23:59:59
    {"0F 27 1F 0C 3B 17 00 3B", 2958465 + 86399 * kSecond},  // 31 December 9999, 23:59:59
    {"64 00 01 01 00 00 00 00", -657434.0},                  // 1 January 100
};

TEST(PackedDate, ReadsAndWritesTheSameBytes) {
  for (const Row& row : kDates) {
    EXPECT_DOUBLE_EQ(Unpack(row.bytes), row.date) << row.bytes;
    EXPECT_EQ(Pack(row.date), row.bytes);
  }
}

TEST(PackedDate, MiddayInMarch2004) {
  EXPECT_DOUBLE_EQ(Unpack("D4 07 0F 03 1E 0C 00 2D"), 38061 + 45045 * kSecond);
  EXPECT_EQ(Pack(38061 + 45045 * kSecond), "D4 07 0F 03 1E 0C 00 2D");
}

TEST(PackedDate, EightZeroBytesAreTheDateZero) { EXPECT_EQ(Unpack("00 00 00 00 00 00 00 00"), 0.0); }

TEST(PackedDate, MonthsOutsideTheYearAreTakenAsTheRawDouble) {
  for (const char* bytes : {"D4 07 0F 00 1E 0C 00 2D", "D4 07 0F 0D 1E 0C 00 2D", "D4 07 0F 80 1E 0C 00 2D",
                            "D4 07 0F FF 1E 0C 00 2D"}) {
    EXPECT_EQ(Unpack(bytes), RawBytes(bytes)) << bytes;
  }
}

constexpr double kMinute = 60 * kSecond;
constexpr double kHour = 60 * kMinute;

TEST(PackedDate, FieldsBeyondTheirRangeRollOver) {
  constexpr Row kRows[] = {
      {"D1 07 1F 02 00 00 00 00", 36953},                 // 31 February 2001 is 3 March
      {"D1 07 00 03 00 00 00 00", 36950},                 // day 0 of March is 28 February
      {"D4 07 0F 03 00 19 00 00", 38062 + kHour},         // hour 25
      {"D4 07 0F 03 00 FF 00 00", 38061 - kHour},         // hour -1
      {"D4 07 0F 03 FF 00 00 00", 38061 - kMinute},       // minute -1
      {"D4 07 0F 03 00 00 00 FF", 38061 - kSecond},       // second -1
      {"D4 07 0F 03 3C 00 00 3C", 38061 + 61 * kMinute},  // minute and second 60
      {"D4 07 0F 03 00 00 FF 00", 38061},                 // hundredths never count
      {"04 00 0F 03 00 00 00 00", 38061},                 // year 4 is 2004
  };
  for (const Row& row : kRows) EXPECT_DOUBLE_EQ(Unpack(row.bytes), row.date) << row.bytes;
}

TEST(PackedDate, DaysOfNoMonthAndYearsOfNoCalendarAreTakenAsTheRawDouble) {
  for (const char* bytes :
       {"D4 07 20 03 00 00 00 00", "D4 07 FF 03 00 00 00 00", "D4 07 80 03 00 00 00 00",
        "10 27 01 01 00 00 00 00", "FF FF 0F 03 00 00 00 00", "0F 27 1F 0C 00 19 00 00"}) {
    EXPECT_EQ(Unpack(bytes), RawBytes(bytes)) << bytes;
  }
}

TEST(PackedDate, HundredthsDoNotMoveTheDate) {
  EXPECT_DOUBLE_EQ(Unpack("D4 07 0F 03 1E 0C 63 2D"), 38061 + 45045 * kSecond);
}

TEST(PackedDate, WritesNoHundredths) {
  EXPECT_EQ(Pack(38061 + 45045.3 * kSecond), "D4 07 0F 03 1E 0C 00 2D");
}

TEST(PackedDate, DatesOutsideTheCalendarOverflow) {
  for (const DATE date : {-657435.0, 2958466.0, 1e300, std::numeric_limits<DATE>::quiet_NaN()}) {
    try {
      static_cast<void>(PackedFromDate(date));
      ADD_FAILURE() << date << " was packed";
    } catch (const Error& error) {
      EXPECT_EQ(error.code(), DISP_E_OVERFLOW) << date;
    }
  }
}

}  // namespace
}  // namespace halyard::test
