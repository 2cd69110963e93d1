// Counts and sizes as people read them, with a comma between groups of three digits.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace halyard::tool {

// "1,234,567"
std::string Grouped(std::uint64_t count);

// "1 record", "1,234 records". The plural adds an s.
std::string Counted(std::uint64_t count, std::string_view noun);

// "1,234,567 bytes (1.2 MB)"; small sizes have no second form.
std::string SizeText(std::uint64_t bytes);

}  // namespace halyard::tool
