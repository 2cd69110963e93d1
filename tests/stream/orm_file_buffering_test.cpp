// Records that wait to be written, and files that are read ahead: the bytes and the
// answers stay the same, only the moment changes at which the system sees them.
#include <gtest/gtest.h>

#include "halyard/stream/orm_file_buffering.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/handles.h"
#include "tests/support/raised.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

constexpr LONG kBuffer = 4096;
constexpr const char* kUnit = "66 00 08 00 00 00 07 00 00 00";

Ptr<IOrmFileBuffering> Buffering(const Ptr<IOrmFile>& file) { return file.As<IOrmFileBuffering>(); }

bool Flush(const Ptr<IOrmFile>& file) {
  return Get(Buffering(file), &IOrmFileBuffering::Flush) == VARIANT_TRUE;
}

Ptr<IOrmFile> BufferedFile(LONG size = kBuffer) {
  const auto file = NewFile();
  EXPECT_EQ(Buffering(file)->put_BufferSize(size), S_OK);
  return file;
}

Ptr<IValueBase> Seven() {
  const auto value = SimpleValue(kLong);
  EXPECT_EQ(value->put_Value(I4(7).get()), S_OK);
  return value;
}

// A text whose record has about that many bytes.
Ptr<IValueBase> LongText(std::size_t length) {
  const auto value = SimpleValue(kString);
  EXPECT_EQ(value->put_Value(Variant(WideString(length, OLECHAR{'x'})).get()), S_OK);
  return value;
}

TEST(OrmFileBuffering, ANewFileHasNoBuffer) {
  const auto file = NewFile();
  EXPECT_EQ(Get(Buffering(file), &IOrmFileBuffering::get_BufferSize), 0);
  EXPECT_TRUE(Flush(file));
}

TEST(OrmFileBuffering, TheSizeBelongsToTheObject) {
  TempFile disk;
  const auto file = BufferedFile();
  EXPECT_TRUE(OpenForWrite(file, disk.name()));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_EQ(Get(Buffering(file), &IOrmFileBuffering::get_BufferSize), kBuffer);
}

TEST(OrmFileBuffering, NegativeSizesAndNullPlacesAreRefused) {
  const auto file = BufferedFile();
  EXPECT_EQ(Buffering(file)->put_BufferSize(-1), E_INVALIDARG);
  EXPECT_EQ(Get(Buffering(file), &IOrmFileBuffering::get_BufferSize), kBuffer);
  EXPECT_EQ(Buffering(file)->get_BufferSize(nullptr), E_POINTER);
  EXPECT_EQ(Buffering(file)->Flush(nullptr), E_POINTER);
}

TEST(OrmFileBuffering, WithoutABufferEveryRecordIsWrittenAtOnce) {
  TempFile disk;
  const auto file = NewFile();
  ASSERT_TRUE(AttachForWrite(file, OpenHandleForWrite(disk.path())));
  EXPECT_EQ(disk.Contents(), FileOf({}));
  EXPECT_TRUE(WriteData(file, Seven().get()));
  EXPECT_EQ(disk.Contents(), FileOf({kUnit}));
}

TEST(OrmFileBuffering, RecordsWaitUntilTheyAreFlushed) {
  TempFile disk;
  const auto file = BufferedFile();
  ASSERT_TRUE(AttachForWrite(file, OpenHandleForWrite(disk.path())));
  EXPECT_TRUE(WriteData(file, Seven().get()));
  EXPECT_EQ(disk.Contents(), Bytes());
  EXPECT_TRUE(Flush(file));
  EXPECT_EQ(disk.Contents(), FileOf({kUnit}));
  EXPECT_TRUE(Flush(file));
  EXPECT_TRUE(WriteData(file, Seven().get()));
  EXPECT_EQ(disk.Contents(), FileOf({kUnit}));
}

TEST(OrmFileBuffering, CloseReleaseAndANewSizeHandOver) {
  const auto close = [](Ptr<IOrmFile>& file) { EXPECT_EQ(file->Close(), S_OK); };
  const auto release = [](Ptr<IOrmFile>& file) { file.Reset(); };
  const auto resize = [](Ptr<IOrmFile>& file) { EXPECT_EQ(Buffering(file)->put_BufferSize(0), S_OK); };
  const auto reopen = [](Ptr<IOrmFile>& file) { EXPECT_FALSE(OpenForRead(file, TempFile().name())); };
  for (void (*const end)(Ptr<IOrmFile>&) : {+close, +release, +resize, +reopen}) {
    TempFile disk;
    auto file = BufferedFile();
    ASSERT_TRUE(AttachForWrite(file, OpenHandleForWrite(disk.path())));
    EXPECT_TRUE(WriteData(file, Seven().get()));
    end(file);
    EXPECT_EQ(disk.Contents(), FileOf({kUnit}));
  }
}

