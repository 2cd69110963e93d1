// The rivals in W4.
#pragma once

#include <memory>

#include "series/series_file.h"

namespace bench {

// Avro C: a generic array.
std::unique_ptr<SeriesFile> MakeAvroSeries();

// Cap'n Proto: a dynamic list, in one message.
std::unique_ptr<SeriesFile> MakeCapnpSeries();

// Protocol Buffers: a dynamic message with a packed repeated field.
std::unique_ptr<SeriesFile> MakeProtobufSeries();

}  // namespace bench
