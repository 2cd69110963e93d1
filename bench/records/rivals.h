// The rivals in W1.
#pragma once

#include <memory>

#include "records/record_file.h"

namespace bench {

// Protocol Buffers: one dynamic message, filled again and again, in a delimited stream.
std::unique_ptr<RecordFile> MakeProtobufRecords();

// Avro C: one generic value in a container file without compression.
std::unique_ptr<RecordFile> MakeAvroRecords();

// Cap'n Proto: a message with a dynamic struct for each record, in a buffered stream.
std::unique_ptr<RecordFile> MakeCapnpRecords();

// msgpack: each record is an array of seven, packed number by number; or put together as
// an object first. Both are read as objects.
std::unique_ptr<RecordFile> MakeMsgpackRecords();
std::unique_ptr<RecordFile> MakeMsgpackObjectRecords();

// HDF5: a packet table of a compound type, a thousand records a call.
std::unique_ptr<RecordFile> MakeHdf5Records();

}  // namespace bench
