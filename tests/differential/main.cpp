// halyard_differential [FIRST_SEED [COUNT]]: makes random programs over the public
// interfaces, runs them and prints what every call answered. Built for both platforms;
// the same seeds must print the same text (run.sh compares).
#include <cstdio>
#include <cstdlib>

#include "tests/differential/program.h"
#include "tests/support/com_apartment.h"

namespace {

constexpr std::uint64_t kDefaultCount = 3000;

}  // namespace

int main(int argc, char** argv) {
  using namespace halyard;
  const std::uint64_t first = argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1;
  const std::uint64_t count = argc > 2 ? std::strtoull(argv[2], nullptr, 10) : kDefaultCount;
  const test::ComApartment apartment;
  for (std::uint64_t seed = first; seed < first + count; ++seed) {
    const std::string text = differential::Run(seed);
    std::fwrite(text.data(), 1, text.size(), stdout);
  }
  return 0;
}
