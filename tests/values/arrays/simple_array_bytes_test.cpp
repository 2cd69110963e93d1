// The bytes of the growable array of elementary values.
#include <gtest/gtest.h>

#include "halyard/values/arrays/simple_array.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/memory.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IArray> New(SHORT type) { return NewArray(SimpleArrayDefinition(type)); }

Ptr<IArray> Shorts(std::initializer_list<LONG> numbers) {
  const auto array = New(kShort);
  AddAll(array, numbers);
  return array;
}

TEST(SimpleArrayBytes, CountAndElements) {
  const auto array = Shorts({1, -1, 300});
  EXPECT_EQ(PacketSize(array), 10u);
  EXPECT_EQ(Encoded(array), "03 00 00 00 01 00 FF FF 2C 01");
}

TEST(SimpleArrayBytes, FiveRealsTakeFortyFourBytes) {
  const auto array = New(kReal);
  AddAll(array, {1, 2, 3, 4, 5});
  EXPECT_EQ(PacketSize(array), 44u);
  EXPECT_EQ(Encoded(array).size(), 44u * 3 - 1);
}

TEST(SimpleArrayBytes, CountIsWrittenEvenWhenTheElementsDoNotFit) {
  const auto array = Shorts({1, -1, 300});
  for (std::size_t room = 0; room < 4; ++room) {
    const Written written = WriteTo(array, room);
    EXPECT_EQ(written.outcome, TooShort());
    EXPECT_EQ(written.bytes, Bytes(room, GuardedBuffer::kFiller));
  }
  for (std::size_t room = 4; room < 10; ++room) {
    const Written written = WriteTo(array, room);
    EXPECT_EQ(written.outcome, TooShort()) << room;
    EXPECT_EQ(ToHex(written.bytes),
              ToHex(Join({Hex("03 00 00 00"), Bytes(room - 4, GuardedBuffer::kFiller)})));
  }
  EXPECT_EQ(WriteTo(array, 10).outcome, Moved(10));
}

TEST(SimpleArrayBytes, EveryTypeSurvivesARoundTrip) {
  constexpr struct {
    SHORT type;
    const char* bytes;
    const char* items;
  } kRows[] = {
      {kChar, "02 00 00 00 FF 07", "UI1 255, UI1 7"},
      {kByte, "02 00 00 00 FF 07", "UI1 255, UI1 7"},
      {kShort, "02 00 00 00 FF FF 00 80", "I2 -1, I2 -32768"},
      {kWord, "02 00 00 00 FF FF 00 80", "I2 -1, I2 -32768"},
      {kLong, "01 00 00 00 FE FF FF FF", "I4 -2"},
      {kDWord, "01 00 00 00 FE FF FF FF", "I4 -2"},
      {kInt64, "02 00 00 00 FE FF FF FF 01 00 00 00", "I4 -2, I4 1"},
      {kShortReal, "01 00 00 00 00 00 C0 BF", "R4 -1.5"},
      {kReal, "01 00 00 00 00 00 00 00 00 00 F8 BF", "R8 -1.5"},
      {kDate, "01 00 00 00 D4 07 0F 03 1E 0C 00 2D", "DATE 38061.521354166667"},
      {kDate, "01 00 00 00 00 00 00 00 00 00 00 00", "DATE 0"},
  };
  for (const auto& row : kRows) {
    const auto array = New(row.type);
    EXPECT_EQ(ReadFrom(array, row.bytes), Moved(static_cast<ULONG>(Hex(row.bytes).size()))) << row.bytes;
    EXPECT_EQ(Items(array), row.items);
    EXPECT_EQ(Encoded(array), row.bytes);
    ExpectShortReads(row.bytes, [&] { return New(row.type); });
  }
}

TEST(SimpleArrayBytes, EmptyArrayIsReadFromItsCount) {
  const auto array = Shorts({1, 2});
  EXPECT_EQ(ReadFrom(array, "00 00 00 00"), Moved(4));
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Encoded(array), "00 00 00 00");
}

TEST(SimpleArrayBytes, BytesBehindTheElementsAreLeft) {
  const auto array = New(kShort);
  EXPECT_EQ(ReadFrom(array, "01 00 00 00 05 00 FF FF"), Moved(6));
  EXPECT_EQ(Items(array), "I2 5");
}

