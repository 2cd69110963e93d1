// The growable array of elementary values. Its bytes are in simple_array_bytes_test.cpp.
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "halyard/values/arrays/simple_array.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_composites.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IArray> New(SHORT type) { return NewArray(SimpleArrayDefinition(type, 0, 31)); }
Ptr<IArray> Untyped() { return CreateObject<ISimpleArray>(kSimpleArrayClass); }

// An array of Short with these elements.
Ptr<IArray> Shorts(std::initializer_list<LONG> numbers) {
  const auto array = New(kShort);
  AddAll(array, numbers);
  return array;
}

bool HasInfo(const Ptr<IArray>& array) {
  Ptr<IValueDefBase> info;
  return array->get_Info(info.Out()) == S_OK;
}

LONG_PTR Address(const Ptr<IArray>& array) {
  return Get(array.As<ISimpleArray>(), &ISimpleArray::get_GetDataPointer);
}

// The bytes at the array's data pointer.
std::string Block(const Ptr<IArray>& array, std::size_t size) {
  Bytes bytes(size);
  std::memcpy(bytes.data(), reinterpret_cast<const void*>(Address(array)), size);
  return ToHex(bytes);
}

TEST(SimpleArray, StartsEmpty) {
  const auto array = New(kShort);
  EXPECT_EQ(ClassOf(array.get()), "SimpleArray");
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray);
  EXPECT_EQ(Get(array, &IValueBase::get_TypeString), "Array");
  EXPECT_EQ(Get(array, &IValueBase::get_Id), 31);
}

TEST(SimpleArray, ElementsOfEveryType) {
  const struct {
    SHORT type;
    Variant content;
    const char* item;
    const char* bytes;
  } rows[] = {
      {kChar, I4(200), "UI1 200", "C8"},
      {kByte, Text(OLESTR("7")), "UI1 7", "07"},
      {kShort, R8(-2.5), "I2 -2", "FE FF"},
      {kWord, I4(-1), "I2 -1", "FF FF"},
      {kLong, Variant::FromBool(true), "I4 -1", "FF FF FF FF"},
      {kDWord, I4(-2), "I4 -2", "FE FF FF FF"},
      {kInt64, I4(-2), "I4 -2", "FE FF FF FF"},
      {kShortReal, R8(1.5), "R4 1.5", "00 00 C0 3F"},
      {kReal, I2(1), "R8 1", "00 00 00 00 00 00 F0 3F"},
      {kDate, Date(38061.521354166667), "DATE 38061.521354166667", "D4 07 0F 03 1E 0C 00 2D"},
  };
  for (const auto& row : rows) {
    const auto array = New(row.type);
    Add(array, row.content);
    EXPECT_EQ(Item(array, 0), row.item) << row.type;
    EXPECT_EQ(Encoded(array), std::string("01 00 00 00 ") + row.bytes) << row.type;
    PutItem(array, 0, row.content);
    EXPECT_EQ(Item(array, 0), row.item) << row.type;
    EXPECT_EQ(Get(array, &IValueBase::get_Name, I4(0)), "") << row.type;
    EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray) << row.type;
    EXPECT_EQ(Get(array, &IValueBase::get_TypeString), "Array") << row.type;
  }
}

TEST(SimpleArray, ValuesThatDoNotConvertAreRaised) {
  const auto array = Shorts({1});
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(array, 0, Text(OLESTR("x"))); }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return TryPutItem(array, 0, I4(70000)); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(array, 0, Variant::Null()); }));
  EXPECT_EQ(Items(array), "I2 1");
}

TEST(SimpleArray, AddThatDoesNotConvertLeavesAnElementBehind) {
  const auto array = Shorts({1});
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return array->Add(I4(70000).get()); }));
  EXPECT_EQ(Items(array), "I2 1, I2 0");
  PutItem(array, 1, I4(5));
  EXPECT_EQ(Items(array), "I2 1, I2 5");
}

TEST(SimpleArray, AddThatDoesNotConvertShowsNothingOfARemovedElement) {
  for (const LONG removed : {0, 1, 2}) {
    const auto array = Shorts({3, 3, 3});
    EXPECT_EQ(array->Remove(I4(removed).get()), S_OK);
    EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return array->Add(I4(70000).get()); }));
    EXPECT_EQ(Items(array), "I2 3, I2 3, I2 0") << removed;
  }
}

TEST(SimpleArray, GrowsByTenSlots) {
  const auto array = New(kLong);
  for (LONG i = 0; i < 25; ++i) Add(array, I4(i * 3));
  EXPECT_EQ(Count(array), 25);
  for (LONG i = 0; i < 25; ++i) EXPECT_EQ(Item(array, i), "I4 " + std::to_string(i * 3));
}

