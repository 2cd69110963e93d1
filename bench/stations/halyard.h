// The library's side of W2.
#pragma once

#include <memory>

#include "stations/station_file.h"

namespace bench {

// One write call for each record, as the file object promises by default.
std::unique_ptr<StationFile> MakeHalyardStations();

// Records are kept back in a buffer of 64 KB.
std::unique_ptr<StationFile> MakeHalyardBufferedStations();

}  // namespace bench
