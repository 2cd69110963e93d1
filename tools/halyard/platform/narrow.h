// The bytes behind the library's wide texts: in files they are the text.
#pragma once

#include <string>
#include <string_view>

#include "halyard/platform/wide_text.h"

namespace halyard::tool {

// The bytes that the library makes of a text, and the text that it makes of bytes.
std::string BytesOfText(WideView text);
WideString TextOfBytes(std::string_view bytes);

}  // namespace halyard::tool
