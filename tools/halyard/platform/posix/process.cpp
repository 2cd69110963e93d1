// The process on POSIX systems: signals, arguments, the terminal.
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include "halyard/platform/messages.h"
#include "halyard/platform/narrow_text.h"
#include "tools/halyard/platform/system.h"

namespace halyard::tool {
namespace {

constexpr std::array<int, 3> kInterrupts = {SIGINT, SIGTERM, SIGHUP};

// The file to remove, in a form that a signal handler may look at: it is changed only
// while the signals are blocked.
char g_unfinished[4096];

extern "C" void EndInterrupted(int signal) {
  if (g_unfinished[0] != '\0') unlink(g_unfinished);
  std::signal(signal, SIG_DFL);
  raise(signal);
}

sigset_t Interrupts() noexcept {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : kInterrupts) sigaddset(&set, signal);
  return set;
}

}  // namespace

void PrepareProcess() {
  // Texts in files are bytes, and the program decides what they mean: in Latin-1 each
  // byte is the character of the same number.
  SetNarrowEncoding(NarrowEncoding::kLatin1);
  // What the library would tell a person, this program tells with file and offset.
  SetMessageHandler([](const char*, const char*) {});
  std::signal(SIGPIPE, SIG_IGN);
  // A file that has reached its largest size is an error of the write.
  std::signal(SIGXFSZ, SIG_IGN);
}

std::vector<std::string> Arguments(int count, char** values) {
  return {values + (count > 0 ? 1 : 0), values + count};
}

bool IsTerminal(int descriptor) noexcept { return isatty(descriptor) == 1; }

bool ShowsColours(int descriptor) noexcept {
  const char* terminal = std::getenv("TERM");
  return IsTerminal(descriptor) && terminal != nullptr && std::string_view(terminal) != "dumb";
}

void RemoveOnInterrupt(const std::string& name, int) noexcept {
  const sigset_t interrupts = Interrupts();
  sigset_t before;
  sigprocmask(SIG_BLOCK, &interrupts, &before);
  const bool fits = name.size() < sizeof g_unfinished;
  std::memcpy(g_unfinished, fits ? name.c_str() : "", fits ? name.size() + 1 : 1);
  for (const int signal : kInterrupts) {
    // What the caller of the program ignores (nohup) stays ignored.
    if (std::signal(signal, SIG_IGN) != SIG_IGN) std::signal(signal, EndInterrupted);
  }
  sigprocmask(SIG_SETMASK, &before, nullptr);
}

}  // namespace halyard::tool
