#include "platform/native/format_date.h"

#include <cmath>

#include "platform/native/calendar.h"

namespace halyard {
namespace {

void AppendDay(ShortText& text, const CalendarTime& time) noexcept {
  text.AppendNumber(time.month);
  text.Append('/');
  text.AppendNumber(time.day);
  text.Append('/');
  text.AppendNumber(time.year);
}

void AppendTime(ShortText& text, const CalendarTime& time) noexcept {
  text.AppendNumber(time.hour % 12 == 0 ? 12 : time.hour % 12);
  text.Append(':');
  text.AppendNumber(time.minute, 2);
  text.Append(':');
  text.AppendNumber(time.second, 2);
  text.Append(time.hour < 12 ? " AM" : " PM");
}

}  // namespace

bool FormatDate(DATE date, ShortText* text) noexcept {
  CalendarTime time;
  if (!SplitDate(date, &time)) return false;
  const bool has_day = std::trunc(date) != 0;
  const bool has_time = date != std::trunc(date);
  if (has_day) AppendDay(*text, time);
  if (has_day && has_time) text->Append(' ');
  if (has_time || !has_day) AppendTime(*text, time);
  return true;
}

}  // namespace halyard
