// Walking over countable, indexable objects: what `For Each` of a script asks for.
#pragma once

#include "halyard/object/ptr.h"
#include "object/windows/type_information.h"

namespace halyard {

// A new IEnumVARIANT over the parts of `object`, which serves late binding with
// `information`: the elements or members of a value, the member definitions of a
// structure definition, the element names of an enumeration definition. Positions and
// count are read as the walk goes on. Empty for an object that has no parts to count.
Ptr<IEnumVARIANT> EnumerateItems(IDispatch* object, const InterfaceInformation& information);

}  // namespace halyard
