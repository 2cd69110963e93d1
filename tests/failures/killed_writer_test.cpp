// Writers that are killed at any moment, and the tool that saves what they leave.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

#include "tests/failures/numbered_records.h"

namespace halyard::test {
namespace {

constexpr int kKills = 60;
constexpr const char* kKillsVariable = "HALYARD_KILLS";  // for long runs
constexpr useconds_t kLongestLife = 3000;
constexpr LONG kMostBatches = 30;
constexpr LONG kBatch = 50;  // records between two words of a writer

int Kills() {
  const char* wanted = std::getenv(kKillsVariable);
  return wanted != nullptr ? std::atoi(wanted) : kKills;
}

// Writes until it is killed, and tells after each record that it was written.
[[noreturn]] void WriteForEver(const TempFile& place, int progress) {
  const auto definition = NumberedDefinition();
  const auto file = NewFile();
  if (!OpenForWrite(file, place.name()) || !WriteInfo(file, definition.get())) _exit(1);
  for (LONG i = 0; WriteNumbered(file, definition, i * kBatch, kBatch) == kBatch; ++i) {
    if (write(progress, "x", 1) != 1) break;
  }
  _exit(1);
}

// How many batches the writer said to have written.
LONG ToldBy(int progress) {
  LONG told = 0;
  char byte = 0;
  while (read(progress, &byte, 1) == 1) ++told;
  return told;
}

// When a writer is killed: after so many batches, and then a while.
struct Moment {
  LONG batches;
  useconds_t while_longer;
};

// Every other writer lives a while from its start, and may not come to write anything.
Moment RandomMoment(std::minstd_rand& random, int kill) {
  const auto batches = static_cast<LONG>(random() % kMostBatches);
  return {kill % 2 == 0 ? 0 : 1 + batches, static_cast<useconds_t>(random() % kLongestLife)};
}

// Starts a writer, kills it at that moment, and answers how many records it told of.
LONG KillAWriter(const TempFile& place, const Moment& moment) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t writer = fork();
  EXPECT_GE(writer, 0);
  if (writer == 0) WriteForEver(place, ends[1]);
  close(ends[1]);
  LONG told = 0;
  char word = 0;
  while (told < moment.batches && read(ends[0], &word, 1) == 1) ++told;
  usleep(moment.while_longer);
  kill(writer, SIGKILL);
  int status = 0;
  EXPECT_EQ(waitpid(writer, &status, 0), writer);
  EXPECT_TRUE(WIFSIGNALED(status)) << "the writer ended by itself";
  told += ToldBy(ends[0]);
  close(ends[0]);
  return told * kBatch;
}

#ifdef HALYARD_TOOL_PROGRAM

constexpr int kFine = 0;
constexpr int kFaults = 1;  // anything was lost, or nothing could be saved

// What the program `halyard recover` saves of the file; none where it saves nothing.
std::vector<LONG> NumbersRecovered(const TempFile& place) {
  if (!place.Exists()) return {};  // killed before it made the file
  const TempFile saved;
  const std::string line = "'" HALYARD_TOOL_PROGRAM "' recover '" + place.path().string() + "' -o '" +
                           saved.path().string() + "' >/dev/null 2>&1";
  const int status = std::system(line.c_str());
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_TRUE(WEXITSTATUS(status) == kFine || WEXITSTATUS(status) == kFaults) << WEXITSTATUS(status);
  return NumbersIn(saved);
}

#endif

TEST(KilledWriter, LeavesEveryRecordThatItHasWritten) {
  std::minstd_rand random(1);
  std::size_t all = 0;
  std::size_t most = 0;
  const int kills = Kills();
  for (int i = 0; i < kills && !HasFatalFailure(); ++i) {
    const TempFile place;
    const LONG told = KillAWriter(place, RandomMoment(random, i));
    const auto numbers = NumbersIn(place);
    EXPECT_GE(static_cast<LONG>(numbers.size()), told);
    for (std::size_t k = 0; k < numbers.size(); ++k) ASSERT_EQ(numbers[k], static_cast<LONG>(k));
#ifdef HALYARD_TOOL_PROGRAM
    EXPECT_EQ(NumbersRecovered(place), numbers) << "recovered after kill " << i;
#endif
    most = std::max(most, numbers.size());
    all += numbers.size();
  }
  EXPECT_GT(most, 100u) << "no writer lived long enough to write much";
  std::cout << kills << " writers killed, " << all << " records read and recovered\n";
}

}  // namespace
}  // namespace halyard::test
