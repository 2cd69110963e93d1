#include "platform/text.h"

#include <algorithm>
#include <type_traits>

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

constexpr unsigned kFirstNotPlain = 0x80;

template <class View>
bool AllPlain(View text) noexcept {
  using Unit = std::make_unsigned_t<typename View::value_type>;
  Unit all = 0;
  for (const auto c : text) all = static_cast<Unit>(all | static_cast<Unit>(c));
  return all < kFirstNotPlain;
}

}  // namespace

bool IsPlainText(WideView text) noexcept {
  NoteNarrowUse();
  return AllPlain(text);
}

bool IsPlainText(std::string_view text) noexcept {
  NoteNarrowUse();
  return AllPlain(text);
}

void NarrowPlainText(WideView text, char* narrow) noexcept {
  for (std::size_t i = 0; i < text.size(); ++i) narrow[i] = static_cast<char>(text[i]);
}

void WidenPlainText(std::string_view text, OLECHAR* wide) noexcept {
  for (std::size_t i = 0; i < text.size(); ++i) wide[i] = static_cast<OLECHAR>(text[i]);
}

std::string NarrowToZero(WideView text) {
  std::string narrow = Narrow(text);
  narrow.resize(std::min(narrow.size(), narrow.find('\0')));
  return narrow;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) noexcept { return EqualFolded(a, b); }

bool EqualIgnoringCase(WideView a, WideView b) noexcept { return EqualFolded(a, b); }

}  // namespace halyard
