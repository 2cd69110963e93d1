// What a record costs: one write or two reads, and no memory for the record itself as long
// as it fits into the file's work buffer.
#include <gtest/gtest.h>

#include "tests/failures/failing_calls.h"
#include "tests/failures/failing_memory.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_stream.h"
#include "tests/support/handles.h"
#include "tests/support/streams.h"

namespace halyard::test {
namespace {

// The largest unit that the work buffer holds: when it is read without its length, when it
// is written behind it.
constexpr ULONG kLargestRead = 64000;
constexpr ULONG kLargestWritten = 63996;

struct Costs {
  std::size_t calls;  // of the system, that read or write
  std::size_t allocations;

  friend bool operator==(const Costs&, const Costs&) = default;
  friend std::ostream& operator<<(std::ostream& stream, const Costs& costs) {
    return stream << costs.calls << " calls, " << costs.allocations << " allocations";
  }
};

template <class Call>
Costs CostsOf(Call&& call) {
  const FailingAllocation allocations(kNoAllocation);
  const FailingCall calls(kNoCall, Fault::kDevice);
  call();
  return {calls.Count(), allocations.Count()};
}

template <class Call>
std::size_t CallsOf(Call&& call) {
  return CostsOf(call).calls;
}

// A data unit of so many bytes that no reader makes a value of.
Bytes ElementaryUnit(ULONG size) {
  Bytes unit = Hex("66 00 08 00 00 00");
  unit.resize(size, 5);
  return unit;
}

Bytes FileOfTwo(const Bytes& unit) {
  const Bytes record = Join({LittleEndian(unit.size(), 4), unit});
  return Join({FileHeader(), record, record});
}

// The second unit of an attached file of two, read while nobody holds the first one.
Costs CostsOfReading(ULONG unit_size) {
  const TempFile place(FileOfTwo(ElementaryUnit(unit_size)));
  const auto file = NewFile();
  EXPECT_TRUE(AttachForRead(file, OpenHandleForRead(place.path())));
  EXPECT_TRUE(ReadUnit(file));
  Ptr<IUnit> unit;
  const Costs costs = CostsOf([&] { EXPECT_EQ(file->ReadUnit(unit.Out()), S_OK); });
  EXPECT_TRUE(unit);
  return costs;
}

TEST(RecordCosts, TwoReadsAndNoMemoryForWhatFitsIntoTheWorkBuffer) {
  for (const ULONG size : {ULONG{6}, ULONG{100}, kLargestRead - 1, kLargestRead})
    EXPECT_EQ(CostsOfReading(size), (Costs{2, 0})) << size;
}

TEST(RecordCosts, TwoReadsAndOneBlockForALargerRecord) {
  for (const ULONG size : {kLargestRead + 1, 2 * kLargestRead})
    EXPECT_EQ(CostsOfReading(size), (Costs{2, 1})) << size;
}

TEST(RecordCosts, ManyRecordsOfAFileOpenedByNameCostOneRead) {
  constexpr LONG kRecords = 100;
  Bytes bytes = FileHeader();
  const Bytes unit = ElementaryUnit(50);
  for (LONG i = 0; i < kRecords; ++i) bytes = Join({bytes, LittleEndian(unit.size(), 4), unit});
  const TempFile place(bytes);
  const auto file = NewFile();
  ASSERT_TRUE(OpenForRead(file, place.name()));
  EXPECT_EQ(CallsOf([&] {
              for (LONG i = 0; i < kRecords; ++i) EXPECT_TRUE(ReadUnit(file));
            }),
            1u);
}

// A unit of so many zeros.
Costs CostsOfWriting(ULONG unit_size) {
  const TempFile place;
  const auto unit = NewForeign<ForeignUnit>();
  unit->packet_size.value = unit_size;
  const auto file = NewFile();
  EXPECT_TRUE(AttachForWrite(file, OpenHandleForWrite(place.path())));
  VARIANT_BOOL done = VARIANT_FALSE;
  const Costs costs = CostsOf([&] { EXPECT_EQ(file->WriteUnit(unit.get(), &done), S_OK); });
  EXPECT_EQ(done, VARIANT_TRUE);
  EXPECT_TRUE(place.Contents() == Join({FileHeader(), LittleEndian(unit_size, 4), Bytes(unit_size, 0)}));
  return costs;
}

TEST(RecordCosts, OneWriteAndNoMemoryForWhatFitsIntoTheWorkBuffer) {
  for (const ULONG size : {ULONG{0}, ULONG{100}, kLargestWritten - 1, kLargestWritten})
    EXPECT_EQ(CostsOfWriting(size), (Costs{1, 0})) << size;
}

TEST(RecordCosts, OneWriteAndOneBlockForALargerRecord) {
  for (const ULONG size : {kLargestWritten + 1, 2 * kLargestWritten})
    EXPECT_EQ(CostsOfWriting(size), (Costs{1, 1})) << size;
}

TEST(RecordCosts, OneWriteForEveryKindOfRecord) {
  const TempFile place;
  const auto file = NewFile();
  ASSERT_TRUE(OpenForWrite(file, place.name()));
  const auto definition = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}}, 3);
  EXPECT_EQ(CallsOf([&] { EXPECT_TRUE(WriteInfo(file, definition.get())); }), 1u);
  const auto structure = NewValue(definition);
  EXPECT_EQ(CallsOf([&] { EXPECT_TRUE(WriteData(file, structure.get())); }), 1u);
  // Arrays on both sides of the work buffer go out from where they lie.
  const auto array = NewArray(SimpleArrayDefinition(kByte, 0, 4));
  for (const ULONG count : {ULONG{3}, ULONG{63986}, ULONG{63987}, ULONG{200000}}) {
    EXPECT_EQ(ReadFrom(array, Join({LittleEndian(count, 4), Bytes(count, 9)})), Moved(4 + count));
    EXPECT_EQ(CostsOf([&] { EXPECT_TRUE(WriteData(file, array.get())); }), (Costs{1, 0})) << count;
  }
}

}  // namespace
}  // namespace halyard::test
