// Files with a buffer whose system calls fail, one after another.
#include <gtest/gtest.h>

#include "halyard/stream/orm_file_buffering.h"
#include "tests/failures/failing_calls.h"
#include "tests/failures/numbered_records.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

constexpr LONG kRecords = 12;
constexpr LONG kBuffer = 200;  // bytes, some records

// A buffered file that was written with one call failing.
struct BufferedWriting {
  bool happened = false;
  LONG written = 0;      // records that were reported as written or waiting
  bool is_told = false;  // whether a flush and the end said that records were lost
};

BufferedWriting WriteBuffered(const TempFile& place, std::size_t which, Fault fault) {
  const auto definition = NumberedDefinition();
  const auto file = NewFile();
  const auto buffering = file.As<IOrmFileBuffering>();
  EXPECT_EQ(buffering->put_BufferSize(kBuffer), S_OK);
  BufferedWriting result;
  const FailingCall failing(which, fault);
  if (OpenForWrite(file, place.name()) && WriteInfo(file, definition.get()))
    result.written = WriteNumbered(file, definition, 0, kRecords);
  const bool is_flushed = Get(buffering, &IOrmFileBuffering::Flush) != VARIANT_FALSE;
  const HRESULT closed = file->Close();
  static_cast<void>(SetErrorInfo(0, nullptr));
  EXPECT_EQ(StatusText(closed), StatusText(is_flushed ? S_OK : E_FAIL)) << "call " << which;
  result.is_told = !is_flushed;
  result.happened = failing.Happened();
  return result;
}

class EachBufferedWrite : public testing::TestWithParam<Fault> {};

// What is there are the first records, and all of them where nothing else was told.
TEST_P(EachBufferedWrite, IsThereOrTold) {
  bool was_lost = false;
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    const TempFile place;
    const BufferedWriting writing = WriteBuffered(place, which, GetParam());
    happened = writing.happened;
    const auto numbers = NumbersIn(place);
    const auto there = static_cast<LONG>(numbers.size());
    EXPECT_EQ(numbers, FirstNumbers(there)) << "call " << which;
    EXPECT_LE(there, writing.written) << "call " << which;
    EXPECT_TRUE(writing.is_told || there == writing.written) << "call " << which;
    EXPECT_TRUE(happened || (there == kRecords && !writing.is_told));
    was_lost = was_lost || there < writing.written;
  }
  EXPECT_TRUE(was_lost) << "no fault struck what waited";
}

INSTANTIATE_TEST_SUITE_P(Faults, EachBufferedWrite,
                         testing::Values(Fault::kNoSpace, Fault::kDevice, Fault::kDeviceGone,
                                         Fault::kHalfThenFull, Fault::kHalfThenOnce));

class EachBufferedWriteIsHeldUp : public testing::TestWithParam<Fault> {};

TEST_P(EachBufferedWriteIsHeldUp, EveryRecordIsWritten) {
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    const TempFile place;
    const BufferedWriting writing = WriteBuffered(place, which, GetParam());
    happened = writing.happened;
    EXPECT_FALSE(writing.is_told) << "call " << which;
    EXPECT_EQ(NumbersIn(place), FirstNumbers(kRecords)) << "call " << which;
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, EachBufferedWriteIsHeldUp,
                         testing::Values(Fault::kInterrupted, Fault::kHalf));

}  // namespace
}  // namespace halyard::test
