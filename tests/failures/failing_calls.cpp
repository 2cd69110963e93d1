#include "tests/failures/failing_calls.h"

#include <sys/stat.h>
#include <sys/types.h>
#include <sys/uio.h>

#include <algorithm>
#include <cerrno>
#include <optional>

namespace halyard::test {
namespace {

struct Plan {
  std::size_t which;
  Fault fault;
};

std::optional<Plan> g_plan;
std::size_t g_calls = 0;
std::size_t g_moved = 0;
bool g_happened = false;

std::size_t g_failing_step = 0;  // 0: none is counted
std::size_t g_steps = 0;

// Counts a step; whether it is the one that fails.
bool StepFails() {
  if (g_failing_step == 0 || ++g_steps != g_failing_step) return false;
  errno = EIO;
  return true;
}

// The fault of the call that is made now, if it has one.
std::optional<Fault> NextFault() {
  if (!g_plan) return std::nullopt;
  ++g_calls;
  if (g_plan->fault == Fault::kDeviceGone && g_happened) return Fault::kDeviceGone;
  if (g_plan->fault == Fault::kHalfThenFull && g_happened) return Fault::kNoSpace;
  if (g_plan->fault == Fault::kHalfThenOnce && g_calls == g_plan->which + 1) return Fault::kNoSpace;
  if (g_plan->which != 0 && g_plan->which != g_calls) return std::nullopt;
  g_happened = true;
  return g_plan->fault;
}

int ErrorOf(Fault fault) {
  switch (fault) {
    case Fault::kNoSpace:
      return ENOSPC;
    case Fault::kDevice:
    case Fault::kDeviceGone:
      return EIO;
    default:
      return EINTR;
  }
}

// Makes the call, or not, as the plan says.
template <class Call>
ssize_t Move(std::size_t size, Call&& call) {
  const std::optional<Fault> fault = NextFault();
  if (!fault) {
    const ssize_t moved = call(size);
    if (moved > 0 && !g_happened) g_moved += static_cast<std::size_t>(moved);
    return moved;
  }
  if (*fault == Fault::kHalf || *fault == Fault::kHalfThenFull || *fault == Fault::kHalfThenOnce)
    return call(std::max<std::size_t>(size / 2, std::min<std::size_t>(size, 1)));
  errno = ErrorOf(*fault);
  return -1;
}

}  // namespace

FailingCall::FailingCall(std::size_t which, Fault fault) {
  g_calls = 0;
  g_moved = 0;
  g_happened = false;
  g_plan = Plan{which, fault};
}

FailingCall::~FailingCall() { g_plan.reset(); }

bool FailingCall::Happened() const { return g_happened; }

std::size_t FailingCall::Count() const { return g_calls; }

std::size_t FailingCall::Moved() const { return g_moved; }

FailingStep::FailingStep(std::size_t which) {
  g_steps = 0;
  g_failing_step = which;
}

FailingStep::~FailingStep() { g_failing_step = 0; }

bool FailingStep::Happened() const { return g_steps >= g_failing_step; }

}  // namespace halyard::test

extern "C" {

ssize_t __real_read(int file, void* bytes, std::size_t size);
ssize_t __real_write(int file, const void* bytes, std::size_t size);
ssize_t __real_writev(int file, const iovec* parts, int count);

ssize_t __wrap_read(int file, void* bytes, std::size_t size) {
  return halyard::test::Move(size, [&](std::size_t part) { return __real_read(file, bytes, part); });
}

ssize_t __wrap_write(int file, const void* bytes, std::size_t size) {
  return halyard::test::Move(size, [&](std::size_t part) { return __real_write(file, bytes, part); });
}

// Two parts at most, of which fewer bytes are a shorter part.
ssize_t __wrap_writev(int file, const iovec* parts, int count) {
  iovec shorter[2] = {parts[0], count > 1 ? parts[1] : iovec{}};
  return halyard::test::Move(shorter[0].iov_len + shorter[1].iov_len, [&](std::size_t size) {
    shorter[0].iov_len = std::min(shorter[0].iov_len, size);
    shorter[1].iov_len = std::min(shorter[1].iov_len, size - shorter[0].iov_len);
    return __real_writev(file, shorter, 2);
  });
}

int __real_open(const char* path, int flags, ...);
int __real_close(int file);
off_t __real_lseek(int file, off_t offset, int whence);
int __real_fstat(int file, struct stat* status);
int __real_ftruncate(int file, off_t size);

// The third argument counts only where a file may be made; it is harmless elsewhere.
int __wrap_open(const char* path, int flags, mode_t mode) {
  return halyard::test::StepFails() ? -1 : __real_open(path, flags, mode);
}

int __wrap_close(int file) {
  const int closed = __real_close(file);
  return halyard::test::StepFails() ? -1 : closed;
}

off_t __wrap_lseek(int file, off_t offset, int whence) {
  return halyard::test::StepFails() ? -1 : __real_lseek(file, offset, whence);
}

int __wrap_fstat(int file, struct stat* status) {
  return halyard::test::StepFails() ? -1 : __real_fstat(file, status);
}

int __wrap_ftruncate(int file, off_t size) {
  return halyard::test::StepFails() ? -1 : __real_ftruncate(file, size);
}

}  // extern "C"
