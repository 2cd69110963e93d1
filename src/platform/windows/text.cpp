// Narrow text on Windows: the system's ANSI code page.
#include "platform/text.h"

#include <stdexcept>

namespace halyard {
namespace {

// The system counts characters in an int.
int CountOf(std::size_t length) {
  if (length > 0x7FFFFFFF) throw std::length_error("text too long to convert");
  return static_cast<int>(length);
}

}  // namespace

void NoteNarrowUse() noexcept {}  // the system's code page is what it is

std::string Narrow(WideView text) {
  if (text.empty()) return {};
  const int length = CountOf(text.size());
  const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
  return narrow;
}

WideString Widen(std::string_view text) {
  if (text.empty()) return {};
  const int length = CountOf(text.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  WideString wide(static_cast<std::size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), size);
  return wide;
}

}  // namespace halyard
