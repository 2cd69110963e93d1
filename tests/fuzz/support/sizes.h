// What PacketSize says about an encoding, and what may be counted on.
#pragma once

#include "halyard/halyard.h"
#include "tests/fuzz/support/input.h"

namespace halyard::fuzz {

// Holds the PacketSize of a value to the `written` bytes of its encoding.
//
// Values of fixed width and structures of such members say exactly what they write, and
// write into just that much and no less. A string array of any number of texts says 4 bytes
// more. An array of values says the low 16 bits of its elements' data size for each of them,
// which may be more or less than they write.
void HoldSize(const Ptr<IValueBase>& value, std::size_t written);

// Holds the PacketSize of a definition, which is exact while the names in it are shorter
// than 64 KB together and all numbers of enumerations in it travel.
void HoldSize(const Ptr<IValueDefBase>& definition, std::size_t written);

// Holds the PacketSize of a unit to that of what it carries, and that to the `written` bytes.
void HoldSize(const Ptr<IUnit>& unit, std::size_t written);

}  // namespace halyard::fuzz
