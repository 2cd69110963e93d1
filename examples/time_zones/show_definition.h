// A definition as a tree: a line a member, with type, place and size.
#pragma once

#include <ostream>

#include "halyard/halyard.h"

namespace time_zones {

void ShowDefinition(const halyard::Ptr<halyard::IStructureDef>& definition, std::ostream& out);

}  // namespace time_zones
