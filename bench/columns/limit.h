// The limit of W3: loops over packed memory.
#pragma once

#include <memory>

#include "columns/column_table.h"

namespace bench {

std::unique_ptr<ColumnTable> MakePackedColumns();

}  // namespace bench
