// System calls on files that go wrong on command. Whoever links this file reads and writes
// through it: the linker redirects the calls of the program's own objects.
#pragma once

#include <cstddef>

namespace halyard::test {

// What becomes of a call that reads or writes.
enum class Fault {
  kNoSpace,       // fails with ENOSPC
  kDevice,        // fails with EIO
  kDeviceGone,    // fails with EIO, as do all later calls
  kInterrupted,   // fails with EINTR, as when a signal came first
  kHalf,          // moves half of the bytes, at least one
  kHalfThenFull,  // moves half of the bytes; all later calls fail with ENOSPC
  kHalfThenOnce   // moves half of the bytes; the next call fails with ENOSPC, later ones do not
};

// The number of a call that never comes.
inline constexpr std::size_t kNoCall = static_cast<std::size_t>(-1);

// While it lives, call number `which` (1 for the first) has the fault; for `which` 0, every
// call has.
class FailingCall {
 public:
  FailingCall(std::size_t which, Fault fault);
  ~FailingCall();
  FailingCall(const FailingCall&) = delete;
  FailingCall& operator=(const FailingCall&) = delete;

  // Whether there were that many calls.
  [[nodiscard]] bool Happened() const;

  // How many calls there were so far.
  [[nodiscard]] std::size_t Count() const;

  // How many bytes the calls before the first fault moved.
  [[nodiscard]] std::size_t Moved() const;
};

// While it lives, call number `which` of those that open, close, place, cut and look at a
// file fails with EIO. Closing fails after it has closed, as the system does it.
class FailingStep {
 public:
  explicit FailingStep(std::size_t which);
  ~FailingStep();
  FailingStep(const FailingStep&) = delete;
  FailingStep& operator=(const FailingStep&) = delete;

  // Whether there were that many.
  [[nodiscard]] bool Happened() const;
};

}  // namespace halyard::test
