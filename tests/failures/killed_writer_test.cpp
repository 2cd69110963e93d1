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

// What a writer writes: records without number, or few that take long enough to write for
// a kill to strike in the middle of one.
struct Load {
  LONG samples;
  LONG batch;  // records between two words of the writer
  LONG most_batches;
};
constexpr Load kSmallRecords{0, 50, 30};
constexpr Load kLargeRecords{1 << 17, 1, 8};  // of 1 MiB

// Every third writer writes large records.
const Load& LoadOf(int kill) { return kill % 3 == 2 ? kLargeRecords : kSmallRecords; }

int Kills() {
  const char* wanted = std::getenv(kKillsVariable);
  return wanted != nullptr ? std::atoi(wanted) : kKills;
}

// Writes until it is killed, and tells after each record that it was written.
[[noreturn]] void WriteForEver(const TempFile& place, const Load& load, int progress) {
  const auto definition = NumberedDefinition(load.samples);
  const auto file = NewFile();
  if (!OpenForWrite(file, place.name()) || !WriteInfo(file, definition.get())) _exit(1);
  for (LONG i = 0; WriteNumbered(file, definition, i * load.batch, load.batch) == load.batch; ++i) {
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
  const auto batches = static_cast<LONG>(random() % static_cast<unsigned>(LoadOf(kill).most_batches));
  return {kill % 2 == 0 ? 0 : 1 + batches, static_cast<useconds_t>(random() % kLongestLife)};
}

// Starts a writer, kills it at that moment, and answers how many records it told of.
LONG KillAWriter(const TempFile& place, const Load& load, const Moment& moment) {
  int ends[2];
  EXPECT_EQ(pipe(ends), 0);
  const pid_t writer = fork();
  EXPECT_GE(writer, 0);
  if (writer == 0) WriteForEver(place, load, ends[1]);
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
  return told * load.batch;
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

// What the writers left.
struct Legacy {
  std::size_t records = 0;
  std::size_t most = 0;  // of one writer
  int torn = 0;          // files that end with a part of a record
};

// Looks at what a writer left that told of so many records.
void LookAt(const TempFile& place, LONG told, Legacy& legacy) {
  const auto numbers = NumbersIn(place);
  EXPECT_GE(static_cast<LONG>(numbers.size()), told);
  EXPECT_EQ(numbers, FirstNumbers(static_cast<LONG>(numbers.size())));
  const Bytes contents = place.Contents();
  const WholeRecords whole = RecordsWithin(contents, contents.size());
  EXPECT_EQ(static_cast<LONG>(numbers.size()), whole.data);
#ifdef HALYARD_TOOL_PROGRAM
  EXPECT_EQ(NumbersRecovered(place), numbers);
#endif
  legacy.most = std::max(legacy.most, numbers.size());
  legacy.records += numbers.size();
  if (whole.tail != 0) ++legacy.torn;
}

TEST(KilledWriter, LeavesEveryRecordThatItHasWritten) {
  std::minstd_rand random(1);
  Legacy legacy;
  const int kills = Kills();
  for (int i = 0; i < kills && !HasFailure(); ++i) {
    const testing::ScopedTrace trace(__FILE__, __LINE__, "kill " + std::to_string(i));
    const TempFile place;
    LookAt(place, KillAWriter(place, LoadOf(i), RandomMoment(random, i)), legacy);
  }
  EXPECT_GT(legacy.most, 100u) << "no writer lived long enough to write much";
  std::cout << kills << " writers killed, " << legacy.records << " records read and recovered, "
            << legacy.torn << " files cut in the middle of one\n";
}

}  // namespace
}  // namespace halyard::test
