// One row of the table as a record: filling it, and comparing it with its source.
#pragma once

#include <string>
#include <vector>

#include "time_zones/zone_definition.h"
#include "time_zones/zone_table.h"

namespace time_zones {

// A new record of the definition with the content of the row.
halyard::Ptr<halyard::IValueBase> MakeRecord(const halyard::Ptr<halyard::IStructureDef>& definition,
                                             const ZoneRow& row);

// What differs between a record and its row, a sentence for each member; empty when they
// agree in every member to the last bit.
std::vector<std::string> DifferencesFrom(const halyard::Ptr<halyard::IValueBase>& record, const ZoneRow& row);

// The content of a member as a person reads it; "-" for null.
std::string Readable(const halyard::Variant& value);

}  // namespace time_zones
