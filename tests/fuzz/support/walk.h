// Looks at everything that a value or definition shows.
#pragma once

#include "halyard/halyard.h"

namespace halyard::fuzz {

// Asks for the members and elements, and for the text of each, down to some depth and up
// to some number in all, since asking makes what was only announced; drops the answers.
void LookAt(const Ptr<IValueBase>& value);
void LookAt(const Ptr<IValueDefBase>& definition);

}  // namespace halyard::fuzz
