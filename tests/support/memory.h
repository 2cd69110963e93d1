// How much memory a test has made the process use.
#pragma once

#include <cstddef>

namespace halyard::test {

// A bound on what may be used while it lives, well above what small objects need and far
// below what a hostile count asks for. On Windows what earlier tests had in use at once may
// be used again unseen.
class MemoryLimit {
 public:
  MemoryLimit();

  // Whether the process has stayed within the bound since.
  [[nodiscard]] bool Kept() const;

 private:
  std::size_t start_ = 0;
};

}  // namespace halyard::test
