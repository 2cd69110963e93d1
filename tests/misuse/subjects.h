// An object of each class with something in it, and a text of what it holds.
#pragma once

#include <string>

#include "tests/support/composites.h"

namespace halyard::test {

// The classes by name; null for a name that is none of them. Structures and arrays hold
// numbers and texts, arrays two or three elements.
Ptr<IUnknown> NewSubject(const std::string& class_name);

// Makes the calls that reach into everything that the object holds. They may fail: a part
// of it may be somebody's.
void Exercise(IUnknown* object);

// What the object holds, as far as it can be asked for without changing it.
std::string Holdings(IUnknown* object);

}  // namespace halyard::test
