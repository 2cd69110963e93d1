// Writers that are killed at any moment.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <random>

#include "tests/failures/numbered_records.h"

namespace halyard::test {
namespace {

constexpr int kKills = 200;
constexpr const char* kKillsVariable = "HALYARD_KILLS";  // for long runs
constexpr useconds_t kLongestLife = 3000;

int Kills() {
  const char* wanted = std::getenv(kKillsVariable);
  return wanted != nullptr ? std::atoi(wanted) : kKills;
}

// Writes until it is killed, and tells after each record that it was written.
[[noreturn]] void WriteForEver(const TempFile& place, int progress) {
  const auto definition = NumberedDefinition();
  const auto file = NewFile();
  if (!OpenForWrite(file, place.name()) || !WriteInfo(file, definition.get())) _exit(1);
  for (LONG i = 0; WriteNumbered(file, definition, i * 50, 50) == 50; ++i) {
    if (write(progress, "x", 1) != 1) break;
  }
  _exit(1);
}

// How many times fifty records the writer said to have written.
LONG ToldBy(int progress) {
  LONG told = 0;
  char byte = 0;
  while (read(progress, &byte, 1) == 1) ++told;
  return told;
}

TEST(KilledWriter, LeavesEveryRecordThatItHasWritten) {
  std::minstd_rand random(1);
  LONG most = 0;
  for (int i = 0; i < Kills(); ++i) {
    const TempFile place;
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t writer = fork();
    ASSERT_GE(writer, 0);
    if (writer == 0) WriteForEver(place, ends[1]);
    close(ends[1]);
    usleep(static_cast<useconds_t>(random() % kLongestLife));
    kill(writer, SIGKILL);
    int status = 0;
    ASSERT_EQ(waitpid(writer, &status, 0), writer);
    EXPECT_TRUE(WIFSIGNALED(status)) << "the writer ended by itself";
    const LONG told = ToldBy(ends[0]) * 50;
    close(ends[0]);

    const auto numbers = NumbersIn(place);
    EXPECT_GE(static_cast<LONG>(numbers.size()), told);
    for (std::size_t k = 0; k < numbers.size(); ++k) ASSERT_EQ(numbers[k], static_cast<LONG>(k));
    most = std::max(most, static_cast<LONG>(numbers.size()));
  }
  EXPECT_GT(most, 100) << "no writer lived long enough to write much";
}

}  // namespace
}  // namespace halyard::test
