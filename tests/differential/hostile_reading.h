// What readers make of a hostile stream.
#pragma once

#include "tests/differential/hostile_streams.h"
#include "tests/differential/world.h"

namespace halyard::differential {

// Reads the stream by name, keeping the units and letting them go, by handle and unit by
// unit from memory, writes what was read again and reads that, and tells every code,
// position and byte.
void ReadHostile(World& world, const Bytes& stream);

}  // namespace halyard::differential
