#include "halyard/platform/native/date.h"

#include <gtest/gtest.h>

#include "platform/native/calendar.h"

namespace halyard {
namespace {

TEST(SystemTimeToVariantTime, CountsDaysFromTheEndOf1899) {
  SYSTEMTIME time{2004, 3, 0, 15, 12, 30, 45, 0};
  double date = 0;
  ASSERT_EQ(SystemTimeToVariantTime(&time, &date), 1);
  EXPECT_DOUBLE_EQ(date, 38061.52135416667);
}

TEST(SystemTimeToVariantTime, LeavesTheDateAloneWhereThereIsNone) {
  double date = -1.25;
  for (SYSTEMTIME time : {SYSTEMTIME{2004, 13, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{2004, 1, 0, 32, 0, 0, 0, 0},
                          SYSTEMTIME{10000, 1, 0, 1, 0, 0, 0, 0}, SYSTEMTIME{9999, 12, 0, 31, 24, 0, 0, 0}}) {
    EXPECT_EQ(SystemTimeToVariantTime(&time, &date), 0);
    EXPECT_EQ(date, -1.25);
  }
}

TEST(SystemTimeToVariantTime, RefusesNull) {
  SYSTEMTIME time{2004, 3, 0, 15, 0, 0, 0, 0};
  double date = 0;
  EXPECT_EQ(SystemTimeToVariantTime(nullptr, &date), 0);
  EXPECT_EQ(SystemTimeToVariantTime(&time, nullptr), 0);
  EXPECT_EQ(VariantTimeToSystemTime(0.0, nullptr), 0);
}

TEST(VariantTimeToSystemTime, CountsTheFractionAwayFromZero) {
  SYSTEMTIME time{};
  ASSERT_EQ(VariantTimeToSystemTime(-1.25, &time), 1);
  EXPECT_EQ(time.wYear, 1899);
  EXPECT_EQ(time.wMonth, 12);
  EXPECT_EQ(time.wDay, 29);
  EXPECT_EQ(time.wDayOfWeek, 5);
  EXPECT_EQ(time.wHour, 6);
  EXPECT_EQ(time.wMilliseconds, 0);
}

TEST(VariantTimeToSystemTime, LeavesTheTimeAloneOutsideTheYears) {
  SYSTEMTIME time{1, 2, 3, 4, 5, 6, 7, 8};
  for (const double date : {-657435.0, 2958466.0, 2958465.999999, 1e300, -1e300}) {
    EXPECT_EQ(VariantTimeToSystemTime(date, &time), 0) << date;
  }
  EXPECT_EQ(time.wYear, 1);
  EXPECT_EQ(time.wMilliseconds, 8);
}

TEST(Dates, ComeBackForEveryDayOfTheCalendar) {
  for (int day = -657434; day <= 2958465; ++day) {
    CalendarTime time;
    ASSERT_TRUE(SplitDate(day, &time));
    ASSERT_EQ(DayNumber(time.year, time.month, time.day), day);
    ASSERT_LE(time.day, DaysInMonth(time.year, time.month));
  }
}

TEST(Dates, ComeBackForEverySecondOfADay) {
  for (const int day : {38061, 0, -1, -657434, 2958465}) {
    for (int second = 0; second < kSecondsPerDay; ++second) {
      CalendarTime time;
      SplitDate(day, &time);
      time.second = second;
      CalendarTime split;
      ASSERT_TRUE(SplitDate(JoinDate(time), &split));
      ASSERT_EQ((split.hour * 60 + split.minute) * 60 + split.second, second) << "day " << day;
    }
  }
}

}  // namespace
}  // namespace halyard
