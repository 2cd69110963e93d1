// The limits of W2: records put together by hand and the system's calls.
#pragma once

#include <memory>

#include "stations/station_file.h"

namespace bench {

// Records through a buffer of 64 KB.
std::unique_ptr<StationFile> MakeBufferedStations();

// As many bytes as the library's records have, a system call for each record.
std::unique_ptr<StationFile> MakeBareStations();

}  // namespace bench
