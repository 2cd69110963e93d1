// Records as a table with aligned columns, one for each member; the members of a nested
// structure get a column each.
#pragma once

#include <ostream>
#include <vector>

#include "halyard/halyard.h"

namespace time_zones {

// Shows the first `limit` records, which must be values of the definition.
void ShowRows(const halyard::Ptr<halyard::IStructureDef>& definition,
              const std::vector<halyard::Ptr<halyard::IValueBase>>& records, std::size_t limit,
              std::ostream& out);

}  // namespace time_zones
