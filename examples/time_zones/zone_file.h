// The file of units: one record with the definition, then one record for each row.
#pragma once

#include <chrono>
#include <filesystem>
#include <vector>

#include "time_zones/zone_definition.h"
#include "time_zones/zone_table.h"

namespace time_zones {

// Writes the definition and the rows to a new file and answers how long it took. Throws
// when the file cannot be written; halyard::Error where the library refuses a call.
std::chrono::nanoseconds WriteZoneFile(const std::filesystem::path& path,
                                       const halyard::Ptr<halyard::IStructureDef>& definition,
                                       const std::vector<ZoneRow>& rows);

// What a file holds.
struct ZoneFileContent {
  halyard::Ptr<halyard::IStructureDef> definition;         // the definition that the file announced
  std::vector<halyard::Ptr<halyard::IValueBase>> records;  // every value, in file order
  std::chrono::nanoseconds duration{};                     // of the reading
};

// Reads a file with a session of its own, which knows nothing but what the file says.
// Throws when the file cannot be read or holds anything unexpected.
ZoneFileContent ReadZoneFile(const std::filesystem::path& path);

}  // namespace time_zones
