// What the rivals do: general libraries for typed data, each through the interface that it
// has for types that are known at run time only.
#pragma once

#include "support/action.h"

namespace bench {

void AddRivalActions(Actions& actions);

}  // namespace bench
