#include "platform/text.h"

#include <algorithm>

namespace halyard {
namespace {

template <class C>
C FoldAscii(C c) noexcept {
  return c >= C('A') && c <= C('Z') ? static_cast<C>(c + (C('a') - C('A'))) : c;
}

template <class View>
bool EqualFolded(View a, View b) noexcept {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](auto x, auto y) { return FoldAscii(x) == FoldAscii(y); });
}

}  // namespace

std::string NarrowToZero(WideView text) {
  std::string narrow = Narrow(text);
  narrow.resize(std::min(narrow.size(), narrow.find('\0')));
  return narrow;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) noexcept { return EqualFolded(a, b); }

bool EqualIgnoringCase(WideView a, WideView b) noexcept { return EqualFolded(a, b); }

}  // namespace halyard
