// Long files, many files, and places beyond what 32 bits count.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>

#include "tests/load/held_memory.h"
#include "tests/load/size_of_run.h"
#include "tests/support/composites.h"
#include "tests/support/handles.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

// What the allocator may keep beside what is in use: two records.
constexpr std::size_t kSlack = 2 << 20;

// What may be in use afterwards that was not before: less than a byte a record or file of a
// long run.
constexpr std::size_t kGrowth = 4096;

constexpr std::size_t kNumbers = 1 << 17;  // a record of 1 MiB

constexpr int kLooks = 10;  // at memory and descriptors, in a long run

// A line for whoever reads the log of a long run.
void Tell(long long done, const char* what) {
  std::printf("%lld %s: %zu bytes of memory, %zu descriptors\n", done, what, HeldMemory(), OpenDescriptors());
}

// A numbered array of Reals, id 1.
Ptr<IArrayDef> BigDefinition() { return SimpleArrayDefinition(kReal, 0, 1); }

void WriteBig(const Ptr<IOrmFile>& file, LONG records) {
  const auto definition = BigDefinition();
  ASSERT_TRUE(WriteInfo(file, definition.get()));
  const auto array = NewArray(definition);
  std::vector<double> numbers(kNumbers);
  for (std::size_t i = 0; i < kNumbers; ++i) ASSERT_EQ(array->Add(R8(0).get()), S_OK);
  for (LONG record = 0; record < records; ++record) {
    numbers.front() = record;
    VARIANT_BOOL done = VARIANT_FALSE;
    ASSERT_EQ(array->ReadNumericArray(Bstr(OLESTR("")).get(), I4(kReal).get(),
                                      reinterpret_cast<unsigned char*>(numbers.data()), &done),
              S_OK);
    ASSERT_TRUE(WriteData(file, array.get()));
  }
}

void ReadBig(const Ptr<IOrmFile>& file, LONG records) {
  ASSERT_TRUE(ReadInfo(file));
  for (LONG record = 0; record < records; ++record) {
    const auto array = ReadData(file).As<IArray>();
    ASSERT_TRUE(array);
    ASSERT_EQ(Count(array), static_cast<LONG>(kNumbers));
    ASSERT_EQ(Item(array, 0), "R8 " + std::to_string(record));
  }
}

TEST(Load, LongFileTakesFlatMemory) {
  const LONG records = Shortened<LONG>(64, 5 << 10);
  const TempFile place;
  const auto file = NewFile();
  ASSERT_TRUE(OpenForWrite(file, place.name()));
  WriteBig(file, 2);
  const std::size_t writing = HeldMemory();
  const std::size_t written = AllocatedMemory();
  Tell(2, "records written");
  WriteBig(file, records);
  Tell(2 + records, "records written");
  EXPECT_LE(HeldMemory(), writing + kSlack);
  EXPECT_LE(AllocatedMemory(), written + kGrowth);
  EXPECT_EQ(file->Close(), S_OK);

  ASSERT_TRUE(OpenForRead(file, place.name()));
  ReadBig(file, 2);
  const std::size_t reading = HeldMemory();
  const std::size_t read = AllocatedMemory();
  Tell(2, "records read");
  ReadBig(file, records);
  Tell(2 + records, "records read");
  EXPECT_LE(HeldMemory(), reading + kSlack);
  EXPECT_LE(AllocatedMemory(), read + kGrowth);
}

// The same calls as in the beginning of a file, at a place that 32 bits do not reach; what
// lies before is a hole, which takes no room on the disk.
TEST(Load, PlacesBeyondThirtyTwoBits) {
  constexpr off_t kFar = (off_t{5} << 30) + 3;
  const TempFile place(Bytes{});
  const LONG out = OpenHandleForWrite(place.path());
  ASSERT_EQ(lseek(out, kFar, SEEK_SET), kFar);
  const auto file = NewFile();
  ASSERT_TRUE(AttachForWrite(file, out));
  WriteBig(file, 2);
  EXPECT_EQ(file->Close(), S_OK);

  const LONG in = OpenHandleForRead(place.path());
  ASSERT_EQ(lseek(in, kFar, SEEK_SET), kFar);
  ASSERT_TRUE(AttachForRead(file, in));
  ReadBig(file, 2);
  Ptr<IUnit> none;
  EXPECT_EQ(file->ReadUnit(none.Out()), S_OK);
  EXPECT_FALSE(none);
}

TEST(Load, ManyFilesLeaveNothingBehind) {
  const int files = Shortened(300, 200000);
  const TempFile place;
  const auto definition = StructureDefinition({{OLESTR("Number"), kLong}, {OLESTR("Text"), kString}}, 1);
  const auto round = [&] {
    const auto file = NewFile();
    ASSERT_TRUE(OpenForWrite(file, place.name()));
    ASSERT_TRUE(WriteInfo(file, definition.get()));
    ASSERT_TRUE(WriteData(file, NewValue(definition).get()));
    ASSERT_EQ(file->Close(), S_OK);
    ASSERT_TRUE(OpenForRead(file, place.name()));
    ASSERT_TRUE(ReadInfo(file));
    ASSERT_TRUE(ReadData(file));
  };
  for (int i = 0; i < 100; ++i) round();
  const std::size_t memory = HeldMemory();
  const std::size_t allocated = AllocatedMemory();
  const std::size_t descriptors = OpenDescriptors();
  Tell(0, "files");
  for (int i = 1; i <= files && !HasFatalFailure(); ++i) {
    round();
    if (i % (files / kLooks) != 0) continue;
    Tell(i, "files");
    ASSERT_LE(HeldMemory(), memory + kSlack);
    ASSERT_LE(AllocatedMemory(), allocated + kGrowth);
    ASSERT_EQ(OpenDescriptors(), descriptors);
  }
}

}  // namespace
}  // namespace halyard::test
