// A disk that is soon full.
#pragma once

#include <functional>

namespace halyard::test {

enum class DiskOutcome {
  kPassed,
  kFailed,
  kNoDisk  // the system does not let the process have one
};

// Runs a part of a test in a process of its own, whose temporary files lie on a disk of
// 64 KiB. Failures of the part are printed there; the outcome tells of them.
DiskOutcome OnSmallDisk(const std::function<void()>& part);

}  // namespace halyard::test
