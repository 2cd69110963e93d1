// Memory that runs out on command. Whoever links this file allocates through it: by new, by
// malloc and its kin in the program's own objects (the linker redirects those).
#pragma once

#include <cstddef>

namespace halyard::test {

// The number of an allocation that never comes.
inline constexpr std::size_t kNoAllocation = static_cast<std::size_t>(-1);

// Whether an allocation counts that is asked for at that place of the program's code.
using CodeTest = bool (*)(const void* place);

// While it lives, allocation number `which` (1 for the first) fails; the others succeed.
// With `only_while`, allocations count while that is true; with `only_from`, those that
// such code asks for.
class FailingAllocation {
 public:
  explicit FailingAllocation(std::size_t which, const bool* only_while = nullptr);
  FailingAllocation(std::size_t which, CodeTest only_from);
  ~FailingAllocation();
  FailingAllocation(const FailingAllocation&) = delete;
  FailingAllocation& operator=(const FailingAllocation&) = delete;

  // Whether there were that many allocations, so that one failed.
  [[nodiscard]] bool Happened() const;

  // How many allocations there were so far.
  [[nodiscard]] std::size_t Count() const;
};

// Blocks that were allocated and not freed.
std::ptrdiff_t LiveBlocks();

}  // namespace halyard::test
