#include "tests/support/memory.h"

#ifdef _WIN32
#include <windows.h>

// windows.h must come first.
#include <psapi.h>
#else
#include <sys/resource.h>
#endif

namespace halyard::test {
namespace {

constexpr std::size_t kBound = std::size_t{128} << 20;

// The most memory, in bytes, that the process has had in use so far.
std::size_t PeakMemory() {
#ifdef _WIN32
  PROCESS_MEMORY_COUNTERS counters{};
  K32GetProcessMemoryInfo(GetCurrentProcess(), &counters, sizeof counters);
  return counters.PeakWorkingSetSize;
#else
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
#endif
}

}  // namespace

MemoryLimit::MemoryLimit() : start_(PeakMemory()) {}

bool MemoryLimit::Kept() const { return PeakMemory() - start_ < kBound; }

}  // namespace halyard::test
