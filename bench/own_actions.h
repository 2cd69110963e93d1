// What the library and the limits do for every workload.
#pragma once

#include "support/action.h"

namespace bench {

void AddOwnActions(Actions& actions);

}  // namespace bench
