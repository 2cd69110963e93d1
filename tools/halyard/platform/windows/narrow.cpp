// The library's narrow form is the system's ANSI code page here.
#include "tools/halyard/platform/narrow.h"

#include <windows.h>

namespace halyard::tool {

std::string BytesOfText(WideView text) {
  const int size = static_cast<int>(text.size());
  std::string bytes(static_cast<std::size_t>(
                        WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr)),
                    '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), size, bytes.data(), static_cast<int>(bytes.size()), nullptr,
                      nullptr);
  return bytes;
}

WideString TextOfBytes(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  WideString text(static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0)),
                  L'\0');
  MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, text.data(), static_cast<int>(text.size()));
  return text;
}

}  // namespace halyard::tool
