// What ends a process that crashes: a fault of the library's, or of a test that goes on with
// an object which was not made.
#pragma once

namespace halyard::test {

// What a process answers at its end that watches for crashes.
enum class Ending { kDone = 10, kObjectsLeft, kOwnFault, kLibraryFault };

// From now on a crash ends this process with kOwnFault or kLibraryFault; for the latter the
// calls that led there are printed. A process that takes longer than `seconds` until the
// next call of LimitTime ends with kOwnFault: only a test repeats calls that fail.
void WatchForCrashes();
void LimitTime(unsigned seconds);

}  // namespace halyard::test
