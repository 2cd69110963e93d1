// Memory that runs out on command. Whoever links this file allocates through it: by new, by
// malloc and its kin in the program's own objects (the linker redirects those).
#pragma once

#include <cstddef>

namespace halyard::test {

// While it lives, allocation number `which` (1 for the first) fails; the others succeed.
class FailingAllocation {
 public:
  explicit FailingAllocation(std::size_t which);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  // Whether there were that many allocations, so that one failed.
  [[nodiscard]] bool Happened() const;
};

// Blocks that were allocated and not freed.
std::ptrdiff_t LiveBlocks();

}  // namespace halyard::test
