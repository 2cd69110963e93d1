// The limit of W5: a block of memory and offsets that are known at run time only.
#pragma once

#include <memory>

#include "members/member_access.h"

namespace bench {

std::unique_ptr<MemberAccess> MakeOffsetMembers();

}  // namespace bench
