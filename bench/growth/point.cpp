#include "growth/point.h"

#include <malloc.h>

#include <algorithm>
#include <cstdio>

#include "support/clock.h"

namespace bench {
namespace {

// Runs are repeated until they have taken this long in all.
constexpr double kEnoughSeconds = 0.2;

// A timed stretch is so long at least, or the clock itself would be measured.
constexpr double kShortestStretch = 1e-4;

// So many units are held at least while memory is counted: the heap keeps a few freed
// blocks of every size, which would hide what one small thing takes.
constexpr std::int64_t kUnitsHeld = 4000;

using Work = std::function<std::any()>;

// The bytes of the heap that are in use, with those of large blocks.
double BytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return static_cast<double>(info.uordblks + info.hblkhd);
}

// The bytes that one unit's result takes.
double BytesOfAUnit(std::int64_t units, const Work& work) {
  const auto copies = static_cast<std::size_t>(std::max<std::int64_t>(1, kUnitsHeld / units));
  std::vector<std::any> held(copies);
  work();  // what only the first run makes is not a unit's
  const double before = BytesInUse();
  for (std::any& one : held) one = work();
  return (BytesInUse() - before) / static_cast<double>(units) / static_cast<double>(copies);
}

// The seconds that so many runs take.
double SecondsOf(std::int64_t runs, const Work& work) {
  const double start = WorkedSeconds();
  for (std::int64_t i = 0; i < runs; ++i) work();
  return WorkedSeconds() - start;
}

// The seconds that one run takes, the fastest of several stretches.
double FastestSeconds(const Work& work) {
  std::int64_t runs = 1;
  double seconds = SecondsOf(runs, work);
  for (; seconds < kShortestStretch; seconds = SecondsOf(runs, work)) runs *= 2;
  double fastest = seconds;
  for (double all = seconds; all < kEnoughSeconds; all += seconds) {
    seconds = SecondsOf(runs, work);
    fastest = std::min(fastest, seconds);
  }
  return fastest / static_cast<double>(runs);
}

}  // namespace

void Curve::Add(const char* task, std::int64_t size, std::int64_t units, const Work& work) {
  const double bytes = BytesOfAUnit(units, work);
  const double nanoseconds = FastestSeconds(work) * kNanosecondsInASecond / static_cast<double>(units);
  std::fprintf(stderr, "%s, %s, %lld: %.1f ns, %.1f bytes\n", axis_.c_str(), task,
               static_cast<long long>(size), nanoseconds, bytes);
  points_.push_back({axis_, task, size, nanoseconds, bytes});
}

}  // namespace bench
