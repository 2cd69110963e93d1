// Single values as text, the same in tables, trees and exported files.
#pragma once

#include <optional>
#include <string>

#include "halyard/halyard.h"

namespace halyard::tool {

// A number in its shortest form that gives the same number again.
std::string NumberText(double number);
std::string NumberText(float number);

// "2004-03-15", and with a time that is not midnight "2004-03-15 12:30:45"; none where
// the calendar has no such time.
std::optional<std::string> DateText(DATE date);

// The parts of a date, for other forms of it; false where the calendar has no such time.
bool SplitDate(DATE date, SYSTEMTIME& time);

// A number, text or date as it stands; a date outside the calendar as its number of days.
// Null and objects read as the empty text.
std::string ScalarText(const Variant& value);

}  // namespace halyard::tool
