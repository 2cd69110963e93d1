#include "tests/support/memory.h"

#ifdef _WIN32
#include <windows.h>

// windows.h must come first.
#include <psapi.h>
#else
#include <gtest/gtest.h>

#include <fstream>
#include <string>
#endif

namespace halyard::test {
namespace {

constexpr std::size_t kBound = std::size_t{128} << 20;

#ifdef _WIN32

// The most memory, in bytes, that the process has had in use so far; it cannot be reset.
std::size_t PeakMemory() {
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PeakWorkingSetSize;
}
void ForgetPeak() {}

#else

// The most memory, in bytes, that the process has had in use since the peak was forgotten.
std::size_t PeakMemory() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    std::size_t kilobytes = 0;
    if (word == "VmHWM:" && status >> kilobytes) return kilobytes * 1024;
  }
  ADD_FAILURE() << "the system does not tell how much memory was in use";
  return 0;
}
void ForgetPeak() { std::ofstream("/proc/self/clear_refs") << '5'; }

#endif

}  // namespace

MemoryLimit::MemoryLimit() {
  ForgetPeak();
  start_ = PeakMemory();
}

bool MemoryLimit::Kept() const { return PeakMemory() - start_ < kBound; }

}  // namespace halyard::test
