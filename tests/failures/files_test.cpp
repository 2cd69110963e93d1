// Files whose system calls fail, one after another.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/failures/failing_calls.h"
#include "tests/failures/numbered_records.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/handles.h"
#include "tests/support/memory.h"

namespace halyard::test {
namespace {

constexpr LONG kRecords = 12;

// Opens, writes a definition and records, with one call failing; how many records were
// reported as written, none where it did not come to that.
struct Writing {
  bool happened = false;
  LONG written = 0;
};

Writing WriteWithFault(const TempFile& place, std::size_t which, Fault fault) {
  const auto definition = NumberedDefinition();
  const auto file = NewFile();
  Writing result;
  const FailingCall failing(which, fault);
  if (OpenForWrite(file, place.name()) && WriteInfo(file, definition.get()))
    result.written = WriteNumbered(file, definition, 0, kRecords);
  result.happened = failing.Happened();
  return result;
}

class EachWriteFails : public testing::TestWithParam<Fault> {};

TEST_P(EachWriteFails, WhatWasReportedAsWrittenIsThere) {
  for (std::size_t which = 1;; ++which) {
    const TempFile place;
    const Writing writing = WriteWithFault(place, which, GetParam());
    if (!writing.happened) {
      EXPECT_EQ(writing.written, kRecords);
      EXPECT_GT(which, std::size_t{kRecords});
      break;
    }
    EXPECT_LT(writing.written, kRecords) << "call " << which;
    EXPECT_EQ(NumbersIn(place), FirstNumbers(writing.written)) << "call " << which;
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, EachWriteFails,
                         testing::Values(Fault::kNoSpace, Fault::kDevice, Fault::kHalfThenFull));

// A disk that has room again after a record was refused: what follows is read, too.
TEST(DiskWithRoomAgain, KeepsTheRecordsBehindARefusedOne) {
  const auto definition = NumberedDefinition();
  bool happened = true;
  // The two parts of the header and the definition come first.
  for (std::size_t which = 4; happened; ++which) {
    const TempFile place;
    std::vector<LONG> written;
    {
      const auto file = NewFile();
      const FailingCall failing(which, Fault::kHalfThenOnce);
      ASSERT_TRUE(OpenForWrite(file, place.name()));
      ASSERT_TRUE(WriteInfo(file, definition.get()));
      for (LONG i = 0; i < kRecords; ++i) {
        if (WriteNumbered(file, definition, i, 1) == 1) written.push_back(i);
      }
      happened = failing.Happened();
    }
    EXPECT_EQ(written.size(), static_cast<std::size_t>(happened ? kRecords - 1 : kRecords))
        << "call " << which;
    EXPECT_EQ(NumbersIn(place), written) << "call " << which;
  }
}

// A handle that a client attached may be one of many: nothing is cut off there.
TEST(AttachedFile, KeepsItsLengthWhereARecordIsRefused) {
  constexpr std::size_t kLength = 4000;
  const TempFile place(Bytes(kLength, 'x'));
  const auto definition = NumberedDefinition();
  const LONG handle = open(place.path().c_str(), O_WRONLY | O_CLOEXEC);
  ASSERT_GE(handle, 0);
  const auto file = NewFile();
  ASSERT_TRUE(AttachForWrite(file, handle));
  ASSERT_TRUE(WriteInfo(file, definition.get()));
  {
    const FailingCall failing(1, Fault::kHalfThenFull);
    EXPECT_EQ(WriteNumbered(file, definition, 0, 1), 0);
    EXPECT_TRUE(failing.Happened());
  }
  EXPECT_EQ(file->Close(), S_OK);
  EXPECT_EQ(place.Contents().size(), kLength);
}

TEST(AttachedFile, KeepsWhatOthersAppendedBehindARefusedRecord) {
  const TempFile place(Bytes{});
  const auto definition = NumberedDefinition();
  const LONG handle = open(place.path().c_str(), O_WRONLY | O_APPEND | O_CLOEXEC);
  ASSERT_GE(handle, 0);
  const auto file = NewFile();
  ASSERT_TRUE(AttachForWrite(file, handle));
  ASSERT_TRUE(WriteInfo(file, definition.get()));
  const std::size_t before = place.Contents().size();
  {
    const FailingCall failing(1, Fault::kHalfThenFull);
    EXPECT_EQ(WriteNumbered(file, definition, 0, 1), 0);
  }
  EXPECT_GT(place.Contents().size(), before);
  EXPECT_EQ(file->Close(), S_OK);
}

class EachWriteIsHeldUp : public testing::TestWithParam<Fault> {};

TEST_P(EachWriteIsHeldUp, EveryRecordIsWritten) {
  for (std::size_t which = 0;; ++which) {
    // Interrupted for ever would be for ever.
    if (which == 0 && GetParam() == Fault::kInterrupted) continue;
    const TempFile place;
    const Writing writing = WriteWithFault(place, which, GetParam());
    EXPECT_EQ(writing.written, kRecords) << "call " << which;
    EXPECT_EQ(NumbersIn(place), FirstNumbers(kRecords)) << "call " << which;
    if (!writing.happened) break;
  }
}

INSTANTIATE_TEST_SUITE_P(Faults, EachWriteIsHeldUp, testing::Values(Fault::kInterrupted, Fault::kHalf));

// More than is read ahead at once, in records of which each is larger than the work buffer.
constexpr LONG kManySamples = 8192;

void MakeFile(const TempFile& place, LONG samples = 0) {
  const auto definition = NumberedDefinition(samples);
  const auto file = NewFile();
  EXPECT_TRUE(OpenForWrite(file, place.name()));
  EXPECT_TRUE(WriteInfo(file, definition.get()));
  EXPECT_EQ(WriteNumbered(file, definition, 0, kRecords), kRecords);
}

// A file that was read with one call failing.
struct Reading {
  bool happened = false;
  std::size_t moved = 0;  // bytes before the fault
  std::vector<LONG> numbers;
};

// Reads the file, by name or by handle.
Reading ReadWithFault(const TempFile& place, bool by_name, std::size_t which, Fault fault) {
  const auto file = NewFile();
  Reading reading;
  const FailingCall failing(which, fault);
  const bool is_open =
      by_name ? OpenForRead(file, place.name()) : AttachForRead(file, OpenHandleForRead(place.path()));
  if (is_open) reading.numbers = ReadNumbered(file);
  reading.happened = failing.Happened();
  reading.moved = failing.Moved();
  return reading;
}

// Every record that is given is whole. All are given that were there before the fault; it
// may be got over where it strikes once.
TEST(EachReadFails, RecordsBeforeItAreGivenWhole) {
  for (const LONG samples : {LONG{0}, kManySamples}) {
    const TempFile place;
    MakeFile(place, samples);
    const Bytes contents = place.Contents();
    for (const bool by_name : {true, false}) {
      for (const Fault fault : {Fault::kDevice, Fault::kDeviceGone}) {
        for (std::size_t which = 1;; ++which) {
          const Reading reading = ReadWithFault(place, by_name, which, fault);
          const auto given = static_cast<LONG>(reading.numbers.size());
          const LONG before = RecordsWithin(contents, reading.moved).data;
          EXPECT_EQ(reading.numbers, FirstNumbers(given)) << "call " << which;
          EXPECT_TRUE(fault == Fault::kDeviceGone ? given == before : given >= before)
              << "call " << which << ": " << given << " of " << before;
          if (reading.happened) continue;
          EXPECT_EQ(given, kRecords);
          break;
        }
      }
    }
  }
}

TEST(EachReadIsHeldUp, EveryRecordIsRead) {
  const TempFile place;
  MakeFile(place);
  for (const bool by_name : {true, false}) {
    for (const Fault fault : {Fault::kHalf, Fault::kInterrupted}) {
      bool happened = true;
      for (std::size_t which = fault == Fault::kHalf ? 0 : 1; happened; ++which) {
        const Reading reading = ReadWithFault(place, by_name, which, fault);
        EXPECT_EQ(reading.numbers, FirstNumbers(kRecords)) << "call " << which;
        happened = reading.happened;
      }
    }
  }
}

// A pipe may be opened by its name as well; what lies behind the record that was asked for
// is left to others.
TEST(NamedPipe, IsReadNoFurtherThanItsRecords) {
  const TempFile place;
  ASSERT_EQ(mkfifo(place.path().c_str(), 0600), 0);
  const int pipe = open(place.path().c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
  ASSERT_GE(pipe, 0);
  const Bytes unit = Hex("66 00 08 00 00 00 05 00 00 00");
  const Bytes record = Join({LittleEndian(unit.size(), 4), unit});
  WriteHandle(pipe, Join({FileHeader(), record, record}));
  const auto file = NewFile();
  ASSERT_TRUE(OpenForRead(file, place.name()));
  EXPECT_TRUE(ReadUnit(file));
  EXPECT_EQ(ReadHandle(pipe, record.size()), record);
  EXPECT_EQ(file->Close(), S_OK);
  close(pipe);
}

// A file that somebody cuts while it is read, behind all that was read ahead: what stayed
// whole is given.
TEST(FileThatShrinks, GivesTheRecordsThatStayed) {
  for (const bool by_name : {true, false}) {
    const TempFile place;
    MakeFile(place, kManySamples);
    const auto file = NewFile();
    ASSERT_TRUE(by_name ? OpenForRead(file, place.name())
                        : AttachForRead(file, OpenHandleForRead(place.path())));
    ASSERT_TRUE(ReadInfo(file));
    ASSERT_TRUE(ReadData(file));
    const Bytes contents = place.Contents();
    std::filesystem::resize_file(place.path(), contents.size() / 2);
    const LONG stayed = RecordsWithin(contents, contents.size() / 2).data;
    ASSERT_GT(stayed, 1);
    ASSERT_LT(stayed, kRecords);
    std::vector<LONG> expected = FirstNumbers(stayed);
    expected.erase(expected.begin());
    EXPECT_EQ(ReadNumbered(file), expected);
  }
}

// Records that are too large for the work buffer go out from where their values lie.
constexpr LONG kLargeElements = 50000;
constexpr LONG kLargeRecords = 3;

Writing WriteLargeWithFault(const TempFile& place, std::size_t which, Fault fault) {
  const auto definition = SimpleArrayDefinition(kShort, 0, 2);
  const auto array = NewArray(definition);
  Bytes encoding = LittleEndian(kLargeElements, 4);
  encoding.resize(encoding.size() + kLargeElements * sizeof(SHORT), 7);
  EXPECT_EQ(ReadFrom(array, encoding), Moved(static_cast<ULONG>(encoding.size())));
  const auto file = NewFile();
  Writing result;
  const FailingCall failing(which, fault);
  if (OpenForWrite(file, place.name()) && WriteInfo(file, definition.get())) {
    while (result.written < kLargeRecords && WriteData(file, array.get())) ++result.written;
  }
  result.happened = failing.Happened();
  return result;
}

LONG LargeRecordsIn(const TempFile& place) {
  const auto file = NewFile();
  LONG records = 0;
  if (!OpenForRead(file, place.name())) return 0;
  for (;; ++records) {
    Ptr<IUnit> unit;
    EXPECT_EQ(file->ReadUnit(unit.Out()), S_OK);
    if (!unit) return records - 1;  // without the definition
    Ptr<IValueBase> value;
    EXPECT_EQ(unit->get_Value(value.Out()), S_OK);
    EXPECT_TRUE(!value || Get(value, &IValueBase::get_Count) == kLargeElements);
  }
}

TEST_P(EachWriteFails, LargeRecordsThatWereReportedAsWrittenAreThere) {
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    const TempFile place;
    const Writing writing = WriteLargeWithFault(place, which, GetParam());
    happened = writing.happened;
    EXPECT_EQ(writing.written == kLargeRecords, !happened) << "call " << which;
    EXPECT_TRUE(writing.written == 0 || LargeRecordsIn(place) == writing.written) << "call " << which;
  }
}

TEST_P(EachWriteIsHeldUp, EveryLargeRecordIsWritten) {
  bool happened = true;
  for (std::size_t which = 1; happened; ++which) {
    const TempFile place;
    const Writing writing = WriteLargeWithFault(place, which, GetParam());
    happened = writing.happened;
    EXPECT_EQ(writing.written, kLargeRecords) << "call " << which;
    EXPECT_EQ(LargeRecordsIn(place), kLargeRecords) << "call " << which;
  }
}

// Where the memory cannot even be promised, the call says so.
TEST(AnnouncedSize, TakesNoMemoryUntilItIsWritten) {
  const MemoryLimit limit;
  const auto unit = NewForeign<ForeignUnit>();
  unit->packet_size.value = 0x10000000;
  unit->write.result = VARIANT_FALSE;
  const TempFile place;
  const auto file = NewFile();
  ASSERT_TRUE(OpenForWrite(file, place.name()));
  VARIANT_BOOL written = VARIANT_TRUE;
  const HRESULT status = file->WriteUnit(unit.get(), &written);
  EXPECT_TRUE(status == S_OK || status == E_OUTOFMEMORY);
  EXPECT_EQ(written, VARIANT_FALSE);
  EXPECT_TRUE(limit.Kept());
  EXPECT_EQ(place.Contents(), FileHeader());
}

}  // namespace
}  // namespace halyard::test
