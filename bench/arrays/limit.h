// The limits of W6: the block of packed soundings, copied to memory of its own.
#pragma once

#include <memory>

#include "arrays/array_file.h"

namespace bench {

// The copy alone, from memory: what any reader that hands out an array must do at least.
std::unique_ptr<ArrayFile> MakeCopiedArray();

// One system call into memory that was used before, then the copy.
std::unique_ptr<ArrayFile> MakeReadArray();

}  // namespace bench
