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

// Narrows a text into room for `size` bytes, or, for size 0, counts them. What has no
// narrow form becomes '?', not some character that looks like it. Code pages with a form
// for every character refuse to be told so.
int NarrowInto(char* narrow, int size, WideView text, int length) noexcept {
  const int count =
      WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), length, narrow, size, nullptr, nullptr);
  if (count != 0 || GetLastError() != ERROR_INVALID_FLAGS) return count;
  return WideCharToMultiByte(CP_ACP, 0, text.data(), length, narrow, size, nullptr, nullptr);
}

}  // namespace

void NoteNarrowUse() noexcept {}  // the system's code page is what it is

std::string Narrow(WideView text) {
  if (text.empty()) return {};
  const int length = CountOf(text.size());
  const int size = NarrowInto(nullptr, 0, text, length);
  std::string narrow(static_cast<std::size_t>(size), '\0');
  NarrowInto(narrow.data(), size, text, length);
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
