#include <algorithm>
#include <vector>

#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/reading.h"
#include "tests/fuzz/support/soundness.h"
#include "tests/fuzz/support/walk.h"
#include "tests/fuzz/support/writing.h"
#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

void CompareOne(const Reading& a, const Reading& b) {
  Hold(a.status == b.status, "a record reads alike in every way");
  Hold(static_cast<bool>(a.unit) == static_cast<bool>(b.unit), "a record gives a unit in every way");
  if (a.unit) Hold(Encoded(a.unit) == Encoded(b.unit), "a unit holds the same in every way");
}

// `kept` was read by name. Another object reads the same through a handle.
void CompareAttached(const std::vector<Reading>& kept, LONG handle, std::size_t bytes) {
  const auto file = Attached(handle);
  Hold(static_cast<bool>(file), "a file opens alike by name and by handle");
  const auto units = AllUnits(file, bytes);
  Hold(kept.size() == units.size(), "a file has as many records by name as by handle");
  for (std::size_t i = 0; i < kept.size(); ++i) CompareOne(kept[i], units[i]);
}

void LookAtUnit(const Ptr<IUnit>& unit) {
  Ptr<IValueBase> value;
  static_cast<void>(unit->get_Value(value.Out()));
  if (value) LookAt(value);
}

// A reader lets go of each unit before it asks for the next, as most do: the file may use
// the same objects again. It gives what one gives that keeps them all.
void CompareLetGo(const std::vector<Reading>& kept, const MemoryFile& content) {
  const auto file = Opened(content);
  for (const Reading& expected : kept) {
    const Reading next = NextUnit(file);
    CompareOne(expected, next);
    if (next.unit) LookAtUnit(next.unit);
  }
  Hold(!NextUnit(file).unit, "a file ends where it ended before");
}

// Values and definitions are written as the units are that hold them.
void CompareWriting(const std::vector<Reading>& units, ULONG most) {
  UnitWriter by_parts(most);
  UnitWriter whole(most);
  for (const Reading& read : units) {
    if (!read.unit) continue;
    by_parts.WriteBody(read.unit);
    whole.WriteUnit(read.unit);
  }
  Hold(by_parts.Close() == whole.Close(), "values and definitions are written as their units are");
}

// Whether all definitions among the units are read as what they are and can be used.
bool AreSound(const std::vector<Reading>& units) {
  return std::ranges::all_of(units, [](const Reading& read) {
    Ptr<IValueDefBase> definition;
    if (read.unit) Check(read.unit->get_Info(definition.Out()));
    return !definition || (HasOwnTypes(definition) && NumbersTravel(definition));
  });
}

// Writes units, reads and writes the file, and so on. Whether that ends in a file that stays
// the same: it takes a few rounds, since a definition that was cut short is written with zeros
// for what it lacks, and its sizes follow one round later. While all definitions are sound, each
// record that is written is read, and can be written again once the values before it were
// those of whole definitions.
bool ComesToRest(std::vector<Reading> units, std::size_t most) {
  constexpr int kRounds = 7;
  bool are_sound = false;
  Bytes before;
  for (int round = 0; round < kRounds; ++round) {
    UnitWriter writer(static_cast<ULONG>(most));
    for (const Reading& read : units) {
      if (read.unit) writer.WriteUnit(read.unit);
    }
    Hold(writer.count() == units.size() || !are_sound || round < 2,
         "what was written and read can be written");
    const Bytes bytes = writer.Close();
    if (bytes == before) return true;
    are_sound = AreSound(units);
    units = AllUnits(Opened(MemoryFile(bytes)), bytes.size());
    Hold(units.size() == writer.count() || !are_sound, "a file holds as many records as were written");
    most = bytes.size();
    before = bytes;
  }
  return false;
}

}  // namespace

void FileTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  const auto size = static_cast<ULONG>(bytes.size());
  const MemoryFile content(bytes);
  const auto file = Opened(content);
  if (!file) {
    Hold(!Attached(content.NewHandle()), "a file opens alike by name and by handle");
    return;
  }
  const auto units = AllUnits(file, size);
  CompareAttached(units, content.NewHandle(), size);
  CompareAttached(units, PipeOf(bytes), size);
  CompareLetGo(units, content);
  CompareWriting(units, size);
  for (const Reading& read : units) {
    if (read.unit) LookAtUnit(read.unit);
  }
  Hold(ComesToRest(units, size), "a file that is read and written again and again settles");
}

}  // namespace halyard::fuzz
