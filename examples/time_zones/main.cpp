// The main job on real input: the machine's time-zone table goes into a file of units
// and comes back through a fresh session, and every member of every row is compared.
//
//   time_zones TABLE FILE
//
// A second file beside FILE holds the places of all zones as one array.
//
// Exit status 0 when all rows agree, 1 when one differs or anything fails, 2 for wrong
// arguments. Results go to standard output, faults to standard error.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <iomanip>
#include <iostream>

#include "time_zones/annotated_units.h"
#include "time_zones/client.h"
#include "time_zones/show_definition.h"
#include "time_zones/show_rows.h"
#include "time_zones/zone_file.h"
#include "time_zones/zone_places.h"
#include "time_zones/zone_record.h"

namespace {

using namespace time_zones;

constexpr std::size_t kRowsShown = 12;

// Compares the records with their rows, names what differs and answers how many
// rows do.
std::size_t CountDifferingRows(const ZoneFileContent& content, const std::vector<ZoneRow>& rows) {
  Demand(content.records.size() == rows.size(), "the table has " + std::to_string(rows.size()) +
                                                    " rows and the file " +
                                                    std::to_string(content.records.size()));
  std::size_t differing = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const auto differences = DifferencesFrom(content.records[i], rows[i]);
    for (const std::string& difference : differences) {
      std::cerr << "row " << rows[i].number << ", " << rows[i].name << ": " << difference << "\n";
    }
    if (!differences.empty()) ++differing;
  }
  return differing;
}

void ShowTimes(const std::filesystem::path& path, std::size_t records, std::chrono::nanoseconds writing,
               std::chrono::nanoseconds reading) {
  const auto each = [records](std::chrono::nanoseconds all) {
    return static_cast<double>(all.count()) / 1000.0 / static_cast<double>(records);
  };
  const auto size = std::filesystem::file_size(path);
  std::cout << std::fixed << std::setprecision(1) << "file size          " << size << " bytes, "
            << static_cast<double>(size) / static_cast<double>(records) << " a record\n"
            << "writing            " << each(writing) << " microseconds a record\n"
            << "reading            " << each(reading) << " microseconds a record\n";
}

// The same zones as one array value in a second file: every place is compared, then the
// column of latitudes goes out to a buffer of numbers, is cut to whole degrees there and
// goes back. Answers how many places differ.
std::size_t ShowPlaces(const std::filesystem::path& path, const std::vector<ZoneRow>& rows) {
  WritePlaces(path, rows);
  const auto places = ReadPlaces(path);
  std::size_t differing = CountDifferingPlaces(places, rows, std::cerr);
  std::vector<double> latitudes = TakeLatitudes(places);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    if (latitudes[i] != rows[i].latitude) ++differing;
    latitudes[i] = std::trunc(latitudes[i]);
  }
  StoreLatitudes(places, latitudes);
  if (TakeLatitudes(places) != latitudes) ++differing;
  const auto [south, north] = std::minmax_element(latitudes.begin(), latitudes.end());
  std::cout << "places             " << rows.size() << " in one array of structures, "
            << std::filesystem::file_size(path) << " bytes\n"
            << "latitude column    out and back, whole degrees from " << *south << " to " << *north << "\n";
  return differing;
}

int Run(const std::filesystem::path& table, const std::filesystem::path& path) {
  KeepBytesOfTexts();
  const auto rows = ReadZoneTable(table);
  std::cout << rows.size() << " rows in " << table.string() << "\n";
  const auto writing = WriteZoneFile(path, DefineZone(), rows);
  std::cout << "written to " << path.string() << " and read back with a new session\n\n";

  const ZoneFileContent content = ReadZoneFile(path);
  ShowDefinition(content.definition, std::cout);
  std::cout << "\n";
  ShowRows(content.definition, content.records, kRowsShown, std::cout);
  std::cout << "\n";
  ShowFirstUnits(path, std::cout);
  std::cout << "\n";
  ShowTimes(path, rows.size(), writing, content.duration);

  const std::size_t differing =
      CountDifferingRows(content, rows) +
      ShowPlaces(std::filesystem::path(path).replace_extension(".places.orm"), rows);
  std::cout << "compared           " << rows.size() << " rows, " << differing << " differ\n";
  return differing == 0 ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) {
    std::cerr << "usage: time_zones TABLE FILE\n";
    return 2;
  }
  try {
    return Run(arguments[1], arguments[2]);
  } catch (const halyard::Error& error) {
    std::fprintf(stderr, "time_zones: the library answered %08X %s\n", static_cast<unsigned>(error.code()),
                 error.reason().c_str());
  } catch (const std::exception& fault) {
    std::cerr << "time_zones: " << fault.what() << "\n";
  }
  return 1;
}
