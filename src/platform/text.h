// Conversion between wide text (what clients exchange) and narrow text (what lies in
// buffers and files), and the comparisons that ignore letter case.
//
// Case is ignored for the 26 ASCII letters only, on every platform and whatever the
// locale, so that a name found on one machine is found on all.
#pragma once

#include <string>
#include <string_view>

#include "halyard/platform/wide_text.h"

namespace halyard {

// The narrow form of a text. A character without one becomes '?'; zeros are kept.
std::string Narrow(WideView text);

// The narrow form up to the first zero, as a C string would hold it.
std::string NarrowToZero(WideView text);

// The wide form of narrow text, zeros included.
WideString Widen(std::string_view text);

// Says that texts are converted from now on, so that the narrow form cannot change any more.
void NoteNarrowUse() noexcept;

// Whether a text is plain: ASCII, which is the same in every narrow form, one byte for
// each character. Zeros count as plain.
bool IsPlainText(WideView text) noexcept;
bool IsPlainText(std::string_view text) noexcept;

// The other form of a plain text, into memory that has room for as many characters.
void NarrowPlainText(WideView text, char* narrow) noexcept;
void WidenPlainText(std::string_view text, OLECHAR* wide) noexcept;

// Whether two texts are equal when the case of ASCII letters is ignored.
bool EqualIgnoringCase(std::string_view a, std::string_view b) noexcept;
bool EqualIgnoringCase(WideView a, WideView b) noexcept;

}  // namespace halyard