TEST(SimpleArrayBytes, ReadingLessThanACountChangesNothing) {
  const auto array = Shorts({1, 2});
  for (std::size_t size = 0; size < 4; ++size) EXPECT_EQ(ReadFrom(array, Bytes(size, 0)), TooShort());
  EXPECT_EQ(Items(array), "I2 1, I2 2");
}

TEST(SimpleArrayBytes, CutReadingKeepsTheCountOfABrokenValue) {
  const auto array = Shorts({1, 2});
  EXPECT_EQ(ReadFrom(array, "03 00 00 00 05 00 06 00 07"), TooShort());
  EXPECT_EQ(Count(array), 3);
  EXPECT_EQ(PacketSize(array), 10u);
}

TEST(SimpleArrayBytes, ArrayGrowsAfterReading) {
  const auto array = New(kInt64);
  EXPECT_EQ(ReadFrom(array, "02 00 00 00 05 00 00 00 06 00 00 00"), Moved(12));
  PutItem(array, 1, I4(-6));
  AddAll(array, {7});
  EXPECT_EQ(Items(array), "I4 5, I4 -6, I4 7");
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(Items(array), "I4 -6, I4 7");
}

TEST(SimpleArrayBytes, CountOfFourThousandMillionIsKeptWithoutItsMemory) {
  constexpr struct {
    SHORT type;
    const char* zero;
  } kRows[] = {{kByte, "UI1 0"}, {kShort, "I2 0"}, {kLong, "I4 0"}, {kReal, "R8 0"}};
  for (const auto& [type, zero] : kRows) {
    const MemoryLimit limit;
    const auto array = New(type);
    EXPECT_EQ(ReadFrom(array, "00 28 6B EE 01 02 03 04 05 06 07 08"), TooShort());
    EXPECT_EQ(static_cast<ULONG>(Count(array)), 4000000000u);
    EXPECT_EQ(Item(array, 0), zero);
    EXPECT_EQ(Item(array, 2000000000), zero);
    for (const LONG position : {3, 1000000000})
      EXPECT_TRUE(Raises(E_OUTOFMEMORY, [&] { return TryPutItem(array, position, I4(1)); }));
    EXPECT_TRUE(Raises(E_OUTOFMEMORY, [&] { return array->Add(I4(1).get()); }));
    LONG_PTR address = 0;
    EXPECT_TRUE(
        Raises(E_OUTOFMEMORY, [&] { return array.As<ISimpleArray>()->get_GetDataPointer(&address); }));
    EXPECT_EQ(WriteTo(array, 64).outcome, TooShort());
    EXPECT_EQ(static_cast<ULONG>(Count(array)), 4000000000u);
    EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
    EXPECT_EQ(static_cast<ULONG>(Count(Get(array, &IValueBase::Copy).As<IArray>())), 3999999999u);
    EXPECT_EQ(array->RemoveAll(), S_OK);
    EXPECT_EQ(Count(array), 0);
    AddAll(array, {1});
    EXPECT_EQ(Count(array), 1);
    EXPECT_TRUE(limit.Kept()) << type;
  }
}

// 16 MiB is the most that a count alone brings memory for.
TEST(SimpleArrayBytes, AnnouncedBlockOfSixteenMebibytesTakesMemory) {
  const auto array = New(kReal);
  EXPECT_EQ(ReadFrom(array, "00 00 20 00"), TooShort());
  PutItem(array, 0x1FFFFF, I4(1));
  EXPECT_EQ(Item(array, 0x1FFFFF), "R8 1");
  EXPECT_EQ(Item(array, 0), "R8 0");
  EXPECT_EQ(ReadFrom(array, "01 00 20 00"), TooShort());
  EXPECT_EQ(TryPutItem(array, 0, I4(1)), E_OUTOFMEMORY);
}

TEST(SimpleArrayBytes, CountWhoseSizeWrapsIsNotRead) {
  const auto array = New(kLong);
  EXPECT_EQ(ReadFrom(array, "01 00 00 40 01 02 03 04"), TooShort());
  EXPECT_EQ(Count(array), 0x40000001);
  const auto reals = New(kReal);
  EXPECT_EQ(ReadFrom(reals, "00 00 00 20"), TooShort());
  EXPECT_EQ(Count(reals), 0x20000000);
  EXPECT_EQ(WriteTo(reals, 64).outcome, TooShort());
}

TEST(SimpleArrayBytes, NullArgumentsAreRejected) { ExpectNullBufferArgumentsRejected(Shorts({1})); }

}  // namespace
}  // namespace halyard::test
