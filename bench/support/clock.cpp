#include "support/clock.h"

#include <ctime>

#include "support/demand.h"

namespace bench {

double WorkedSeconds() {
  timespec now;
  Demand(clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now) == 0, "there is no clock");
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / kNanosecondsInASecond;
}

}  // namespace bench
