// The library's side of W3: an array value and its transfer of numbers.
#pragma once

#include <memory>

#include "columns/column_table.h"

namespace bench {

// An array that was read from bytes.
std::unique_ptr<ColumnTable> MakeHalyardColumns();

// An array that was put together element by element.
std::unique_ptr<ColumnTable> MakeHalyardBuiltColumns();

}  // namespace bench
