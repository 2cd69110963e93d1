// Handles that are of no use, and streams that come in parts.
#include <gtest/gtest.h>

#include <thread>

#include "halyard/stream/orm_file_buffering.h"
#include "tests/failures/numbered_records.h"
#include "tests/support/composites.h"

namespace halyard::test {
namespace {

// Every call that writes or reads, on a file whose handle is of no use.
void ExpectNothingMoves(const Ptr<IOrmFile>& file) {
  const auto definition = NumberedDefinition();
  const auto record = NewValue(definition);
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Value(record.get()), S_OK);
  EXPECT_FALSE(WriteInfo(file, definition.get()));
  EXPECT_FALSE(WriteData(file, record.get()));
  EXPECT_FALSE(WriteUnit(file, unit.get()));
  EXPECT_FALSE(ReadUnit(file));
  EXPECT_FALSE(ReadInfo(file));
  Ptr<IValueBase> none;
  EXPECT_EQ(file->ReadData(none.Out()), E_POINTER);
  EXPECT_FALSE(none);
  // Nothing waits, so nothing was lost.
  EXPECT_TRUE(Get(file.As<IOrmFileBuffering>(), &IOrmFileBuffering::Flush));
}

// The same with a buffer: what waited is lost, and every later call says so.
void ExpectLossIsTold(const Ptr<IOrmFile>& file) {
  const auto buffering = file.As<IOrmFileBuffering>();
  const auto definition = NumberedDefinition();
  EXPECT_TRUE(WriteInfo(file, definition.get()));
  EXPECT_FALSE(Get(buffering, &IOrmFileBuffering::Flush));
  EXPECT_FALSE(WriteInfo(file, definition.get()));
  EXPECT_FALSE(Get(buffering, &IOrmFileBuffering::Flush));
  EXPECT_EQ(file->Close(), E_FAIL);
  EXPECT_EQ(file->Close(), S_OK);
  static_cast<void>(SetErrorInfo(0, nullptr));
}

// A descriptor that somebody closed.
LONG ClosedHandle() {
  const TempFile place;
  const LONG handle = OpenHandleForWrite(place.path());
  CloseHandleValue(handle);
  return handle;
}

// A pipe that nobody reads any more.
LONG BrokenPipe() {
  const Pipe pipe = OpenPipe();
  CloseHandleValue(pipe.read);
  return pipe.write;
}

class UselessHandles : public testing::TestWithParam<LONG (*)()> {};

TEST_P(UselessHandles, AreReportedByEveryCall) {
  for (const bool to_write : {true, false}) {
    const LONG handle = GetParam()();
    const auto file = NewFile();
    EXPECT_FALSE(to_write ? AttachForWrite(file, handle) : AttachForRead(file, handle));
    ExpectNothingMoves(file);
    EXPECT_EQ(file->Close(), S_OK);
  }
}

TEST_P(UselessHandles, LoseWhatWaited) {
  const LONG handle = GetParam()();
  const auto file = NewFile();
  ASSERT_EQ(file.As<IOrmFileBuffering>()->put_BufferSize(1 << 10), S_OK);
  EXPECT_TRUE(AttachForWrite(file, handle)) << "the header does not wait";
  ExpectLossIsTold(file);
}

INSTANTIATE_TEST_SUITE_P(Kinds, UselessHandles, testing::Values(&ClosedHandle, &BrokenPipe));

// A large record has no length beforehand in a pipe, and comes in many parts.
TEST(Pipes, CarryLargeRecords) {
  constexpr LONG kSamples = 300000;  // more than twice the first step of memory
  constexpr LONG kRecords = 2;
  const TempFile place;
  const auto definition = NumberedDefinition(kSamples);
  const auto file = NewFile();
  ASSERT_TRUE(OpenForWrite(file, place.name()));
  ASSERT_TRUE(WriteInfo(file, definition.get()));
  ASSERT_EQ(WriteNumbered(file, definition, 0, kRecords), kRecords);
  ASSERT_EQ(file->Close(), S_OK);
  const Bytes contents = place.Contents();
  const std::size_t parts[] = {contents.size(), contents.size() - 1, contents.size() / 4};
  for (const std::size_t part : parts) {
    const Pipe pipe = OpenPipe();
    std::thread writer([&] {
      WriteHandle(pipe.write, Prefix(contents, part));
      CloseHandleValue(pipe.write);
    });
    if (AttachForRead(file, pipe.read)) {
      EXPECT_EQ(ReadNumbered(file), FirstNumbers(RecordsWithin(contents, part).data)) << part << " bytes";
    }
    writer.join();
    EXPECT_EQ(file->Close(), S_OK);
  }
}

}  // namespace
}  // namespace halyard::test
