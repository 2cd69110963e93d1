// Disks that are full: a limit for the size of files, and a small file system.
#include <gtest/gtest.h>
#include <sys/resource.h>

#include <csignal>

#include "halyard/stream/orm_file_buffering.h"
#include "tests/failures/numbered_records.h"
#include "tests/failures/small_disk.h"

namespace halyard::test {
namespace {

constexpr LONG kMostRecords = 12;

// A limit for the size of files, as a disk that is full in the middle of a record.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) {
    old_handler_ = std::signal(SIGXFSZ, SIG_IGN);
    EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &old_), 0);
    const rlimit limit{bytes, old_.rlim_max};
    EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  }
  ~FileSizeLimit() {
    setrlimit(RLIMIT_FSIZE, &old_);
    std::signal(SIGXFSZ, old_handler_);
  }

 private:
  rlimit old_{};
  void (*old_handler_)(int) = nullptr;
};

TEST(FullDisk, LeavesTheWholeRecords) {
  for (rlim_t room = 0; room < 400; room += 7) {
    const TempFile place;
    LONG written = 0;
    {
      const FileSizeLimit limit(room);
      const auto definition = NumberedDefinition();
      const auto file = NewFile();
      if (OpenForWrite(file, place.name()) && WriteInfo(file, definition.get()))
        written = WriteNumbered(file, definition, 0, kMostRecords);
    }
    EXPECT_EQ(NumbersIn(place), FirstNumbers(written)) << room << " bytes";
  }
}

constexpr LONG kEndless = 100000;       // records, more than the small disk has room for
constexpr LONG kSomeSamples = 1000;     // a record of two pages
constexpr LONG kBuffer = 10000;         // bytes, some records
constexpr std::size_t kFiller = 20000;  // bytes that are freed again

// Every record that was reported is there, and nothing of the refused one is, so that more
// follow when there is room again.
void FillAndGoOn(LONG samples) {
  auto filler = std::make_unique<TempFile>(Bytes(kFiller, 'x'));
  ASSERT_EQ(filler->Contents().size(), kFiller);
  const TempFile place;
  const auto definition = NumberedDefinition(samples);
  const auto file = NewFile();
  ASSERT_TRUE(OpenForWrite(file, place.name()));
  ASSERT_TRUE(WriteInfo(file, definition.get()));
  const LONG written = WriteNumbered(file, definition, 0, kEndless);
  EXPECT_GT(written, 0);
  EXPECT_LT(written, kEndless);
  EXPECT_EQ(RecordsOf(place.Contents()).size(), static_cast<std::size_t>(written) + 1);
  EXPECT_EQ(WriteNumbered(file, definition, written, 1), 0);
  filler.reset();
  EXPECT_EQ(WriteNumbered(file, definition, written, 1), 1);
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_EQ(NumbersIn(place), FirstNumbers(written + 1));
}

// Records that wait are reported beforehand; closing tells that some were lost, and those
// that are there are whole and the first ones.
void FillFromABuffer(LONG samples) {
  const TempFile place;
  const auto definition = NumberedDefinition(samples);
  const auto file = NewFile();
  ASSERT_EQ(file.As<IOrmFileBuffering>()->put_BufferSize(kBuffer), S_OK);
  ASSERT_TRUE(OpenForWrite(file, place.name()));
  ASSERT_TRUE(WriteInfo(file, definition.get()));
  const LONG written = WriteNumbered(file, definition, 0, kEndless);
  EXPECT_LT(written, kEndless);
  EXPECT_FALSE(Get(file.As<IOrmFileBuffering>(), &IOrmFileBuffering::Flush));
  EXPECT_EQ(WriteNumbered(file, definition, written, 1), 0) << "something is written behind a loss";
  EXPECT_EQ(file->Close(), E_FAIL);
  static_cast<void>(SetErrorInfo(0, nullptr));
  const auto numbers = NumbersIn(place);
  EXPECT_GT(numbers.size(), 0u);
  EXPECT_LE(static_cast<LONG>(numbers.size()), written);
  EXPECT_EQ(numbers, FirstNumbers(static_cast<LONG>(numbers.size())));
}

class SmallDisk : public testing::TestWithParam<LONG> {
 protected:
  // Runs the test on a disk that has room for some records only.
  static void On(void (*test)(LONG)) {
    const DiskOutcome outcome = OnSmallDisk([test] { test(GetParam()); });
    if (outcome == DiskOutcome::kNoDisk) GTEST_SKIP() << "the system gives this process no disk of its own";
    EXPECT_EQ(outcome, DiskOutcome::kPassed) << "what failed is told above";
  }
};

TEST_P(SmallDisk, HoldsWhatWasReportedAsWritten) { On(&FillAndGoOn); }

TEST_P(SmallDisk, HoldsTheFirstOfWhatWaited) { On(&FillFromABuffer); }

INSTANTIATE_TEST_SUITE_P(Records, SmallDisk, testing::Values(0, kSomeSamples));

}  // namespace
}  // namespace halyard::test
