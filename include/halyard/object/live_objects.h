// How many objects of the library are alive in this process, for tests and for the
// question whether the library can be unloaded.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

#ifndef _WIN32

// Objects alive. 0 when everything that was created has been released.
LONG LiveObjects() noexcept;

#endif

}  // namespace halyard