TEST(OrmFileBuffering, AttachingHandsOverToTheEarlierHandle) {
  TempFile first;
  TempFile second;
  const auto file = BufferedFile();
  const LONG handle = OpenHandleForWrite(first.path());
  ASSERT_TRUE(AttachForWrite(file, handle));
  EXPECT_TRUE(WriteData(file, Seven().get()));
  ASSERT_TRUE(AttachForWrite(file, OpenHandleForWrite(second.path())));
  EXPECT_EQ(first.Contents(), FileOf({kUnit}));
  EXPECT_EQ(second.Contents(), Bytes());
  EXPECT_TRUE(IsOpen(handle));
  CloseHandleValue(handle);
}

TEST(OrmFileBuffering, WhatTheSystemSeesEndsWithAWholeRecord) {
  TempFile disk;
  const Bytes header = FileHeader();
  const Bytes record = Record(kUnit);
  const auto file = BufferedFile(64);
  ASSERT_TRUE(AttachForWrite(file, OpenHandleForWrite(disk.path())));
  for (int i = 0; i < 20; ++i) {
    EXPECT_TRUE(WriteData(file, Seven().get()));
    const std::size_t seen = disk.Contents().size();
    EXPECT_TRUE(seen == 0 || (seen - header.size()) % record.size() == 0) << seen;
  }
}

TEST(OrmFileBuffering, TheBytesAreTheSameWithBuffersOfEverySize) {
  const auto write = [](LONG size) {
    TempFile disk;
    const auto file = BufferedFile(size);
    EXPECT_TRUE(OpenForWrite(file, disk.name()));
    for (const std::size_t length : {0u, 1u, 50u, 3u, 63990u, 5u, 70000u, 2u, 2u, 100u})
      EXPECT_TRUE(WriteData(file, LongText(length).get()));
    EXPECT_EQ(file->Close(), S_OK);
    return disk.Contents();
  };
  const Bytes plain = write(0);
  EXPECT_GT(plain.size(), 130000u);
  for (const LONG size : {1, 8, 12, 13, 64, 1000, 64000, 1000000}) EXPECT_TRUE(write(size) == plain) << size;
}

TEST(OrmFileBuffering, LostRecordsAreToldByEveryLaterWriteAndOnceByClose) {
  TempFile disk(FileOf({}));
  const auto file = BufferedFile();
  const LONG handle = OpenHandleThatRefusesWrites(disk.path());
  ASSERT_TRUE(AttachForWrite(file, handle));
  EXPECT_TRUE(WriteData(file, Seven().get()));
  EXPECT_FALSE(Flush(file));
  EXPECT_FALSE(Flush(file));
  EXPECT_FALSE(WriteData(file, Seven().get()));
  EXPECT_FALSE(WriteData(file, LongText(2 * kBuffer).get()));
  EXPECT_EQ(file->Close(), E_FAIL);
  EXPECT_FALSE(IsOpen(handle));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_TRUE(Flush(file));
}

TEST(OrmFileBuffering, CloseTellsOfRecordsThatItCannotHandOver) {
  TempFile disk(FileOf({}));
  const auto file = BufferedFile();
  const LONG handle = OpenHandleThatRefusesWrites(disk.path());
  ASSERT_TRUE(AttachForWrite(file, handle));
  EXPECT_EQ(file->Close(), E_FAIL);
  EXPECT_FALSE(IsOpen(handle));
}

TEST(OrmFileBuffering, AfterALossTheNextOpeningFailsAndTheOneAfterSucceeds) {
  TempFile disk(FileOf({}));
  TempFile other;
  const auto file = BufferedFile();
  ASSERT_TRUE(AttachForWrite(file, OpenHandleThatRefusesWrites(disk.path())));
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(file->OpenForWrite(other.name(), &result), E_FAIL);
  EXPECT_FALSE(other.Exists());
  EXPECT_TRUE(OpenForWrite(file, other.name()));
}

TEST(OrmFileBuffering, AfterALossAHandleIsNotTaken) {
  TempFile disk(FileOf({}));
  TempFile other;
  const auto file = BufferedFile();
  ASSERT_TRUE(AttachForWrite(file, OpenHandleThatRefusesWrites(disk.path())));
  const LONG handle = OpenHandleForWrite(other.path());
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(file->AttachForWrite(handle, &result), E_FAIL);
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_TRUE(IsOpen(handle));
  CloseHandleValue(handle);
}

