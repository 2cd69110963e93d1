#include "time_zones/zone_file.h"

#include "time_zones/client.h"
#include "time_zones/zone_record.h"

namespace time_zones {

using namespace halyard;

namespace {

using Clock = std::chrono::steady_clock;

// File names, unlike texts inside the file, are proper wide text.
Bstr FileName(const std::filesystem::path& path) { return Bstr(path.u16string()); }

// Takes what one unit carries: a definition or a value.
void TakeUnit(const Ptr<IUnit>& unit, ZoneFileContent& content) {
  Ptr<IValueDefBase> definition;
  Check(unit->get_Info(definition.Out()), unit);
  if (definition) {
    content.definition = definition.As<IStructureDef>();
    return;
  }
  Ptr<IValueBase> value;
  Check(unit->get_Value(value.Out()), unit);
  Demand(static_cast<bool>(value),
         "record " + std::to_string(content.records.size() + 2) + " cannot be read");
  content.records.push_back(value);
}

}  // namespace

std::chrono::nanoseconds WriteZoneFile(const std::filesystem::path& path,
                                       const Ptr<IStructureDef>& definition,
                                       const std::vector<ZoneRow>& rows) {
  const Clock::time_point start = Clock::now();
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForWrite(FileName(path).get(), &done), file);
  Demand(done, "cannot write " + path.string());
  Check(file->WriteInfo(definition.get(), &done), file);
  Demand(done, "cannot write the definition");
  for (const ZoneRow& row : rows) {
    Check(file->WriteData(MakeRecord(definition, row).get(), &done), file);
    Demand(done, "cannot write the record of " + row.name);
  }
  Check(file->Close(), file);
  return Clock::now() - start;
}

ZoneFileContent ReadZoneFile(const std::filesystem::path& path) {
  ZoneFileContent content;
  const Clock::time_point start = Clock::now();
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(FileName(path).get(), VARIANT_TRUE, &done), file);
  Demand(done, "cannot read " + path.string());
  for (;;) {
    Ptr<IUnit> unit;
    Check(file->ReadUnit(unit.Out()), file);
    if (!unit) break;
    TakeUnit(unit, content);
  }
  Check(file->Close(), file);
  content.duration = Clock::now() - start;
  Demand(static_cast<bool>(content.definition), path.string() + " holds no structure definition");
  return content;
}

}  // namespace time_zones
