// Texts of files: bytes there, UTF-8 in this program.
//
// A file does not say in which 8-bit form its texts are, so a person may. The library
// hands texts over as wide text that stands for the bytes one to one; these functions
// take the bytes out of it and read them in the chosen form.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "halyard/halyard.h"

namespace halyard::tool {

enum class TextForm { kWindows1252, kLatin1, kUtf8 };

// The form of the texts in all files of this run; Windows-1252 unless chosen. Call it
// before any text is met.
void ChooseTextForm(TextForm form) noexcept;

// The name by which a person chooses the form in force.
std::string TextFormName();

// Bytes in a form as UTF-8, and back; none where a character has no place in the form or
// the text is no UTF-8. Reading bytes that are no UTF-8 gives U+FFFD for each.
std::string Decoded(std::string_view bytes, TextForm form);
std::optional<std::string> Encoded(std::string_view utf8, TextForm form);

// A text that the library gave, as UTF-8.
std::string FromLibrary(WideView text);
inline std::string FromLibrary(const Bstr& text) { return FromLibrary(text.View()); }

// A UTF-8 text as the library takes it; none where it has no place in the form.
std::optional<WideString> ToLibrary(std::string_view utf8);

}  // namespace halyard::tool
