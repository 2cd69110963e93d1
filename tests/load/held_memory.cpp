#include "tests/load/held_memory.h"

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace halyard::test {

std::size_t HeldMemory() {
  std::size_t whole = 0;
  std::size_t resident = 0;
  std::ifstream("/proc/self/statm") >> whole >> resident;
  return resident * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

std::size_t AllocatedMemory() {
  const struct mallinfo2 blocks = mallinfo2();
  return blocks.uordblks + blocks.hblkhd;
}

std::size_t OpenDescriptors() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return static_cast<std::size_t>(std::distance(begin(open), end(open)));
}

}  // namespace halyard::test
