// The places of all zones as one value: an array of structures, each with an enumeration
// member, in a file of its own; and the transfer of one column of it.
#pragma once

#include <filesystem>
#include <iosfwd>
#include <string>
#include <vector>

#include "halyard/halyard.h"
#include "time_zones/zone_table.h"

namespace time_zones {

// A quarter of the globe, and its number in the enumeration.
enum Quadrant : LONG { kNorthEast = 1, kNorthWest = 2, kSouthEast = 3, kSouthWest = 4 };

// Where a row's place lies. A place on the equator or the prime meridian counts as north
// or east.
Quadrant QuadrantOf(const ZoneRow& row) noexcept;

// Writes a file with the array's definition and one value that holds a place for each row.
// Throws when the file cannot be written; halyard::Error where the library refuses a call.
void WritePlaces(const std::filesystem::path& path, const std::vector<ZoneRow>& rows);

// The array of a file that WritePlaces wrote, read with a session of its own. Throws when
// the file holds anything else.
halyard::Ptr<halyard::IArray> ReadPlaces(const std::filesystem::path& path);

// How many places differ from their rows in any member; each is named on `faults`.
std::size_t CountDifferingPlaces(const halyard::Ptr<halyard::IArray>& places,
                                 const std::vector<ZoneRow>& rows, std::ostream& faults);

// The latitudes of all places, taken out in one call.
std::vector<double> TakeLatitudes(const halyard::Ptr<halyard::IArray>& places);

// Stores a latitude in each place in one call; there must be as many.
void StoreLatitudes(const halyard::Ptr<halyard::IArray>& places, std::vector<double>& latitudes);

}  // namespace time_zones
