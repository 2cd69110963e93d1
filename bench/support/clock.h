// The clock of all measurements.
#pragma once

namespace bench {

inline constexpr double kNanosecondsInASecond = 1e9;

// Seconds that this thread has worked. Files lie in memory and nothing waits, so on an idle
// machine this is the time on the wall; on a shared one it leaves out the turns of others.
double WorkedSeconds();

}  // namespace bench
