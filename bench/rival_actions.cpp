#include "rival_actions.h"

#include "records/rivals.h"
#include "stations/rivals.h"

namespace bench {
namespace {

constexpr char kAvro[] = "Avro C";
constexpr char kCapnp[] = "Cap'n Proto";
constexpr char kHdf5[] = "HDF5";
constexpr char kMsgpack[] = "msgpack";
constexpr char kMsgpackObjects[] = "msgpack, objects";
constexpr char kProtobuf[] = "Protocol Buffers";

void AddRecord(Actions& actions, const char* name, RecordFiles::Maker make) {
  kRecords.AddWriter(actions, RecordFiles::kWriteTask, name, make);
  kRecords.AddReader(actions, name, make);
}

void AddStation(Actions& actions, const char* name, StationFiles::Maker make) {
  kStations.AddWriter(actions, StationFiles::kWriteTask, name, make);
  kStations.AddReader(actions, name, make);
}

}  // namespace

void AddRivalActions(Actions& actions) {
  AddRecord(actions, kAvro, MakeAvroRecords);
  AddRecord(actions, kCapnp, MakeCapnpRecords);
  AddRecord(actions, kHdf5, MakeHdf5Records);
  AddRecord(actions, kMsgpack, MakeMsgpackRecords);
  AddRecord(actions, kProtobuf, MakeProtobufRecords);
  kRecords.AddWriter(actions, RecordFiles::kWriteTask, kMsgpackObjects, MakeMsgpackObjectRecords);

  AddStation(actions, kAvro, MakeAvroStations);
  AddStation(actions, kCapnp, MakeCapnpStations);
  AddStation(actions, kHdf5, MakeHdf5Stations);
  AddStation(actions, kMsgpack, MakeMsgpackStations);
  AddStation(actions, kProtobuf, MakeProtobufStations);
}

}  // namespace bench
