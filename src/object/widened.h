// Narrow text as a string of the platform, for clients.
#pragma once

#include <string_view>

#include "halyard/object/bstr.h"

namespace halyard {

// The wide form of narrow text, zeros included; never null. Throws std::bad_alloc.
[[nodiscard]] Bstr Widened(std::string_view narrow);

}  // namespace halyard