TEST(OrmFileBuffering, ALossThatAttachHasToldStillEndsTheWritingBehindIt) {
  TempFile disk(FileOf({}));
  TempFile other;
  const auto file = BufferedFile();
  const LONG lossy = OpenHandleThatRefusesWrites(disk.path());
  ASSERT_TRUE(AttachForWrite(file, lossy));
  const LONG handle = OpenHandleForWrite(other.path());
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(file->AttachForWrite(handle, &result), E_FAIL);
  EXPECT_FALSE(WriteData(file, Seven().get()));
  EXPECT_FALSE(WriteData(file, LongText(2 * kBuffer).get()));
  EXPECT_FALSE(Flush(file));
  EXPECT_EQ(Buffering(file)->put_BufferSize(kBuffer), E_FAIL);
  EXPECT_TRUE(AttachForWrite(file, handle));
  EXPECT_TRUE(WriteData(file, Seven().get()));
  EXPECT_TRUE(Flush(file));
  EXPECT_EQ(other.Contents(), FileOf({kUnit}));
  EXPECT_TRUE(IsOpen(lossy));
  CloseHandleValue(lossy);
}

// A file without a handle takes nothing, though it has a buffer, and opens as ever.
void ExpectItTakesNothing(const Ptr<IOrmFile>& file) {
  EXPECT_FALSE(WriteInfo(file, StructureDefinition({{OLESTR("a"), kLong}}, 3).get()));
  EXPECT_FALSE(WriteData(file, Seven().get()));
  const auto unit = CreateObject<IUnit>(kUnitClass);
  EXPECT_EQ(unit->put_Value(Seven().get()), S_OK);
  EXPECT_FALSE(WriteUnit(file, unit.get()));
  EXPECT_TRUE(Flush(file));
  EXPECT_EQ(file->Close(), S_OK);
  const TempFile disk(FileOf({kUnit}));
  EXPECT_TRUE(OpenForRead(file, disk.name()));
  EXPECT_TRUE(OpenForWrite(file, disk.name()));
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_EQ(disk.Contents(), FileOf({}));
  EXPECT_TRUE(OpenForWrite(NewFile(), disk.name()));
}

TEST(OrmFileBuffering, AFileThatWasNeverOpenedTakesNoRecords) { ExpectItTakesNothing(BufferedFile()); }

TEST(OrmFileBuffering, AClosedFileTakesNoRecords) {
  const TempFile disk;
  const auto file = BufferedFile();
  ASSERT_TRUE(OpenForWrite(file, disk.name()));
  EXPECT_TRUE(WriteData(file, Seven().get()));
  EXPECT_EQ(file->Close(), S_OK);
  ExpectItTakesNothing(file);
  EXPECT_EQ(disk.Contents(), FileOf({kUnit}));
}

TEST(OrmFileBuffering, AFileThatCouldNotBeOpenedTakesNoRecords) {
  const TempFile missing;
  const auto file = BufferedFile();
  EXPECT_FALSE(OpenForRead(file, missing.name()));
  ExpectItTakesNothing(file);
  EXPECT_FALSE(missing.Exists());
}

TEST(OrmFileBuffering, AnAttachedHandleIsReadNoFurtherThanItsRecords) {
  TempFile disk(FileOf({kUnit, kUnit, kUnit}));
  const LONG handle = OpenHandleForRead(disk.path());
  const auto file = BufferedFile();
  ASSERT_TRUE(AttachForRead(file, handle));
  EXPECT_EQ(ReadHandle(handle, 4), LittleEndian(10, 4));
  EXPECT_EQ(ReadHandle(handle, 10), Hex(kUnit));
  EXPECT_TRUE(ReadUnit(file));
  EXPECT_EQ(ReadHandle(handle, 4), LittleEndian(10, 4));
}

TEST(OrmFileBuffering, RecordsOfEverySizeAreReadAhead) {
  TempFile disk;
  // Records shorter and longer than what is read at once.
  const LONG lengths[] = {0, 1, 50, 16000, 5, 16100, 2, 80000, 7, 65400, 65536, 3};
  const auto definition = SimpleArrayDefinition(kLong, 0, 5);
  {
    const auto file = NewFile();
    ASSERT_TRUE(OpenForWrite(file, disk.name()));
    ASSERT_TRUE(WriteInfo(file, definition.get()));
    for (const LONG length : lengths) {
      const auto array = NewArray(definition);
      ASSERT_EQ(ReadFrom(array, Join({LittleEndian(length, 4), Bytes(4 * length, 3)})),
                Moved(4 + 4 * length));
      ASSERT_TRUE(WriteData(file, array.get()));
    }
  }
  const auto file = NewFile();
  ASSERT_TRUE(OpenForRead(file, disk.name()));
  ASSERT_TRUE(ReadInfo(file));
  for (const LONG length : lengths) {
    const auto array = ReadData(file).As<IArray>();
    ASSERT_TRUE(array);
    EXPECT_EQ(Count(array), length);
    if (length != 0) {
      EXPECT_EQ(Item(array, length - 1), "I4 50529027");
    }
  }
  EXPECT_FALSE(ReadUnit(file));
}

}  // namespace
}  // namespace halyard::test
