// The library's side of W4: a simple array, written as one record.
#pragma once

#include <memory>

#include "series/series_file.h"

namespace bench {

std::unique_ptr<SeriesFile> MakeHalyardSeries();

}  // namespace bench
