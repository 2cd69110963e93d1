// What the benchmark does when something is not as it must be: it raises an exception
// that names it, and the action that met it is reported as failed.
#pragma once

#include <string>

#include "halyard/platform/automation.h"

namespace bench {

// Throws std::runtime_error with the words, where the condition is false.
void Demand(bool condition, const std::string& otherwise);

// The same for the outcome of a call of the library.
void DemandTrue(VARIANT_BOOL outcome, const std::string& otherwise);

// A status as people write it: 0x80004003.
std::string CodeText(HRESULT code);

}  // namespace bench
