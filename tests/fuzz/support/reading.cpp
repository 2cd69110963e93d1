#include "tests/fuzz/support/reading.h"

#include <string>

#include "halyard/platform/wide_text.h"
#include "tests/fuzz/support/promise.h"

namespace halyard::fuzz {
namespace {

Ptr<IOrmFile> NewFile() { return CreateObject<IOrmFile>(kOrmFileClass); }

}  // namespace

Ptr<IOrmFile> Opened(const MemoryFile& content) {
  const auto file = NewFile();
  const std::string name = content.Name();
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(Bstr(WideString(name.begin(), name.end())).get(), VARIANT_TRUE, &done));
  return done == VARIANT_FALSE ? nullptr : file;
}

Ptr<IOrmFile> Attached(LONG handle) {
  const auto file = NewFile();
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->AttachForRead(handle, VARIANT_TRUE, &done));
  return done == VARIANT_FALSE ? nullptr : file;
}

Reading NextUnit(const Ptr<IOrmFile>& file) {
  Reading reading;
  reading.status = file->ReadUnit(reading.unit.Out());
  return reading;
}

std::vector<Reading> AllUnits(const Ptr<IOrmFile>& file, std::size_t bytes) {
  std::vector<Reading> units;
  for (;;) {
    Hold(units.size() <= bytes, "reading comes to an end");
    Reading next = NextUnit(file);
    if (SUCCEEDED(next.status) && !next.unit) return units;
    units.push_back(std::move(next));
  }
}

}  // namespace halyard::fuzz
