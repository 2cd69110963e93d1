// The rivals in W3.
#pragma once

#include <memory>

#include "columns/column_table.h"

namespace bench {

// numpy: a structured array, in an interpreter inside this process.
std::unique_ptr<ColumnTable> MakeNumpyColumns();

// HDF5: a data set of a compound type, of which one member is read or written, converted.
std::unique_ptr<ColumnTable> MakeHdf5Columns();

// Protocol Buffers: dynamic messages, one for each sounding.
std::unique_ptr<ColumnTable> MakeProtobufColumns();

// Cap'n Proto: one message with a list of structs, seen as dynamic values.
std::unique_ptr<ColumnTable> MakeCapnpColumns();

}  // namespace bench
