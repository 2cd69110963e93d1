// UTF-8, in which this program holds every text, and the characters in it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "halyard/platform/wide_text.h"

namespace halyard::tool {

// U+FEFF in UTF-8. At the beginning of a file it says that the file is UTF-8 and is no text.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// Takes the first character off the front of a text that is not empty. None, and one
// byte taken, where the bytes are no UTF-8.
std::optional<char32_t> TakeCharacter(std::string_view& text) noexcept;

void AppendUtf8(std::string& text, char32_t character);

// UTF-16 as UTF-8; lone surrogates become U+FFFD.
std::string Utf8Of(WideView wide);

// The columns that a text takes on a terminal.
std::size_t DisplayWidth(std::string_view text) noexcept;

// The text with everything escaped that a terminal would obey or that is no UTF-8: "\n",
// "\x1B". Texts of files can hold anything.
std::string Printable(std::string_view text);

// The text cut to at most that many columns, with an ellipsis where something is missing.
std::string Shortened(std::string_view text, std::size_t columns);

}  // namespace halyard::tool
