// ASCII: names compared as the library compares them, the 26 letters in either case, and
// texts that are the same in every form.
#pragma once

#include <algorithm>
#include <string_view>

namespace halyard::tool {

[[nodiscard]] constexpr char FoldCase(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

[[nodiscard]] inline bool IsAscii(std::string_view text) noexcept {
  return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

[[nodiscard]] inline bool EqualIgnoringCase(std::string_view a, std::string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return FoldCase(x) == FoldCase(y); });
}

}  // namespace halyard::tool
