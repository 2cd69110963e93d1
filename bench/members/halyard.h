// The library's side of W5: the items of a structure value.
#pragma once

#include <memory>

#include "members/member_access.h"

namespace bench {

std::unique_ptr<MemberAccess> MakeHalyardMembers();

}  // namespace bench
