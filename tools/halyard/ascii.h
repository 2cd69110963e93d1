// Names compared as the library compares them: the 26 letters of ASCII in either case.
#pragma once

#include <algorithm>
#include <string_view>

namespace halyard::tool {

[[nodiscard]] constexpr char FoldCase(char c) noexcept {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

[[nodiscard]] inline bool EqualIgnoringCase(std::string_view a, std::string_view b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return FoldCase(x) == FoldCase(y); });
}

}  // namespace halyard::tool
