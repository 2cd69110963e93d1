// The bytes of an array of values.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/memory.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> Point() { return StructureDefinition({{OLESTR("x"), kLong}, {OLESTR("y"), kShort}}); }

Ptr<IStructureDef> Named() {
  return StructureDefinition({{OLESTR("name"), kString}, {OLESTR("level"), kByte}});
}

Ptr<IArray> Points(std::initializer_list<LONG> xs, LONG fixed = 0) {
  const auto definition = Point();
  const auto array = NewArray(ArrayDefinition(definition, fixed));
  LONG position = 0;
  for (const LONG x : xs) {
    if (fixed == 0) Add(array, Object(NewValue(definition)));
    PutItem(At(array, position++), OLESTR("x"), I4(x));
  }
  return array;
}

std::string X(const Ptr<IArray>& array, LONG position) { return Item(At(array, position), OLESTR("x")); }

void EmptySlot(const Ptr<IArray>& array, LONG position) {
  PutItem(array, position, Variant(static_cast<IDispatch*>(Point().get())));
}

TEST(ArrayBytes, EmptyVariableArrayIsItsCount) {
  const auto array = Points({});
  EXPECT_EQ(PacketSize(array), 4u);
  EXPECT_EQ(Encoded(array), "00 00 00 00");
}

TEST(ArrayBytes, VariableArrayIsCountAndElements) {
  EXPECT_EQ(Encoded(Points({1, -2})), "02 00 00 00 01 00 00 00 00 00 FE FF FF FF 00 00");
}

TEST(ArrayBytes, FixedArrayHasNoCount) {
  EXPECT_EQ(Encoded(Points({1, -2, 3}, 3)), "01 00 00 00 00 00 FE FF FF FF 00 00 03 00 00 00 00 00");
}

TEST(ArrayBytes, ElementsOfEveryKind) {
  const struct {
    Ptr<IValueDefBase> element;
    const char* bytes;
  } rows[] = {
      {Point(), "07 00 00 00 08 00 07 00 00 00 08 00"},
      {Named(), "02 00 68 69 03 02 00 68 69 03"},
      {EnumerationDefinition(kShort, {{OLESTR("Red"), 5}}), "09 00 09 00"},
      {SimpleArrayDefinition(kShort), "02 00 00 00 01 00 02 00 02 00 00 00 01 00 02 00"},
      {SimpleArrayDefinition(kByte, 3), "01 02 03 01 02 03"},
      {SimpleArrayDefinition(kString), "01 00 00 00 02 00 61 00 01 00 00 00 02 00 61 00"},
      {ArrayDefinition(Point(), 1), "07 00 00 00 08 00 07 00 00 00 08 00"},
  };
  for (const auto& row : rows) {
    const auto fixed = NewArray(ArrayDefinition(row.element, 2));
    EXPECT_EQ(ReadFrom(fixed, row.bytes), Moved(static_cast<ULONG>(Hex(row.bytes).size()))) << row.bytes;
    const Written written = WriteTo(fixed, Hex(row.bytes).size());
    EXPECT_EQ(ToHex(written.bytes), row.bytes);
    const auto variable = NewArray(ArrayDefinition(row.element));
    const std::string counted = "02 00 00 00 " + std::string(row.bytes);
    EXPECT_EQ(ReadFrom(variable, counted), Moved(static_cast<ULONG>(Hex(counted).size()))) << counted;
    EXPECT_EQ(Count(variable), 2);
    EXPECT_EQ(ToHex(WriteTo(variable, Hex(counted).size()).bytes), counted);
    ExpectShortReads(counted, [&] { return NewArray(ArrayDefinition(row.element)); });
  }
}

TEST(ArrayBytes, PacketSizeTrustsTheDefinitionsSize) {
  const auto definition = Named();
  const auto array = NewArray(ArrayDefinition(definition, 2));
  PutItem(At(array, 0), OLESTR("name"), Text(OLESTR("a long name")));
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 1u);
  EXPECT_EQ(PacketSize(array), 2u);
  EXPECT_EQ(WriteTo(array, 64).outcome, Moved(2 + 11 + 1 + 2 + 0 + 1));
}

TEST(ArrayBytes, PacketSizeTakesSixteenBitsOfTheElementSize) {
  const auto element = SimpleArrayDefinition(kByte, 0x10008);
  EXPECT_EQ(Get(element, &IValueDefBase::get_DataSize), 0x10008u);
  EXPECT_EQ(PacketSize(NewArray(ArrayDefinition(element, 3))), 24u);
  const auto variable = NewArray(ArrayDefinition(element));
  Add(variable, Object(NewValue(element)));
  EXPECT_EQ(PacketSize(variable), 12u);
}

TEST(ArrayBytes, PacketSizeAsksElementsWhenTheirDefinitionHasNoSize) {
  const auto element = SimpleArrayDefinition(kShort);
  const auto array = NewArray(ArrayDefinition(element, 2));
  EXPECT_EQ(PacketSize(array), 8u);
  AddAll(At(array, 0).As<IArray>(), {1, 2, 3});
  EXPECT_EQ(PacketSize(array), 14u);
}

TEST(ArrayBytes, PacketSizeOfAnEmptySlotFailsOnlyWhenElementsAreAsked) {
  const auto points = Points({1, 2});
  EmptySlot(points, 1);
  EXPECT_EQ(PacketSize(points), 16u);
  const auto arrays = NewArray(ArrayDefinition(SimpleArrayDefinition(kShort), 2));
  EmptySlot(arrays, 1);
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return arrays->get_PacketSize(&size); }));
}

