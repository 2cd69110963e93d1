// The machine's time-zone table: one row a zone, as the text file zone1970.tab of the
// time-zone database lists them.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace time_zones {

// A row of the table. Texts are UTF-8, as in the file.
struct ZoneRow {
  int number = 0;                      // 1 for the first row
  std::string name;                    // "Europe/Zurich"
  std::string countries;               // two-letter codes with commas between: "CH,DE,LI"
  int country_count = 0;               // at least 1
  double latitude = 0;                 // degrees, north is positive
  double longitude = 0;                // degrees, east is positive
  std::optional<std::string> comment;  // none where the line has no fourth column
};

// Reads the table. Throws std::runtime_error with file, line and fault when the file
// cannot be read, when a line is malformed and when there is no row at all.
std::vector<ZoneRow> ReadZoneTable(const std::filesystem::path& path);

}  // namespace time_zones
