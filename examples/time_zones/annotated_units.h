// The first bytes of a file of units, taken apart field by field: the header, the unit
// with the definition and the first data unit. It reads the bytes alone, without the
// library, as a reader in another language would.
#pragma once

#include <filesystem>
#include <ostream>

namespace time_zones {

// Throws std::runtime_error where the file is too short or holds other kinds of units.
void ShowFirstUnits(const std::filesystem::path& path, std::ostream& out);

}  // namespace time_zones
