// Files that cannot be opened, looked at, placed, cut or closed, one step after another.
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <optional>

#include "tests/failures/failing_calls.h"
#include "tests/failures/numbered_records.h"

namespace halyard::test {
namespace {

constexpr LONG kRecords = 5;

std::ptrdiff_t OpenDescriptors() {
  const std::filesystem::directory_iterator open("/proc/self/fd");
  return std::distance(begin(open), end(open));
}

// Opens, writes and closes with one step failing, and maybe one call that writes.
struct SteppedWriting {
  bool happened = false;
  bool is_open = false;
  std::vector<LONG> written;
};

SteppedWriting WriteWithStep(const TempFile& place, std::size_t which, std::optional<std::size_t> half) {
  const auto definition = NumberedDefinition();
  const auto file = NewFile();
  SteppedWriting result;
  std::optional<FailingCall> failing;
  if (half) failing.emplace(*half, Fault::kHalfThenOnce);
  const FailingStep step(which);
  result.is_open = OpenForWrite(file, place.name());
  if (result.is_open && WriteInfo(file, definition.get())) {
    for (LONG i = 0; i < kRecords; ++i) {
      if (WriteNumbered(file, definition, i, 1) == 1) result.written.push_back(i);
    }
  }
  EXPECT_EQ(file->Close(), S_OK);
  result.happened = step.Happened();
  return result;
}

// A file that opens is written as ever, and one that does not is closed again.
TEST(EachStepFails, WhatWasReportedAsWrittenIsThere) {
  const std::ptrdiff_t descriptors = OpenDescriptors();
  int refused = 0;
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    const TempFile place;
    const SteppedWriting writing = WriteWithStep(place, which, std::nullopt);
    happened = writing.happened;
    refused += writing.is_open ? 0 : 1;
    EXPECT_EQ(writing.written, FirstNumbers(writing.is_open ? kRecords : 0)) << "step " << which;
    EXPECT_EQ(NumbersIn(place), writing.written) << "step " << which;
    EXPECT_EQ(OpenDescriptors(), descriptors) << "step " << which;
  }
  EXPECT_GT(refused, 1);
}

// Where a refused record cannot be taken back, those before it are there all the same.
TEST(EachStepFails, RecordsBeforeARefusedOneAreThere) {
  constexpr std::size_t kThirdRecord = 6;  // behind two parts of the header and the definition
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    const TempFile place;
    const SteppedWriting writing = WriteWithStep(place, which, kThirdRecord);
    happened = writing.happened;
    if (!writing.is_open) continue;
    EXPECT_EQ(writing.written, (std::vector<LONG>{0, 1, 3, 4})) << "step " << which;
    const Bytes contents = place.Contents();
    EXPECT_GE(RecordsWithin(contents, contents.size()).data, 2) << "step " << which;
    if (!happened) {
      EXPECT_EQ(NumbersIn(place), writing.written);
    }
  }
}

TEST(EachStepFails, WhatIsReadIsWhole) {
  const TempFile place;
  EXPECT_EQ(WriteWithStep(place, 0, std::nullopt).written.size(), static_cast<std::size_t>(kRecords));
  const std::ptrdiff_t descriptors = OpenDescriptors();
  int refused = 0;
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    {
      const auto file = NewFile();
      const FailingStep step(which);
      const bool is_open = OpenForRead(file, place.name());
      if (is_open) {
        EXPECT_EQ(ReadNumbered(file), FirstNumbers(kRecords)) << "step " << which;
      }
      refused += is_open ? 0 : 1;
      EXPECT_EQ(file->Close(), S_OK);
      happened = step.Happened();
    }
    EXPECT_EQ(OpenDescriptors(), descriptors) << "step " << which;
  }
  EXPECT_GT(refused, 1);
}

}  // namespace
}  // namespace halyard::test
