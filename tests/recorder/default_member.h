// An object with a default member, for conversions of objects.
#pragma once

#include <string>

#include "halyard/platform/automation.h"

namespace halyard::recorder {

// An object whose default member has the value written in `notation` or, where that is
// "!" and a status in hex, fails with it. The caller owns the reference.
IDispatch* NewDefaultMember(std::string notation);

}  // namespace halyard::recorder
