#include "tests/failures/crash.h"

#include <execinfo.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>

#include "tests/failures/library_code.h"

namespace halyard::test {
namespace {

constexpr int kFrames = 64;
constexpr int kSignals[] = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT};
constexpr std::size_t kStackBytes = 1 << 17;

alignas(16) char g_stack[kStackBytes];

// The first code of the program that a crash met is at fault. A process is aborted by the
// run-time library, which does so for whoever let an exception go where none may.
bool IsLibraryFault(int signal, void* const* begin, void* const* end) {
  if (signal == SIGABRT) return std::any_of(begin, end, IsLibraryCode);
  void* const* first = std::find_if(begin, end, IsProgramCode);
  return first != end && IsLibraryCode(*first);
}

void End(int signal) {
  void* frames[kFrames];
  void* const* end = frames + backtrace(frames, kFrames);
  const bool is_fault = signal != SIGALRM && IsLibraryFault(signal, frames + 1, end);
  if (is_fault) backtrace_symbols_fd(frames, static_cast<int>(end - frames), STDERR_FILENO);
  _exit(static_cast<int>(is_fault ? Ending::kLibraryFault : Ending::kOwnFault));
}

}  // namespace

void WatchForCrashes() {
  void* frame = nullptr;
  backtrace(&frame, 1);  // takes memory when it is first called
  const stack_t stack{g_stack, 0, kStackBytes};
  sigaltstack(&stack, nullptr);
  struct sigaction action {};
  action.sa_handler = End;
  action.sa_flags = SA_ONSTACK;
  for (const int signal : kSignals) sigaction(signal, &action, nullptr);
  sigaction(SIGALRM, &action, nullptr);
}

void LimitTime(unsigned seconds) { alarm(seconds); }

}  // namespace halyard::test
