// What an input may cost in memory. Sanitized builds only: they tell of each allocation.
#pragma once

#include <cstddef>

namespace halyard::fuzz {

// While it lives, the process may hold at most a base plus a factor times the size of the
// input more than when it began; the moment that it holds more, the process ends.
class MemoryBound {
 public:
  explicit MemoryBound(std::size_t input_bytes);
  ~MemoryBound();
  MemoryBound(const MemoryBound&) = delete;
  MemoryBound& operator=(const MemoryBound&) = delete;

  // The most bytes beyond the beginning that any bound has seen held.
  static std::size_t Peak() noexcept;
};

}  // namespace halyard::fuzz
