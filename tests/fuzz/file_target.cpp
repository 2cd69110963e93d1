#include <string>
#include <vector>

#include "halyard/platform/wide_text.h"
#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/memory_file.h"
#include "tests/fuzz/support/walk.h"
#include "tests/fuzz/targets.h"

namespace halyard::fuzz {
namespace {

Ptr<IOrmFile> NewFile() { return CreateObject<IOrmFile>(kOrmFileClass); }

// The file, opened by its name; none where it is no file of units.
Ptr<IOrmFile> Opened(const MemoryFile& content) {
  const auto file = NewFile();
  const std::string name = content.Name();
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(Bstr(WideString(name.begin(), name.end())).get(), VARIANT_TRUE, &done));
  return done == VARIANT_FALSE ? nullptr : file;
}

// The same file through a handle of the caller's.
Ptr<IOrmFile> Attached(const MemoryFile& content) {
  const auto file = NewFile();
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->AttachForRead(content.NewHandle(), VARIANT_TRUE, &done));
  return done == VARIANT_FALSE ? nullptr : file;
}

// What one call for a unit gave.
struct Read {
  HRESULT status;
  Ptr<IUnit> unit;
};

// Every unit up to the end. A record takes at least its length field, which bounds them.
std::vector<Read> AllUnits(const Ptr<IOrmFile>& file, std::size_t bytes) {
  std::vector<Read> units;
  for (;;) {
    Hold(units.size() <= bytes, "reading comes to an end");
    Ptr<IUnit> unit;
    const HRESULT hr = file->ReadUnit(unit.Out());
    if (SUCCEEDED(hr) && !unit) return units;
    units.push_back({hr, unit});
  }
}

void Compare(const std::vector<Read>& a, const std::vector<Read>& b) {
  Hold(a.size() == b.size(), "a file has as many records by name as by handle");
  for (std::size_t i = 0; i < a.size(); ++i) {
    Hold(a[i].status == b[i].status, "a record reads alike by name and by handle");
    if (a[i].unit && b[i].unit)
      Hold(Encoded(a[i].unit) == Encoded(b[i].unit), "a unit holds the same by name and by handle");
  }
}

// A file of the units that can be written. A value has the length that its encoding
// announced, whatever came of it, so units of more than `most` bytes are left out.
Bytes Written(const std::vector<Read>& units, ULONG most) {
  const MemoryFile content;
  const auto file = NewFile();
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->AttachForWrite(content.NewHandle(), &done));
  Hold(done != VARIANT_FALSE, "an empty file takes a header");
  for (const Read& read : units) {
    ULONG size = 0;
    if (read.unit && SUCCEEDED(read.unit->get_PacketSize(&size)) && size <= most)
      static_cast<void>(file->WriteUnit(read.unit.get(), &done));
  }
  Check(file->Close());
  return content.Content();
}

Bytes Rewritten(const Bytes& bytes, ULONG most) {
  const MemoryFile content(bytes);
  return Written(AllUnits(Opened(content), bytes.size()), most);
}

// Whether reading and writing ends in a file that stays the same. It takes a few rounds: a
// definition that was cut short is written with zeros for what it lacks, and its sizes
// follow one round later.
bool ComesToRest(Bytes bytes) {
  constexpr int kRounds = 6;
  for (int round = 0; round < kRounds; ++round) {
    Bytes next = Rewritten(bytes, static_cast<ULONG>(bytes.size()));
    if (next == bytes) return true;
    bytes = std::move(next);
  }
  return false;
}

void LookAtUnit(const Ptr<IUnit>& unit) {
  Ptr<IValueBase> value;
  static_cast<void>(unit->get_Value(value.Out()));
  if (value) LookAt(value);
}

}  // namespace

void FileTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  const MemoryFile content(bytes);
  const auto file = Opened(content);
  const auto attached = Attached(content);
  Hold(static_cast<bool>(file) == static_cast<bool>(attached), "a file opens alike by name and by handle");
  if (!file) return;
  const auto units = AllUnits(file, bytes.size());
  Compare(units, AllUnits(attached, bytes.size()));
  for (const Read& read : units) {
    if (read.unit) LookAtUnit(read.unit);
  }
  Hold(ComesToRest(Written(units, static_cast<ULONG>(bytes.size()))),
       "a file that is read and written again and again settles");
}

}  // namespace halyard::fuzz
