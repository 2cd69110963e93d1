// Random programs over all interfaces when memory runs out.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "tests/differential/program.h"
#include "tests/differential/world.h"
#include "tests/failures/failing_memory.h"
#include "tests/failures/program_files.h"
#include "tests/support/live_objects.h"
#include "tests/support/temp_file.h"

namespace halyard::test {
namespace {

constexpr const char* kProgramsVariable = "HALYARD_PROGRAMS";  // for long runs
constexpr std::uint64_t kPrograms = 100;
constexpr std::size_t kTriesOfShortRuns = 12;

// What the calls answer that fail for lack of memory.
constexpr const char* kOutOfMemory = "8007000E";
// What a conversion answers for an object whose value it cannot get, whatever the reason.
constexpr const char* kTypeMismatch = "80020005";
constexpr const char* kObject = " object: ";
// The calls that answer false where memory is lacking, as for any other file that cannot be opened.
constexpr const char* kOpening = "OpenFor";
constexpr const char* kThrownText = "DEADDEAD";

// The current folder is one of its own while it lives, because programs write files.
class OwnFolder {
 public:
  OwnFolder() {
    std::filesystem::create_directory(place_.path());
    std::filesystem::current_path(place_.path());
  }
  ~OwnFolder() {
    std::filesystem::current_path(old_);
    std::filesystem::remove_all(place_.path());
  }
  OwnFolder(const OwnFolder&) = delete;
  OwnFolder& operator=(const OwnFolder&) = delete;

 private:
  const TempFile place_;
  const std::filesystem::path old_ = std::filesystem::current_path();
};

// A program that ran with one allocation failing, or none.
struct ProgramRun {
  std::string text;
  std::size_t allocations = 0;
  bool happened = false;
};

ProgramRun RunWith(std::uint64_t seed, std::size_t failing) {
  ProgramRun run;
  const FailingAllocation allocation(failing, &differential::g_calling);
  run.text = differential::Run(seed);
  run.allocations = allocation.Count();
  run.happened = allocation.Happened();
  return run;
}

bool TellsOfIt(const std::string& line) {
  const auto has = [&](const char* text) { return line.find(text) != std::string::npos; };
  return has(kOutOfMemory) || line.rfind(kOpening, 0) == 0 || (has(kObject) && has(kTypeMismatch));
}

// Up to the call that lacked memory a program answers as ever; that call says so, if it
// cannot do without.
void ExpectToldOf(bool happened, const Lines& expected, const Lines& lines) {
  const auto [wanted, line] = std::mismatch(expected.begin(), expected.end(), lines.begin(), lines.end());
  const auto number = static_cast<std::size_t>(line - lines.begin());
  if (line != lines.end()) {
    EXPECT_TRUE(happened && TellsOfIt(*line)) << *line;
  } else {
    EXPECT_TRUE(wanted == expected.end()) << "nothing is told instead of " << *wanted;
  }
  const auto files = FilesOf(lines);
  ExpectWhatWasReported(files);
  ExpectSameRecords(FilesOf(expected), files, number);
}

// Runs a program with that allocation failing. False where there is none of that number.
bool EndsWell(std::uint64_t seed, std::size_t failing, const Lines& expected) {
  const std::string place = "program " + std::to_string(seed) + ", allocation " + std::to_string(failing);
  const testing::ScopedTrace trace(__FILE__, __LINE__, place);
  static_cast<void>(SetErrorInfo(0, nullptr));
  const std::ptrdiff_t blocks = LiveBlocks();
  bool happened = false;
  {
    const ProgramRun run = RunWith(seed, failing);
    ExpectToldOf(run.happened, expected, LinesOf(run.text));
    EXPECT_EQ(run.text.find(kThrownText), std::string::npos) << place;
    happened = run.happened;
  }
  static_cast<void>(SetErrorInfo(0, nullptr));
  EXPECT_TRUE(NoObjectsAreAlive()) << place;
  const bool failed = testing::Test::HasFailure();  // messages take memory too
  EXPECT_TRUE(failed || LiveBlocks() == blocks) << place << " left memory behind";
  return happened && !failed;
}

// The short form strikes a few allocations of each program, the long form every one.
TEST(RandomPrograms, EndWellWhicheverAllocationFails) {
  const OwnFolder folder;
  const char* wanted = std::getenv(kProgramsVariable);
  const std::uint64_t programs = wanted != nullptr ? std::strtoull(wanted, nullptr, 10) : kPrograms;
  std::size_t failed = 0;
  for (std::uint64_t seed = 1; seed <= programs && !HasFailure(); ++seed) {
    const ProgramRun whole = RunWith(seed, kNoAllocation);
    const std::size_t step = wanted != nullptr ? 1 : whole.allocations / kTriesOfShortRuns + 1;
    const Lines expected = LinesOf(whole.text);
    for (std::size_t i = 1 + seed % step; EndsWell(seed, i, expected); i += step) ++failed;
  }
  EXPECT_GT(failed, programs);
  std::cout << failed << " allocations of " << programs << " programs failed\n";
}

}  // namespace
}  // namespace halyard::test
