// The handle of a file of units: attached, owned, shared with others, refused.
#include <gtest/gtest.h>

#include "tests/support/handles.h"
#include "tests/support/raised.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

constexpr const char* kInfo =
    "65 00 0E 00 03 00 01 00 50 00 00 01 00 04 00 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00";
constexpr const char* kData = "66 00 0E 00 03 00 05 00 00 00";

// What the disk holds while nobody has it open: whether others can read and write it.
bool OthersCanRead(const TempFile& disk) { return OpenForRead(NewFile(), disk.name()); }
bool OthersCanWrite(const TempFile& disk) { return OpenForWrite(NewFile(), disk.name()); }

TEST(OrmFileHandle, AttachedHandleIsWrittenFromItsPosition) {
  TempFile disk;
  {
    const auto file = NewFile();
    EXPECT_TRUE(AttachForWrite(file, OpenHandleForWrite(disk.path())));
    EXPECT_TRUE(WriteData(file, SimpleValue(kLong).get()));
  }
  EXPECT_EQ(disk.Contents(), FileOf({"66 00 08 00 00 00 00 00 00 00"}));
}

TEST(OrmFileHandle, AttachedHandleIsRead) {
  TempFile disk(FileOf({kInfo, kData}));
  const auto file = NewFile();
  EXPECT_TRUE(AttachForRead(file, OpenHandleForRead(disk.path())));
  EXPECT_TRUE(ReadInfo(file));
  EXPECT_TRUE(ReadData(file));
}

TEST(OrmFileHandle, AttachingForReadKeepsOrRenewsTheSession) {
  TempFile definitions(FileOf({kInfo}));
  TempFile data(FileOf({kData}));
  const auto file = NewFile();
  EXPECT_TRUE(AttachForRead(file, OpenHandleForRead(definitions.path())));
  EXPECT_TRUE(ReadInfo(file));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_TRUE(AttachForRead(file, OpenHandleForRead(data.path()), false));
  EXPECT_TRUE(ReadData(file));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_TRUE(AttachForRead(file, OpenHandleForRead(data.path()), true));
  EXPECT_FALSE(ReadData(file));
}

TEST(OrmFileHandle, AttachedHandleIsClosedByTheFile) {
  TempFile disk(FileOf({}));
  const LONG by_close = OpenHandleForRead(disk.path());
  const auto file = NewFile();
  EXPECT_TRUE(AttachForRead(file, by_close));
  EXPECT_TRUE(IsOpen(by_close));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_FALSE(IsOpen(by_close));
}

TEST(OrmFileHandle, AttachedHandleIsClosedWithTheFile) {
  TempFile disk;
  const LONG handle = OpenHandleForWrite(disk.path());
  auto file = NewFile();
  EXPECT_TRUE(AttachForWrite(file, handle));
  file.Reset();
  EXPECT_FALSE(IsOpen(handle));
}

TEST(OrmFileHandle, AttachedHandleIsClosedByTheNextOpening) {
  TempFile missing;
  TempFile disk(FileOf({}));
  const LONG handle = OpenHandleForRead(disk.path());
  const auto file = NewFile();
  EXPECT_TRUE(AttachForRead(file, handle));
  EXPECT_FALSE(OpenForRead(file, missing.name()));
  EXPECT_FALSE(IsOpen(handle));
}

TEST(OrmFileHandle, AttachingDoesNotCloseTheEarlierHandle) {
  TempFile disk(FileOf({}));
  const LONG first = OpenHandleForRead(disk.path());
  const LONG second = OpenHandleForRead(disk.path());
  const auto file = NewFile();
  EXPECT_TRUE(AttachForRead(file, first));
  EXPECT_TRUE(AttachForRead(file, second));
  EXPECT_TRUE(IsOpen(first));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_FALSE(IsOpen(second));
  EXPECT_TRUE(IsOpen(first));
  CloseHandleValue(first);
}

TEST(OrmFileHandle, NoHandleIsFalseAndKeepsTheEarlierOne) {
  TempFile disk(FileOf({kInfo}));
  const auto file = NewFile();
  EXPECT_TRUE(OpenForRead(file, disk.name()));
  EXPECT_FALSE(AttachForRead(file, kNoHandle));
  EXPECT_FALSE(AttachForWrite(file, kNoHandle));
  EXPECT_TRUE(ReadInfo(file));
}

TEST(OrmFileHandle, RefusedHandleStaysWithTheFile) {
  TempFile disk(Bytes(20, 7));
  const LONG handle = OpenHandleForRead(disk.path());
  const auto file = NewFile();
  EXPECT_FALSE(AttachForRead(file, handle));
  EXPECT_TRUE(IsOpen(handle));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_FALSE(IsOpen(handle));
}

