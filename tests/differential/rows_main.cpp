// halyard_rows_differential FIRST_SEED COUNT: runs random programs twice, with elements of
// arrays packed into rows and with an object for each, and compares what they print. It
// looks inside the library, to switch between the two.
#include <cstdio>
#include <cstdlib>

#include "tests/differential/program.h"
#include "values/arrays/row_slab.h"

int main(int argc, char** argv) {
  using namespace halyard;
  if (argc != 3) return 2;
  const std::uint64_t first = std::strtoull(argv[1], nullptr, 10);
  const std::uint64_t count = std::strtoull(argv[2], nullptr, 10);
  std::uint64_t failed = 0;
  for (std::uint64_t seed = first; seed < first + count; ++seed) {
    RowSlab::Allow(false);
    const std::string plain = differential::Run(seed);
    RowSlab::Allow(true);
    if (differential::Run(seed) == plain) continue;
    std::printf("program %llu prints something else with rows\n", static_cast<unsigned long long>(seed));
    ++failed;
  }
  std::printf("%llu passed, %llu failed\n", static_cast<unsigned long long>(count - failed),
              static_cast<unsigned long long>(failed));
  return failed == 0 && count != 0 ? 0 : 1;
}
