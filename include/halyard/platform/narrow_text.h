// The narrow form of text: names and texts lie in files as 8-bit characters.
//
// On Windows the form is the system's ANSI code page. Elsewhere it is Windows-1252, so
// that files travel, unless the program chooses another form before it creates objects.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

#ifndef _WIN32

// The forms to choose from, numbered as their code pages.
enum class NarrowEncoding : std::uint32_t {
  kWindows1252 = 1252,  // the default
  kLatin1 = 28591,      // ISO 8859-1
  kUtf8 = 65001,        // texts whose narrow form is longer than their wide one are cut in encodings
};

// Chooses the narrow form for the whole process. False, and nothing changed, once a
// text has been converted: texts that were narrowed in one form must not be widened in
// another. Call it from one thread, before the first object is created.
bool SetNarrowEncoding(NarrowEncoding encoding) noexcept;

#endif

}  // namespace halyard
