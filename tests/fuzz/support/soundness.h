// What damage does to a definition that can still be read, as far as it changes what may be
// expected of writing. Each looks at the definition and at all that it is made of.
#pragma once

#include "halyard/halyard.h"

namespace halyard::fuzz {

// A nested definition stands behind a type code, which chooses its class; a simple one also
// carries a code of its own. Where that is no elementary code (nothing but a damaged stream has
// it), whoever reads what the definition writes takes another class, and other bytes with it.
// False where this or any part of it is such a one.
bool HasOwnTypes(const Ptr<IValueDefBase>& definition);

// A range carries a type code of its own for its bounds, which become those of the type when
// they are written; bounds beyond that type make writing fail. False where any are.
bool BoundsFit(const Ptr<IValueDefBase>& definition);

// Enumerations of Char, Short and Long have an encoding. Others have a size all the same, but
// neither their members' numbers nor their values are written. False where there is one.
bool NumbersTravel(const Ptr<IValueDefBase>& definition);

// Whether values hold dates. Eight bytes of a file may be a date that is none, or one beyond
// the years that can be written.
bool HasDates(const Ptr<IValueDefBase>& definition);

}  // namespace halyard::fuzz
