// Files of units as fuzz targets read them.
#pragma once

#include <vector>

#include "halyard/halyard.h"
#include "tests/fuzz/support/memory_file.h"

namespace halyard::fuzz {

// The file, opened by its name; null where it is no file of units.
Ptr<IOrmFile> Opened(const MemoryFile& content);

// The same behind a handle of the caller's, which the object closes.
Ptr<IOrmFile> Attached(LONG handle);

// What one call for a unit gave.
struct Reading {
  HRESULT status;
  Ptr<IUnit> unit;
};

// The next unit; a success without a unit at the end.
Reading NextUnit(const Ptr<IOrmFile>& file);

// Every unit up to the end, of a file of so many bytes. A record takes at least its length
// field, which bounds their number.
std::vector<Reading> AllUnits(const Ptr<IOrmFile>& file, std::size_t bytes);

}  // namespace halyard::fuzz
