// UTF-8 and UTF-16 code points, for narrow text and path names.
#pragma once

#include <string>
#include <string_view>

#include "halyard/platform/wide_text.h"

namespace halyard {

// Stands for what is no character.
inline constexpr char32_t kReplacementCharacter = 0xFFFD;

// UTF-8 of UTF-16 text; a lone surrogate becomes the replacement character.
std::string ToUtf8(WideView text);

// UTF-16 of UTF-8 text; each byte that is no part of UTF-8 becomes the replacement
// character.
WideString FromUtf8(std::string_view text);

}  // namespace halyard
