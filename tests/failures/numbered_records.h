// A file whose records are numbered, so that a reader can say which of them are there, and
// whether each of their bytes is the one that was written.
#pragma once

#include <cstddef>
#include <vector>

#include "tests/support/handles.h"
#include "tests/support/streams.h"

namespace halyard::test {

// {Number Long, Text String}; id 1. With `samples`, arrays behind them hold so many Reals.
Ptr<IStructureDef> NumberedDefinition(LONG samples = 0);

// Writes records first, first + 1, ... until one is refused or `count` are written; how
// many were reported as written.
LONG WriteNumbered(const Ptr<IOrmFile>& file, const Ptr<IStructureDef>& definition, LONG first, LONG count);

// 0, 1, ... count - 1.
std::vector<LONG> FirstNumbers(LONG count);

// Reads on until the file gives no more; the numbers of the records. What the file gives
// must be whole: the test fails for all else but definitions.
std::vector<LONG> ReadNumbered(const Ptr<IOrmFile>& file);

// The same of a file by name.
std::vector<LONG> NumbersIn(const TempFile& place);

// What lies in the first bytes of a file.
struct WholeRecords {
  LONG data = 0;         // records behind that of the definition
  std::size_t tail = 0;  // bytes of one that is not whole
};
WholeRecords RecordsWithin(const Bytes& contents, std::size_t size);

}  // namespace halyard::test
