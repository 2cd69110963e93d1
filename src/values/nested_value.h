// Values inside values: the reading and writing of a member, element or unit body by
// itself, within the bounds that the outer encoding knows.
//
// A simple value does not look at the size of its buffer when a client calls it; here
// the room is checked for it first, and where it would touch more bytes than it counts
// it works on a copy.
#pragma once

#include "halyard/values/value_base.h"
#include "object/cursor.h"

namespace halyard {

// Lets the value read itself from the rest of the buffer. False when that is too short;
// failures, and a count beyond the buffer, are raised.
[[nodiscard]] bool DecodeValue(IValueBase& value, ReadCursor& cursor);

// Lets the value write itself into the rest of the buffer, likewise.
[[nodiscard]] bool EncodeValue(IValueBase& value, WriteCursor& cursor);

}  // namespace halyard
