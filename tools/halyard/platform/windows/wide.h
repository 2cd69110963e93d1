// Names and texts on their way into and out of the system's wide calls.
#pragma once

#include <string>

namespace halyard::tool {

// UTF-8 as the system's wide text, and back. What is no text becomes U+FFFD.
std::wstring WideName(const std::string& utf8) noexcept;
std::string Utf8Name(const wchar_t* wide);

}  // namespace halyard::tool
