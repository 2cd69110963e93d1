// The tests of the conformance suite when memory runs out inside the library.
//
// What a test expects does not come true then, and is not looked at. The library must not
// crash, let no exception go, and leave no object behind. Each test runs in a process of its
// own, and goes on in a new one where it crashed in its own code.
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "halyard/platform/automation.h"
#include "halyard/platform/messages.h"
#include "tests/failures/crash.h"
#include "tests/failures/failing_memory.h"
#include "tests/failures/library_code.h"
#include "tests/support/live_objects.h"

namespace halyard::test {
namespace {

constexpr const char* kStrikesVariable = "HALYARD_STRIKES";  // for long runs
constexpr std::size_t kStrikes = 2;                          // for each test
constexpr std::size_t kMostOfShortRuns = 2000;               // allocations of a test
constexpr unsigned kMostSeconds = 60;

// What a process tells about the test that it runs.
struct Progress {
  std::size_t allocations;  // in memory enough
  std::size_t which;        // the allocation that fails now
  std::size_t happened;     // how many have failed
};

// Objects that hold themselves are taken apart by the test that made them, if it comes to
// that: they may be left behind.
constexpr const char* kKnots = "Knots.";

// Lets an allocation fail from the start of a test to its end.
class Strike : public testing::EmptyTestEventListener {
 public:
  std::size_t which = kNoAllocation;
  std::size_t count = 0;
  bool happened = false;

 private:
  void OnTestStart(const testing::TestInfo&) override { failing_.emplace(which, IsLibraryCode); }
  void OnTestEnd(const testing::TestInfo&) override {
    count = failing_->Count();
    happened = failing_->Happened();
    failing_.reset();
  }

  std::optional<FailingAllocation> failing_;
};

// From one allocation that fails to the next. The short form strikes a test but once that
// makes very many.
std::size_t StepFor(std::size_t allocations) {
  if (const char* wanted = std::getenv(kStrikesVariable))
    return allocations / std::max<std::size_t>(std::strtoull(wanted, nullptr, 10), 1) + 1;
  return allocations > kMostOfShortRuns ? allocations : allocations / kStrikes + 1;
}

// Runs the chosen test once; what it expects is not looked at.
void RunOnce(Strike& strike, std::size_t which) {
  strike.which = which;
  LimitTime(kMostSeconds);
  [[maybe_unused]] const int failures = RUN_ALL_TESTS();
  static_cast<void>(SetErrorInfo(0, nullptr));
}

// Runs a test with one allocation after another failing, from where `progress` is.
[[noreturn]] void RunStruck(const std::string& test, Strike& strike, Progress& progress) {
  static_cast<void>(std::freopen("/dev/null", "w", stdout));
  SetMessageHandler([](const char*, const char*) {});
  WatchForCrashes();
  testing::GTEST_FLAG(filter) = test;
  if (progress.which == 0) {
    RunOnce(strike, kNoAllocation);
    progress.allocations = strike.count;
    progress.which = 1;
  }
  for (; progress.which <= progress.allocations; progress.which += StepFor(progress.allocations)) {
    RunOnce(strike, progress.which);
    if (strike.happened) ++progress.happened;
    if (!NoObjectsAreAlive() && test.rfind(kKnots, 0) != 0) _exit(static_cast<int>(Ending::kObjectsLeft));
  }
  _exit(static_cast<int>(Ending::kDone));
}

// What became of all tests.
struct Tally {
  std::size_t tests = 0;
  std::size_t happened = 0;
  std::size_t own_faults = 0;
  std::size_t failures = 0;
};

// Runs a test in as many processes as it takes.
void RunTest(const std::string& test, Strike& strike, Progress& progress, Tally& tally) {
  progress = {};
  ++tally.tests;
  for (bool is_done = false; !is_done;) {
    std::cout.flush();  // or each process prints it
    const pid_t process = fork();
    if (process == 0) RunStruck(test, strike, progress);
    int status = 0;
    const bool ended = waitpid(process, &status, 0) == process && WIFEXITED(status);
    const auto ending = ended ? static_cast<Ending>(WEXITSTATUS(status)) : Ending::kLibraryFault;
    is_done = ending == Ending::kDone || progress.which == 0;
    if (ending == Ending::kOwnFault) ++tally.own_faults;
    if (ending != Ending::kOwnFault && ending != Ending::kDone) {
      ++tally.failures;
      std::cout << test << ", allocation " << progress.which << " of " << progress.allocations << ": "
                << (ending == Ending::kObjectsLeft ? "objects were left behind" : "the library crashed")
                << "\n";
    }
    progress.which += StepFor(progress.allocations);
  }
  tally.happened += progress.happened;
}

std::vector<std::string> ChosenTests() {
  std::vector<std::string> tests;
  const auto& all = *testing::UnitTest::GetInstance();
  for (int i = 0; i < all.total_test_suite_count(); ++i) {
    const auto& suite = *all.GetTestSuite(i);
    for (int k = 0; k < suite.total_test_count(); ++k)
      tests.push_back(std::string(suite.name()) + "." + suite.GetTestInfo(k)->name());
  }
  return tests;
}

int RunAll() {
  auto& listeners = testing::UnitTest::GetInstance()->listeners();
  delete listeners.Release(listeners.default_result_printer());
  auto* strike = new Strike;
  listeners.Append(strike);  // which owns it
  void* shared = mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  if (shared == MAP_FAILED) return EXIT_FAILURE;
  Tally tally;
  for (const std::string& test : ChosenTests())
    RunTest(test, *strike, *static_cast<Progress*>(shared), tally);
  std::cout << tally.happened << " allocations failed in " << tally.tests << " tests, " << tally.own_faults
            << " times the test itself could not go on\n"
            << tally.happened - std::min(tally.failures, tally.happened) << " passed, " << tally.failures
            << " failed\n";
  return tally.failures == 0 && tally.happened > tally.tests / 2 ? EXIT_SUCCESS : EXIT_FAILURE;
}

}  // namespace
}  // namespace halyard::test

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  return halyard::test::RunAll();
}
