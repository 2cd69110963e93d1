#include "tests/fuzz/support/promise.h"

#include <cstdio>
#include <cstdlib>

namespace halyard::fuzz {

void Hold(bool held, const char* promise) {
  if (held) return;
  std::fprintf(stderr, "ERROR: broken promise: %s\n", promise);
  std::abort();
}

}  // namespace halyard::fuzz
