// Dates as texts, in the US English form of automation.
#pragma once

#include "platform/native/format_number.h"

namespace halyard {

// "3/15/2004", "3/15/2004 12:30:45 PM", or "12:30:45 PM" for a time of the day zero.
// False outside the years 100 to 9999.
bool FormatDate(DATE date, ShortText* text) noexcept;

}  // namespace halyard
