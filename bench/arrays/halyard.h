// The library's side of W6: an array value as one record of a file.
#pragma once

#include <memory>

#include "arrays/array_file.h"

namespace bench {

std::unique_ptr<ArrayFile> MakeHalyardArray();

}  // namespace bench
