// The library's side of W1: a definition of soundings, records written and read through
// the file object.
#pragma once

#include <memory>

#include "records/record_file.h"
#include "support/client.h"

namespace bench {

// The definition of a sounding, its layout worked out. Also the element of W3 and W6.
halyard::Ptr<halyard::IStructureDef> DefineSounding();

// Sets every member of a record by its position.
void FillSounding(halyard::IValueBase& record, const Sounding& content);

// One write call for each record, as the file object promises by default.
std::unique_ptr<RecordFile> MakeHalyardRecords();

// Records are kept back in a buffer of 64 KB.
std::unique_ptr<RecordFile> MakeHalyardBufferedRecords();

}  // namespace bench
