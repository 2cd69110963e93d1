// The definition of a time-zone record, and the names of its members.
#pragma once

#include "halyard/halyard.h"

namespace time_zones {

inline constexpr char kRow[] = "Row";                    // Long, 1 for the first row
inline constexpr char kName[] = "Name";                  // String
inline constexpr char kCountries[] = "Countries";        // String, codes with commas between
inline constexpr char kCountryCount[] = "CountryCount";  // Byte
inline constexpr char kPosition[] = "Position";          // a structure of its own:
inline constexpr char kLatitude[] = "Latitude";          //   Real, degrees
inline constexpr char kLongitude[] = "Longitude";        //   Real, degrees
inline constexpr char kSolarOffset[] = "SolarOffset";    // ShortReal, hours ahead of Greenwich by the sun
inline constexpr char kComment[] = "Comment";            // String, may be null

// Builds the definition and calculates its layout, ready to create records.
halyard::Ptr<halyard::IStructureDef> DefineZone();

}  // namespace time_zones
