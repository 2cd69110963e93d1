#include "own_actions.h"

#include "arrays/halyard.h"
#include "arrays/limit.h"
#include "columns/halyard.h"
#include "columns/limit.h"
#include "members/halyard.h"
#include "members/limit.h"
#include "records/halyard.h"
#include "records/limit.h"
#include "series/halyard.h"
#include "series/limit.h"
#include "stations/halyard.h"
#include "stations/limit.h"

namespace bench {
namespace {

constexpr char kLimit[] = "limit";
constexpr char kHalyard[] = "Halyard";

void AddRecords(Actions& actions) {
  kRecords.AddWriter(actions, RecordFiles::kWriteTask, kLimit, MakeBufferedRecords);
  kRecords.AddWriter(actions, RecordFiles::kWriteTask, kHalyard, MakeHalyardBufferedRecords);
  kRecords.AddWriter(actions, RecordFiles::kWriteEachTask, kLimit, MakeBareRecords);
  kRecords.AddWriter(actions, RecordFiles::kWriteEachTask, kHalyard, MakeHalyardRecords);
  kRecords.AddReader(actions, kLimit, MakeBufferedRecords);
  kRecords.AddReader(actions, kHalyard, MakeHalyardRecords);
}

void AddStations(Actions& actions) {
  kStations.AddWriter(actions, StationFiles::kWriteTask, kLimit, MakeBufferedStations);
  kStations.AddWriter(actions, StationFiles::kWriteTask, kHalyard, MakeHalyardBufferedStations);
  kStations.AddWriter(actions, StationFiles::kWriteEachTask, kLimit, MakeBareStations);
  kStations.AddWriter(actions, StationFiles::kWriteEachTask, kHalyard, MakeHalyardStations);
  kStations.AddReader(actions, kLimit, MakeBufferedStations);
  kStations.AddReader(actions, kHalyard, MakeHalyardStations);
}

}  // namespace

void AddOwnActions(Actions& actions) {
  AddRecords(actions);
  AddStations(actions);
  AddColumns(actions, kLimit, MakePackedColumns);
  AddColumns(actions, kHalyard, MakeHalyardColumns);
  AddColumns(actions, "Halyard, built by Add", MakeHalyardBuiltColumns);
  AddSeries(actions, kLimit, MakeCopiedSeries);
  AddSeries(actions, kHalyard, MakeHalyardSeries);
  AddMemberAccess(actions, kLimit, MakeOffsetMembers);
  AddMemberAccess(actions, kHalyard, MakeHalyardMembers);
  AddArrays(actions, kLimit, MakeCopiedArray);
  AddArrayReader(actions, "read into used memory, then copied", MakeReadArray);
  AddArrays(actions, kHalyard, MakeHalyardArray);
}

}  // namespace bench
