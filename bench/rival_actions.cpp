#include "rival_actions.h"

#include "columns/rivals.h"
#include "members/rivals.h"
#include "records/rivals.h"
#include "series/rivals.h"
#include "stations/rivals.h"

namespace bench {
namespace {

constexpr char kAvro[] = "Avro C";
constexpr char kCapnp[] = "Cap'n Proto";
constexpr char kFlatbuffers[] = "FlatBuffers";
constexpr char kHdf5[] = "HDF5";
constexpr char kMsgpack[] = "msgpack";
constexpr char kMsgpackObjects[] = "msgpack, objects";
constexpr char kNumpy[] = "numpy";
constexpr char kProtobuf[] = "Protocol Buffers";

void AddRecord(Actions& actions, const char* name, RecordFiles::Maker make) {
  kRecords.AddWriter(actions, RecordFiles::kWriteTask, name, make);
  kRecords.AddReader(actions, name, make);
}

void AddStation(Actions& actions, const char* name, StationFiles::Maker make) {
  kStations.AddWriter(actions, StationFiles::kWriteTask, name, make);
  kStations.AddReader(actions, name, make);
}

void AddAllRecords(Actions& actions) {
  AddRecord(actions, kAvro, MakeAvroRecords);
  AddRecord(actions, kCapnp, MakeCapnpRecords);
  AddRecord(actions, kHdf5, MakeHdf5Records);
  AddRecord(actions, kMsgpack, MakeMsgpackRecords);
  AddRecord(actions, kProtobuf, MakeProtobufRecords);
  kRecords.AddWriter(actions, RecordFiles::kWriteTask, kMsgpackObjects, MakeMsgpackObjectRecords);
}

void AddAllStations(Actions& actions) {
  AddStation(actions, kAvro, MakeAvroStations);
  AddStation(actions, kCapnp, MakeCapnpStations);
  AddStation(actions, kHdf5, MakeHdf5Stations);
  AddStation(actions, kMsgpack, MakeMsgpackStations);
  AddStation(actions, kProtobuf, MakeProtobufStations);
}

}  // namespace

void AddRivalActions(Actions& actions) {
  AddAllRecords(actions);
  AddAllStations(actions);
  AddColumns(actions, kCapnp, MakeCapnpColumns);
  AddColumns(actions, kHdf5, MakeHdf5Columns);
  AddColumns(actions, kNumpy, MakeNumpyColumns);
  AddColumns(actions, kProtobuf, MakeProtobufColumns);
  AddSeries(actions, kAvro, MakeAvroSeries);
  AddSeries(actions, kCapnp, MakeCapnpSeries);
  AddSeries(actions, kProtobuf, MakeProtobufSeries);
  AddMemberAccess(actions, kAvro, MakeAvroMembers);
  AddMemberAccess(actions, kFlatbuffers, MakeFlatbuffersMembers);
  AddMemberAccess(actions, kProtobuf, MakeProtobufMembers);
}

}  // namespace bench
