// Which of the numbers in the text of a date is its year, which its month, which its day.
#pragma once

#include "platform/native/calendar.h"

namespace halyard {

// The numbers of a date as written, and the month that it names, if it names one.
struct DateNumbers {
  static constexpr int kMax = 3;

  int count = 0;
  int numbers[kMax] = {};
  int named_month = 0;            // 1 to 12; 0 for none
  bool begins_with_name = false;  // the named month stands before all numbers
};

// Fills in year, month and day in the first order of US English that gives a date:
// month, day, year before the others. A date without a year is one of this year, one
// without a day the first of its month. False where no order fits.
bool OrderDate(const DateNumbers& written, CalendarTime* time) noexcept;

}  // namespace halyard
