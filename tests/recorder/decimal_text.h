// Decimal renderings that the corrections for Windows compute on their own, with the C
// library and school arithmetic, so that they prove something about the library.
#pragma once

#include <string>

namespace halyard::recorder {

// A finite number with so many significant digits, plain unless it needs more integer
// digits or decimal places than that.
std::string WidthLimitedText(double value, int digits);

// The notation of the decimal with the first `digits` significant digits of the number.
std::string DecimalOfReal(double value, int digits);

// The notation of a whole decimal.
std::string DecimalOfWhole(int value);

}  // namespace halyard::recorder
