// Values of any kind, filled and shown whole.
#pragma once

#include <string>

#include "tests/support/composites.h"

namespace halyard::test {

// Puts numbers and texts made from `seed` into every member and element; variable arrays
// get two elements.
void FillTree(const Ptr<IValueBase>& value, LONG seed);

// Every member and element in one line: "{a=I4 1, b=[I2 2, I2 3]}".
std::string ShowTree(const Ptr<IValueBase>& value);

}  // namespace halyard::test
