// One object of every class, in a state in which its operations have something to do.
#pragma once

#include "halyard/halyard.h"

namespace halyard::test {

// A new object of the class of that name, made through the registration.
Ptr<IDispatch> SampleObject(WideView class_name);

// A new object for an argument of that interface; null where the interface is none of
// those that take a definition, a value, a unit or a session.
Ptr<IUnknown> SampleArgument(REFIID iid);

}  // namespace halyard::test
