// The rivals in W2.
#pragma once

#include <memory>

#include "stations/station_file.h"

namespace bench {

// Protocol Buffers: one dynamic message with a nested one and a repeated field.
std::unique_ptr<StationFile> MakeProtobufStations();

// Avro C: one generic record with a union, a nested record, an array and an enum.
std::unique_ptr<StationFile> MakeAvroStations();

// Cap'n Proto: a message with a dynamic struct for each record; a note that is not there
// is a pointer that is not set.
std::unique_ptr<StationFile> MakeCapnpStations();

// msgpack: each record is an array of six, packed item by item and read as objects.
std::unique_ptr<StationFile> MakeMsgpackStations();

// HDF5: a packet table of a compound type with texts of variable length; a note that is
// not there is a null pointer.
std::unique_ptr<StationFile> MakeHdf5Stations();

}  // namespace bench
