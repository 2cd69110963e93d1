// The limits of W1: the packed struct and the system's calls.
#pragma once

#include <memory>

#include "records/record_file.h"

namespace bench {

// The packed struct through a buffer of 64 KB.
std::unique_ptr<RecordFile> MakeBufferedRecords();

// As many bytes as the library's records have, a system call for each record.
std::unique_ptr<RecordFile> MakeBareRecords();

}  // namespace bench
