#include "tests/differential/hostile_streams.h"

#include <algorithm>
#include <iterator>

#include "tests/differential/world.h"
#include "tests/support/files.h"
#include "tests/support/message_recorder.h"

namespace halyard::differential {
namespace {

// How many seeds share one valid stream, which is not cheap to make.
constexpr std::uint64_t kChangesOfEach = 16;

constexpr unsigned char kInfoKind = 101;
constexpr unsigned char kDataKind = 102;
constexpr SHORT kTypeOfClass[] = {kLong, kEnumeration, kStructure, kArray};

// The info unit of an input of the target `definition`: a byte for the class, then the
// definition. A simple one begins with its own type code.
Bytes InfoUnit(const Bytes& input) {
  if (input.empty()) return {};
  const auto type = static_cast<unsigned char>(kTypeOfClass[input.front() % std::size(kTypeOfClass)]);
  Bytes unit = {kInfoKind, 0, type, 0};
  if (type == kLong && input.size() > 2) std::copy_n(input.begin() + 1, 2, unit.begin() + 2);
  unit.insert(unit.end(), input.begin() + 1, input.end());
  return unit;
}

// The units of an input of the target `value`: class and length of the definition, the
// definition, the value. Most definitions begin with their id.
std::vector<Bytes> InfoAndDataUnit(const Bytes& input) {
  constexpr std::size_t kFront = 3;
  if (input.size() < kFront) return {};
  const std::size_t length = input[1] | std::size_t{input[2]} << 8;
  const auto middle = input.begin() + static_cast<std::ptrdiff_t>(std::min(kFront + length, input.size()));
  Bytes definition = {input.front()};
  definition.insert(definition.end(), input.begin() + kFront, middle);
  const Bytes info = InfoUnit(definition);
  Bytes data = {kDataKind, 0, info[2], info[3]};
  data.resize(6);
  if (info.size() >= 6) std::copy_n(info.begin() + 4, 2, data.begin() + 4);
  data.insert(data.end(), middle, input.end());
  return {info, data};
}

// Definitions and values by some random steps. None where a definition holds itself or is
// too large to make values of.
World MadeBySteps(std::uint64_t seed) {
  constexpr int kSteps = 24;
  World world(seed);
  for (int step = 0; step < kSteps && !world.Heavy(); ++step)
    step < kSteps / 2 ? DefinitionStep(world) : ValueStep(world);
  return world;
}

// What a step may have tied together.
void TakeApart(const Ptr<IValueDefBase>& definition) {
  if (const auto structure = definition.As<IStructureDef>()) static_cast<void>(structure->RemoveAll());
  if (const auto array = definition.As<IArrayDef>()) static_cast<void>(array->put_ValueType(nullptr));
}

// The unit of a definition or value, empty where it has none or is large.
template <class Put>
Bytes UnitWith(Put put) {
  constexpr ULONG kLargest = 3000;
  const auto unit = CreateObject<IUnit>(kUnitClass);
  Bytes bytes(kLargest);
  ULONG written = 0;
  VARIANT_BOOL done = VARIANT_FALSE;
  if (FAILED(put(unit))) return {};
  if (FAILED(unit->WriteToBuffer(bytes.data(), kLargest, &written, &done)) || done == VARIANT_FALSE)
    return {};
  bytes.resize(written);
  return bytes;
}

void AddInfo(std::vector<Bytes>& units, const Ptr<IValueDefBase>& definition) {
  Bytes unit = UnitWith([&](const Ptr<IUnit>& made) { return made->put_Info(definition.get()); });
  if (!unit.empty()) units.push_back(std::move(unit));
}

Bytes StreamMadeBySteps(std::uint64_t seed) {
  const World world = MadeBySteps(seed);
  std::vector<Bytes> units;
  const bool is_light = !world.Heavy();
  for (const auto& definition : world.definitions)
    if (is_light) AddInfo(units, definition);
  for (const auto& value : world.values) {
    if (!is_light) break;
    Ptr<IValueDefBase> info;
    if (SUCCEEDED(value->get_Info(info.Out())) && info) AddInfo(units, info);
    Bytes unit = UnitWith([&](const Ptr<IUnit>& made) { return made->put_Value(value.get()); });
    if (!unit.empty()) units.push_back(std::move(unit));
  }
  for (const auto& definition : world.definitions) TakeApart(definition);
  return StreamOf(units);
}

}  // namespace

HostileStreams::HostileStreams(const std::vector<std::filesystem::path>& folders) {
  for (const auto& folder : folders) TakeFolder(folder);
}

void HostileStreams::TakeFolder(const std::filesystem::path& folder) {
  for (const auto& path : test::FilesIn(folder / "file")) kept_.push_back(test::ContentOf(path));
  for (const auto& path : test::FilesIn(folder / "unit")) kept_.push_back(StreamOf({test::ContentOf(path)}));
  for (const auto& path : test::FilesIn(folder / "definition"))
    kept_.push_back(StreamOf({InfoUnit(test::ContentOf(path))}));
  for (const auto& path : test::FilesIn(folder / "value"))
    kept_.push_back(StreamOf(InfoAndDataUnit(test::ContentOf(path))));
}

const Bytes& HostileStreams::ValidStream(std::uint64_t seed) {
  const std::uint64_t wanted = seed / kChangesOfEach + 1;
  if (valid_seed_ != wanted) valid_ = StreamMadeBySteps(wanted);
  valid_seed_ = wanted;
  return valid_;
}

Bytes HostileStreams::Make(std::uint64_t seed) {
  if (seed <= kept_.size()) return kept_[static_cast<std::size_t>(seed) - 1];
  Random random(seed);
  const bool takes_kept = !kept_.empty() && random.OneIn(3);
  return Changed(
      random, takes_kept ? kept_[random.Below(static_cast<std::uint32_t>(kept_.size()))] : ValidStream(seed));
}

}  // namespace halyard::differential
