// How a definition makes a value of itself.
#pragma once

#include "halyard/definitions/value_def_base.h"
#include "halyard/object/ptr.h"
#include "halyard/values/value_base.h"

namespace halyard {

// A new value of the class, made directly whatever is registered, that has taken
// `definition` as its definition. A value that refuses it is raised.
Ptr<IValueBase> CreateValueOf(IValueDefBase* definition, REFCLSID value_class);

}  // namespace halyard
