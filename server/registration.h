// The component's entries in the registry: one script resource for each class, applied
// by the system's script registrar, and the type library.
#pragma once

#include "server/module.h"

namespace halyard {

// Writes the entries of every class and of the type library; raises the first failure.
// What was written stays: registering again repairs and completes it.
void RegisterModule(const Module& module);

// Takes all entries out again; raises the first failure. Entries that are not there
// are no failure.
void UnregisterModule(const Module& module);

}  // namespace halyard
