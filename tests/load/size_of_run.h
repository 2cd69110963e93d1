// How long the tests of load run: shortened with all other tests, in full when asked.
#pragma once

#include <cstdlib>

namespace halyard::test {

// Whether HALYARD_LOAD=full asks for the long forms.
inline bool IsFullRun() {
  const char* wanted = std::getenv("HALYARD_LOAD");
  return wanted != nullptr && wanted[0] == 'f';
}

// One of two sizes.
template <class T>
T Shortened(T shortened, T full) {
  return IsFullRun() ? full : shortened;
}

}  // namespace halyard::test