TEST(SimpleArray, RemoveMovesLaterElementsDown) {
  const auto array = Shorts({1, 2, 3, 4});
  EXPECT_EQ(array->Remove(I4(1).get()), S_OK);
  EXPECT_EQ(Items(array), "I2 1, I2 3, I2 4");
  EXPECT_EQ(array->Remove(I4(2).get()), S_OK);
  EXPECT_EQ(array->Remove(Text(OLESTR("0")).get()), S_OK);
  EXPECT_EQ(Items(array), "I2 3");
}

TEST(SimpleArray, ShrinksAndGrowsAgainWithoutLosingElements) {
  const auto array = New(kReal);
  for (LONG i = 0; i < 20; ++i) Add(array, I4(i));
  for (int i = 0; i < 9; ++i) EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(Count(array), 11);
  EXPECT_EQ(Item(array, 0), "R8 9");
  EXPECT_EQ(Item(array, 10), "R8 19");
  Add(array, I4(100));
  EXPECT_EQ(Item(array, 11), "R8 100");
  while (Count(array) > 0) EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  Add(array, I4(5));
  EXPECT_EQ(Items(array), "R8 5");
}

TEST(SimpleArray, RemoveAllFreesTheBlockAndKeepsTheType) {
  const auto array = Shorts({1, 2});
  EXPECT_NE(Address(array), 0);
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Address(array), 0);
  EXPECT_TRUE(HasInfo(array));
  AddAll(array, {3});
  EXPECT_EQ(Encoded(array), "01 00 00 00 03 00");
}

TEST(SimpleArray, PositionsOutOfRangeAreInvalid) {
  const auto array = Shorts({1, 2});
  for (const LONG position : {LONG{2}, LONG{9}, LONG{10}, LONG{-1}, std::numeric_limits<LONG>::max(),
                              std::numeric_limits<LONG>::min()}) {
    Variant content;
    EXPECT_EQ(array->get_Item(I4(position).get(), content.Out()), E_INVALIDARG) << position;
    EXPECT_EQ(TryPutItem(array, position, I4(1)), E_INVALIDARG) << position;
    EXPECT_EQ(array->Remove(I4(position).get()), E_INVALIDARG) << position;
  }
  EXPECT_EQ(Items(array), "I2 1, I2 2");
}

TEST(SimpleArray, IndexThatIsNoNumberIsRaised) {
  const auto array = Shorts({1});
  const Variant index = Text(OLESTR("x"));
  Variant content;
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->get_Item(index.get(), content.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->put_Item(index.get(), I4(1).get()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->Remove(index.get()); }));
}

TEST(SimpleArray, Int64StoreOverwritesTheFollowingSlot) {
  const auto array = New(kInt64);
  AddAll(array, {1, 2, 3});
  EXPECT_EQ(Items(array), "I4 1, I4 2, I4 3");
  PutItem(array, 0, I4(-5));
  EXPECT_EQ(Items(array), "I4 -5, I4 -1, I4 3");
  PutItem(array, 1, I4(6));
  EXPECT_EQ(Items(array), "I4 -5, I4 6, I4 0");
}

TEST(SimpleArray, Int64StoreIntoTheLastSlotStaysInsideTheBlock) {
  for (const LONG elements : {1, 10, 11, 20}) {
    const auto array = New(kInt64);
    for (LONG i = 0; i < elements; ++i) Add(array, I4(-1));
    PutItem(array, elements - 1, I4(-7));
    EXPECT_EQ(Item(array, elements - 1), "I4 -7");
  }
}

TEST(SimpleArray, DataPointerLeadsToTheElements) {
  const auto array = Shorts({1, -1, 300});
  EXPECT_EQ(Block(array, 6), "01 00 FF FF 2C 01");
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(Block(array, 4), "FF FF 2C 01");
}

TEST(SimpleArray, AtIsNotImplemented) {
  const auto array = Shorts({1});
  Ptr<IValueBase> element;
  EXPECT_EQ(array->get_At(I4(0).get(), element.Out()), E_NOTIMPL);
}

TEST(SimpleArray, ValueIsTheArrayItself) {
  const auto array = Shorts({1});
  const auto value = Get(array, &IValueBase::get_Value);
  ASSERT_EQ(value.type(), VT_DISPATCH);
  EXPECT_TRUE(SameObject(value->pdispVal, array.get()));
  PutValue(array, I4(5));
  EXPECT_EQ(Items(array), "I2 1");
}

