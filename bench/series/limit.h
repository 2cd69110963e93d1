// The limit of W4: one copy in memory that was used before, and one system call.
#pragma once

#include <memory>

#include "series/series_file.h"

namespace bench {

std::unique_ptr<SeriesFile> MakeCopiedSeries();

}  // namespace bench