TEST(OrmFileHandle, HandleThatRefusesWritesIsFalse) {
  TempFile disk(FileOf({}));
  const auto file = NewFile();
  EXPECT_FALSE(AttachForWrite(file, OpenHandleThatRefusesWrites(disk.path())));
  EXPECT_FALSE(WriteData(file, SimpleValue(kLong).get()));
  EXPECT_FALSE(WriteInfo(file, SimpleDefinition(kLong).get()));
  EXPECT_EQ(disk.Contents(), FileOf({}));
}

TEST(OrmFileHandle, ReadOnlyHandleRefusesWrites) {
  TempFile disk(FileOf({kInfo}));
  const auto file = NewFile();
  EXPECT_FALSE(AttachForWrite(file, OpenHandleForRead(disk.path())));
  EXPECT_FALSE(WriteInfo(file, SimpleDefinition(kLong).get()));
  EXPECT_EQ(disk.Contents(), FileOf({kInfo}));
}

TEST(OrmFileHandle, WriteOnlyHandleRefusesReads) {
  TempFile disk;
  const auto file = NewFile();
  EXPECT_FALSE(AttachForRead(file, OpenHandleForWrite(disk.path())));
  EXPECT_FALSE(ReadUnit(file));
}

TEST(OrmFileHandle, PipeCarriesAStream) {
  const Pipe pipe = OpenPipe();
  const auto definition = StructureDefinition({{OLESTR("a"), kLong}}, 3);
  const auto writer = NewFile();
  const auto reader = NewFile();
  EXPECT_TRUE(AttachForWrite(writer, pipe.write));
  EXPECT_TRUE(WriteInfo(writer, definition.get()));
  EXPECT_TRUE(WriteData(writer, NewValue(definition).get()));
  EXPECT_EQ(writer->Close(), S_OK);
  EXPECT_TRUE(AttachForRead(reader, pipe.read));
  EXPECT_TRUE(ReadInfo(reader));
  EXPECT_TRUE(ReadData(reader));
  EXPECT_FALSE(ReadUnit(reader));
}

TEST(OrmFileSharing, FileOpenForWriteBelongsToOneObject) {
  TempFile disk;
  const auto file = NewFile();
  EXPECT_TRUE(OpenForWrite(file, disk.name()));
  EXPECT_FALSE(OthersCanRead(disk));
  EXPECT_FALSE(OthersCanWrite(disk));
  EXPECT_TRUE(WriteData(file, SimpleValue(kLong).get()));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_TRUE(OthersCanRead(disk));
}

TEST(OrmFileSharing, RefusedWriterDoesNotEmptyTheFile) {
  TempFile disk;
  const auto file = NewFile();
  EXPECT_TRUE(OpenForWrite(file, disk.name()));
  EXPECT_TRUE(WriteData(file, SimpleValue(kLong).get()));
  EXPECT_FALSE(OthersCanWrite(disk));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_EQ(disk.Contents().size(), 22u);
}

TEST(OrmFileSharing, FileOpenForReadCanBeReadByOthersButNotWritten) {
  TempFile disk(FileOf({kInfo}));
  auto file = NewFile();
  EXPECT_TRUE(OpenForRead(file, disk.name()));
  EXPECT_TRUE(OthersCanRead(disk));
  EXPECT_FALSE(OthersCanWrite(disk));
  EXPECT_TRUE(ReadInfo(file));
  file.Reset();
  EXPECT_TRUE(OthersCanWrite(disk));
}

TEST(OrmFileSharing, RefusedFileIsHeldUntilItIsClosed) {
  TempFile disk(Bytes(20, 7));
  const auto file = NewFile();
  EXPECT_FALSE(OpenForRead(file, disk.name()));
  EXPECT_FALSE(OthersCanWrite(disk));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_TRUE(OthersCanWrite(disk));
}

TEST(OrmFileSharing, OpeningAnotherFileLetsTheFirstGo) {
  TempFile first(FileOf({}));
  TempFile second(FileOf({}));
  const auto file = NewFile();
  EXPECT_TRUE(OpenForRead(file, first.name()));
  EXPECT_TRUE(OpenForRead(file, second.name()));
  EXPECT_TRUE(OthersCanWrite(first));
  EXPECT_TRUE(OpenForWrite(file, first.name()));
  EXPECT_TRUE(OthersCanWrite(second));
}

}  // namespace
}  // namespace halyard::test
