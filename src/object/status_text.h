// Plain words for status codes, for error descriptions.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

// What the code means, as the end of a sentence; a general phrase for unknown codes.
const char* StatusText(HRESULT code) noexcept;

}  // namespace halyard