TEST(SimpleArray, CopyIsIndependent) {
  const auto array = Shorts({1, 2, 3});
  const auto copy = Get(array, &IValueBase::Copy).As<IArray>();
  EXPECT_EQ(ClassOf(copy.get()), "SimpleArray");
  EXPECT_TRUE(SameObject(Get(copy, &IValueBase::get_Info).get(), Get(array, &IValueBase::get_Info).get()));
  PutItem(copy, 0, I4(9));
  Add(copy, I4(4));
  EXPECT_EQ(Items(copy), "I2 9, I2 2, I2 3, I2 4");
  EXPECT_EQ(Items(array), "I2 1, I2 2, I2 3");
  EXPECT_EQ(Items(Get(New(kLong), &IValueBase::Copy).As<IArray>()), "");
}

TEST(SimpleArray, InfoIsTakenOnce) {
  const auto definition = SimpleArrayDefinition(kShort);
  const auto array = NewArray(definition);
  AddAll(array, {1, 2});
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kReal).get()), S_OK);
  EXPECT_EQ(Items(array), "I2 1, I2 2");
  EXPECT_TRUE(SameObject(Get(array, &IValueBase::get_Info).get(), definition.get()));
  EXPECT_EQ(array->put_Info(nullptr), E_INVALIDARG);
  EXPECT_EQ(Untyped()->put_Info(nullptr), E_INVALIDARG);
}

TEST(SimpleArray, UntypedArrayHasNoDefinition) {
  const auto array = Untyped();
  Ptr<IValueDefBase> info;
  SHORT id = 0;
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray);
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Info(info.Out()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Id(&id); }));
  EXPECT_EQ(Encoded(array), "00 00 00 00");
}

TEST(SimpleArray, UnsupportedElementTypeLeavesNoDefinition) {
  for (const SHORT type : {SHORT{0}, SHORT{kFixedString}, SHORT{kByteArray}}) {
    const auto array = NewArray(ArrayDefinition(SimpleDefinition(type, 4)));
    EXPECT_FALSE(HasInfo(array)) << type;
    EXPECT_EQ(Count(array), 0) << type;
    EXPECT_EQ(PacketSize(array), 4u) << type;
  }
}

TEST(SimpleArray, ElementTypeIsTheLowByteOfItsCode) {
  constexpr SHORT kLongAndMore = 0x100 + kLong;
  const auto element = NewForeign<ForeignDefinition>();
  element->type.value = kLongAndMore;
  const auto array = Untyped();
  EXPECT_EQ(array->put_Info(ArrayDefinition(element).get()), S_OK);
  EXPECT_TRUE(HasInfo(array));
  Add(array, I4(-2));
  EXPECT_EQ(Items(array), "I4 -2");
  EXPECT_EQ(Encoded(array), "01 00 00 00 FE FF FF FF");
}

TEST(SimpleArray, FixedCountLeavesNoDefinitionButItsCount) {
  const auto array = Untyped();
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kLong, 5).get()), S_OK);
  EXPECT_FALSE(HasInfo(array));
  EXPECT_EQ(Count(array), 5);
  EXPECT_EQ(Item(array, 4), "I4 0");
  PutItem(array, 4, I4(1));
  EXPECT_EQ(Encoded(array), "05 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 01 00 00 00");
}

TEST(SimpleArray, DefinitionOfSomebodyElseIsInvalid) {
  const auto definition = NewForeign<ForeignArrayDefinition>();
  definition->data_type.value = kLong;
  const auto array = Untyped();
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->put_Info(definition.get()); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->put_Info(SimpleDefinition(kLong).get()); }));
  EXPECT_FALSE(HasInfo(array));
  EXPECT_EQ(array->Add(I4(5).get()), S_OK);
  EXPECT_EQ(WriteTo(array, 64).outcome, Moved(4));
  const auto stranger = NewForeign<ForeignArrayDefinition>();
  stranger->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Untyped()->put_Info(stranger.get()); }));
}

TEST(SimpleArray, NullOutArgumentsAreRejected) {
  const auto array = Shorts({1});
  EXPECT_EQ(array->get_Item(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(array->get_Name(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(array->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(array->get_At(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(array->get_Value(nullptr), E_POINTER);
  EXPECT_EQ(array->Copy(nullptr), E_POINTER);
  EXPECT_EQ(array->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(array->get_Info(nullptr), E_POINTER);
  EXPECT_EQ(array->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(array->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(array->get_TypeString(nullptr), E_POINTER);
  EXPECT_EQ(array.As<ISimpleArray>()->get_GetDataPointer(nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
