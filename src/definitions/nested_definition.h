// Definitions met inside an encoding: which class stands behind a type code, and the
// reading and writing of one with the bounds that the outer encoding knows.
#pragma once

#include <cstdint>

#include "halyard/definitions/value_def_base.h"
#include "halyard/object/ptr.h"
#include "object/cursor.h"

namespace halyard {

// A fresh definition, activated, for a type code read from an encoding: composite codes
// have classes of their own, all other known ones are simple definitions set to that
// type. For an unknown code a message tells the person and `current` is kept. Empty when
// there is nothing to keep or the class cannot be activated.
Ptr<IValueDefBase> DefinitionForReading(std::uint16_t type, Ptr<IValueDefBase> current);

// Lets the definition read itself from the rest of the buffer. False when that is too
// short; failures, and a count beyond the buffer, are raised.
[[nodiscard]] bool DecodeDefinition(IValueDefBase& definition, ReadCursor& cursor);

// Lets the definition write itself into the rest of the buffer, likewise.
[[nodiscard]] bool EncodeDefinition(IValueDefBase& definition, WriteCursor& cursor);

}  // namespace halyard
