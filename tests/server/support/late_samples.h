// Sample definitions for the tests of late binding.
#pragma once

#include "tests/support/definitions.h"

namespace halyard::test {

// A structure of a Real and a String: one member in the block, one an object.
inline Ptr<IStructureDef> DepthAndLabel() {
  return StructureDefinition({{L"Depth", kReal}, {L"Label", kString}}, 7, L"Sample");
}

}  // namespace halyard::test
