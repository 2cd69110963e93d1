// Text in the platform's wide characters: UTF-16 code units on every platform.
#pragma once

#include <string>
#include <string_view>

#include "halyard/platform/automation.h"

namespace halyard {

using WideString = std::basic_string<OLECHAR>;
using WideView = std::basic_string_view<OLECHAR>;

}  // namespace halyard