TEST(ArrayBytes, PacketSizeWithoutAnElementDefinitionFails) {
  const auto definition = ArrayDefinition(Point());
  const auto array = NewArray(definition);
  EXPECT_EQ(definition->put_ValueType(nullptr), S_OK);
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_PacketSize(&size); }));
}

TEST(ArrayBytes, EveryRoomThatIsTooSmallReportsIt) {
  ExpectShortWrites(Points({1, 2}), "02 00 00 00 01 00 00 00 00 00 02 00 00 00 00 00", {4, 6, 6});
  ExpectShortWrites(Points({1, 2}, 2), "01 00 00 00 00 00 02 00 00 00 00 00", {6, 6});
}

TEST(ArrayBytes, WritingAnEmptySlotFails) {
  const auto array = Points({1, 2});
  EmptySlot(array, 1);
  GuardedBuffer buffer(64);
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->WriteToBuffer(buffer.data(), 64, &count, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_EQ(count, kUntouched);
}

TEST(ArrayBytes, ReadingKeepsTheElementsThatAreThere) {
  const auto array = Points({1, 2, 3});
  const auto first = At(array, 0);
  EXPECT_EQ(ReadFrom(array, "02 00 00 00 0A 00 00 00 01 00 14 00 00 00 02 00"), Moved(16));
  EXPECT_EQ(Count(array), 2);
  EXPECT_TRUE(SameObject(At(array, 0).get(), first.get()));
  EXPECT_EQ(X(array, 0), "I4 10");
  EXPECT_EQ(X(array, 1), "I4 20");
}

TEST(ArrayBytes, ReadingFillsEmptySlotsWithFreshElements) {
  const auto array = Points({1}, 1);
  EmptySlot(array, 0);
  EXPECT_EQ(ReadFrom(array, "0A 00 00 00 01 00"), Moved(6));
  EXPECT_EQ(X(array, 0), "I4 10");
}

TEST(ArrayBytes, CutReadingKeepsTheCountAndWhatArrived) {
  const auto array = Points({});
  EXPECT_EQ(ReadFrom(array, "05 00 00 00 0A 00 00 00 01 00 14 00 00 00 02 00"), TooShort());
  EXPECT_EQ(Count(array), 5);
  EXPECT_EQ(X(array, 0), "I4 10");
  EXPECT_EQ(X(array, 1), "I4 20");
  EXPECT_TRUE(At(array, 2)) << "the element at which the reading stopped";
  EXPECT_FALSE(At(array, 3));
  EXPECT_FALSE(At(array, 4));
}

TEST(ArrayBytes, CutReadingOfAFixedArrayKeepsItsElements) {
  const auto array = Points({1, 2, 3}, 3);
  EXPECT_EQ(ReadFrom(array, "0A 00 00 00 01 00 14 00"), TooShort());
  EXPECT_EQ(Count(array), 3);
  EXPECT_EQ(X(array, 0), "I4 10");
  EXPECT_EQ(X(array, 1), "I4 2");
  EXPECT_EQ(X(array, 2), "I4 3");
}

TEST(ArrayBytes, ReadingLessThanACountChangesNothing) {
  const auto array = Points({1, 2});
  for (std::size_t size = 0; size < 4; ++size) EXPECT_EQ(ReadFrom(array, Bytes(size, 0)), TooShort());
  EXPECT_EQ(Count(array), 2);
}

TEST(ArrayBytes, CountOfFourThousandMillionIsKeptWithoutItsMemory) {
  const MemoryLimit limit;
  const auto array = Points({});
  EXPECT_EQ(ReadFrom(array, "00 28 6B EE 0A 00 00 00 01 00 00 00"), TooShort());
  EXPECT_EQ(static_cast<ULONG>(Count(array)), 4000000000u);
  EXPECT_EQ(X(array, 0), "I4 10");
  EXPECT_FALSE(At(array, 1000000000));
  Ptr<IValueBase> copy;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Copy(copy.Out()); }));
  EXPECT_EQ(WriteTo(array, 64).outcome, (Outcome{E_POINTER, VARIANT_FALSE, kUntouched}));
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(static_cast<ULONG>(Count(array)), 3999999999u);
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Count(array), 0);
  EXPECT_TRUE(limit.Kept());
}

TEST(ArrayBytes, NestedCountsThatTheBufferCannotHoldUseNoMemory) {
  const MemoryLimit limit;
  const auto array = NewArray(ArrayDefinition(SimpleArrayDefinition(kReal)));
  EXPECT_EQ(ReadFrom(array, "00 28 6B EE 00 28 6B EE 00 00 00 00"), TooShort());
  EXPECT_TRUE(limit.Kept());
}

TEST(ArrayBytes, ArrayThatHoldsItselfFailsCleanly) {
  const auto array = NewArray(ArrayDefinition(SimpleArrayDefinition(kLong)));
  Add(array, Object(array));
  ASSERT_TRUE(SameObject(At(array, 0).get(), array.get()));
  ULONG size = 0;
  Ptr<IValueBase> copy;
  const Outcome too_deep{E_INVALIDARG, VARIANT_FALSE, kUntouched};
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->Copy(copy.Out()); }));
  EXPECT_EQ(WriteTo(array, 100000).outcome, too_deep);
  Bytes ones;
  for (int i = 0; i < 20000; ++i) ones.insert(ones.end(), {1, 0, 0, 0});
  EXPECT_EQ(ReadFrom(array, ones), too_deep);
  EXPECT_EQ(array->RemoveAll(), S_OK);
}

TEST(ArrayBytes, NullArgumentsAreRejected) { ExpectNullBufferArgumentsRejected(Points({1})); }

}  // namespace
}  // namespace halyard::test
