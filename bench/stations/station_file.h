// W2: 200,000 larger records.
#pragma once

#include "stations/station.h"
#include "support/file_actions.h"

namespace bench {

using StationFile = RecordWork<StationSums>;
using StationFiles = RecordWorkload<StationSums>;

inline constexpr StationFiles kStations = {"W2", 200000, TrueStationSums};

}  // namespace bench
