// What the benchmark does when something is not as it must be: it raises an exception
// that names it, and the action that met it is reported as failed.
//
// The checks stand in measured loops, so a check that holds costs a comparison.
#pragma once

#include <string>

#include "halyard/platform/automation.h"

namespace bench {

// Throws std::runtime_error with the words.
[[noreturn]] void Fail(const std::string& words);

// Fails where the condition is false.
inline void Demand(bool condition, const char* otherwise) {
  if (!condition) [[unlikely]]
    Fail(otherwise);
}

// The same for the outcome of a call of the library.
inline void DemandTrue(VARIANT_BOOL outcome, const char* otherwise) {
  Demand(outcome != VARIANT_FALSE, otherwise);
}

// A status as people write it: 0x80004003.
std::string CodeText(HRESULT code);

}  // namespace bench
