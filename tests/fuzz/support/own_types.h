// Whether a definition is made of parts that are what their type codes say.
#pragma once

#include "halyard/halyard.h"

namespace halyard::fuzz {

// A nested definition stands behind a type code, which chooses its class; a simple one also
// carries a code of its own. Where that is a composite code (nothing but a damaged stream has
// it), whoever reads what the definition writes takes another class, and other bytes with it.
// False where this or any part of it is such a one.
bool HasOwnTypes(const Ptr<IValueDefBase>& definition);

}  // namespace halyard::fuzz
