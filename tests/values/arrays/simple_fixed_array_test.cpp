// The array of a fixed number of elementary values over its own block.
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

Ptr<IArray> New(SHORT type, LONG count) { return NewArray(SimpleArrayDefinition(type, count, 32)); }
Ptr<IArray> Untyped() { return CreateObject<ISimpleFixedArray>(kSimpleFixedArrayClass); }

// An array of Short with these elements.
Ptr<IArray> Shorts(std::initializer_list<LONG> numbers) {
  const auto array = New(kShort, static_cast<LONG>(numbers.size()));
  LONG position = 0;
  for (const LONG number : numbers) PutItem(array, position++, I4(number));
  return array;
}

TEST(SimpleFixedArray, HasItsElementsFromTheStart) {
  const auto array = New(kReal, 5);
  EXPECT_EQ(ClassOf(array.get()), "SimpleFixedArray");
  EXPECT_EQ(Count(array), 5);
  EXPECT_EQ(PacketSize(array), 40u);
  EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray);
  EXPECT_EQ(Get(array, &IValueBase::get_TypeString), "Array");
  EXPECT_EQ(Get(array, &IValueBase::get_Id), 32);
  EXPECT_EQ(Get(array, &IValueBase::get_Name, I4(0)), "");
}

TEST(SimpleFixedArray, AnswersTheInterfacesOfSimpleArrays) {
  const auto array = New(kReal, 5);
  EXPECT_TRUE(array.As<ISimpleFixedArray>());
  EXPECT_TRUE(array.As<ISimpleArray>());
  EXPECT_TRUE(array.As<IArray>());
  EXPECT_TRUE(array.As<IValueBase>());
  EXPECT_TRUE(array.As<IDispatch>());
  EXPECT_TRUE(array.As<IObjectSafety>());
}

TEST(SimpleFixedArray, ElementsOfEveryType) {
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
    const auto array = New(row.type, 2);
    PutItem(array, 0, row.content);
    PutItem(array, 1, row.content);
    EXPECT_EQ(Items(array), std::string(row.item) + ", " + row.item) << row.type;
    EXPECT_EQ(Encoded(array), std::string(row.bytes) + " " + row.bytes) << row.type;
    EXPECT_EQ(Get(array, &IValueBase::get_Name, I4(1)), "") << row.type;
    EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray) << row.type;
    EXPECT_EQ(Get(array, &IValueBase::get_TypeString), "Array") << row.type;
  }
}

TEST(SimpleFixedArray, NeitherGrowsNorShrinks) {
  const auto array = Shorts({1, 2});
  Add(array, I4(3));
  Add(array, Text(OLESTR("x")));
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(array->Remove(Text(OLESTR("x")).get()), S_OK);
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Items(array), "I2 1, I2 2");
}

TEST(SimpleFixedArray, PositionsOutOfRangeAreInvalid) {
  const auto array = Shorts({1, 2});
  for (const LONG position : {LONG{2}, LONG{65536}, LONG{65537}, LONG{-1}, std::numeric_limits<LONG>::max(),
                              std::numeric_limits<LONG>::min()}) {
    Variant content;
    EXPECT_EQ(array->get_Item(I4(position).get(), content.Out()), E_INVALIDARG) << position;
    EXPECT_EQ(TryPutItem(array, position, I4(1)), E_INVALIDARG) << position;
  }
  EXPECT_EQ(Items(array), "I2 1, I2 2");
}

TEST(SimpleFixedArray, FailingConversionsAreRaised) {
  const auto array = Shorts({1});
  Variant content;
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(array, 0, Text(OLESTR("x"))); }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return TryPutItem(array, 0, I4(70000)); }));
  EXPECT_TRUE(
      Raises(DISP_E_TYPEMISMATCH, [&] { return array->get_Item(Text(OLESTR("x")).get(), content.Out()); }));
  EXPECT_EQ(Items(array), "I2 1");
}

TEST(SimpleFixedArray, Int64StoreOverwritesTheFollowingSlot) {
  const auto array = New(kInt64, 3);
  for (LONG i = 0; i < 3; ++i) PutItem(array, i, I4(i + 1));
  PutItem(array, 0, I4(-5));
  EXPECT_EQ(Items(array), "I4 -5, I4 -1, I4 3");
  PutItem(array, 2, I4(-9));
  EXPECT_EQ(Items(array), "I4 -5, I4 -1, I4 -9");
}

TEST(SimpleFixedArray, DataPointerLeadsToTheElements) {
  const auto array = Shorts({1, -1});
  const auto address = Get(array.As<ISimpleArray>(), &ISimpleArray::get_GetDataPointer);
  Bytes bytes(4);
  std::memcpy(bytes.data(), reinterpret_cast<const void*>(address), 4);
  EXPECT_EQ(ToHex(bytes), "01 00 FF FF");
  const SHORT number = 77;
  std::memcpy(reinterpret_cast<void*>(address), &number, 2);
  EXPECT_EQ(Items(array), "I2 77, I2 -1");
}

TEST(SimpleFixedArray, AtIsNotImplemented) {
  Ptr<IValueBase> element;
  EXPECT_EQ(Shorts({1})->get_At(I4(0).get(), element.Out()), E_NOTIMPL);
}

TEST(SimpleFixedArray, ValueIsTheArrayItself) {
  const auto array = Shorts({1});
  const auto value = Get(array, &IValueBase::get_Value);
  ASSERT_EQ(value.type(), VT_DISPATCH);
  EXPECT_TRUE(SameObject(value->pdispVal, array.get()));
  PutValue(array, I4(5));
  EXPECT_EQ(Items(array), "I2 1");
}

TEST(SimpleFixedArray, CopyIsIndependent) {
  const auto array = Shorts({1, 2});
  const auto copy = Get(array, &IValueBase::Copy).As<IArray>();
  EXPECT_EQ(ClassOf(copy.get()), "SimpleFixedArray");
  EXPECT_TRUE(SameObject(Get(copy, &IValueBase::get_Info).get(), Get(array, &IValueBase::get_Info).get()));
  PutItem(copy, 0, I4(9));
  EXPECT_EQ(Items(copy), "I2 9, I2 2");
  EXPECT_EQ(Items(array), "I2 1, I2 2");
}

TEST(SimpleFixedArray, EncodingIsTheElementsAlone) {
  const auto array = Shorts({1, -1, 300});
  EXPECT_EQ(Encoded(array), "01 00 FF FF 2C 01");
  ExpectShortWrites(array, "01 00 FF FF 2C 01", {6});
}

TEST(SimpleFixedArray, ReadsExactlyItsBytes) {
  const auto array = Shorts({1, 2});
  EXPECT_EQ(ReadFrom(array, "05 00 06 00 FF FF"), Moved(4));
  EXPECT_EQ(Items(array), "I2 5, I2 6");
  for (std::size_t size = 0; size < 4; ++size) EXPECT_EQ(ReadFrom(array, Bytes(size, 9)), TooShort());
  EXPECT_EQ(Items(array), "I2 5, I2 6");
}

TEST(SimpleFixedArray, CountIsCutToSixteenBits) {
  constexpr struct {
    LONG wish;
    LONG count;
  } kRows[] = {{65535, 65535}, {65536, 0}, {65541, 5}, {-1, 65535}, {0x10000 * 3 + 2, 2}};
  for (const auto& row : kRows) {
    const auto array = New(kShort, row.wish);
    EXPECT_EQ(Count(array), row.count) << row.wish;
    EXPECT_EQ(PacketSize(array), 2u * static_cast<ULONG>(row.count));
    EXPECT_EQ(ReadFrom(array, Bytes(2 * static_cast<std::size_t>(row.count), 1)),
              Moved(2 * static_cast<ULONG>(row.count)));
    EXPECT_EQ(TryPutItem(array, row.count, I4(1)), E_INVALIDARG);
  }
}

TEST(SimpleFixedArray, UnsupportedElementTypeLeavesNoDefinition) {
  for (const SHORT type : {SHORT{0}, SHORT{kFixedString}, SHORT{kByteArray}}) {
    const auto array = NewArray(ArrayDefinition(SimpleDefinition(type, 4), 3));
    Ptr<IValueDefBase> info;
    EXPECT_EQ(array->get_Info(info.Out()), E_POINTER) << type;
    EXPECT_EQ(Count(array), 3) << type;
    EXPECT_EQ(PacketSize(array), 0u) << type;
    EXPECT_EQ(Items(array), "BSTR , BSTR , BSTR ") << type;
    EXPECT_EQ(WriteTo(array, 0).outcome, Moved(0)) << type;
  }
}

TEST(SimpleFixedArray, ElementsThatCannotBeHeldStoreNothing) {
  const auto texts = NewArray(ArrayDefinition(SimpleDefinition(kFixedString, 4), 2));
  PutItem(texts, 0, Text(OLESTR("ab")));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(texts, 0, Variant::Null()); }));
  EXPECT_EQ(TryPutItem(texts, 2, Text(OLESTR("ab"))), E_INVALIDARG);
  EXPECT_EQ(Items(texts), "BSTR , BSTR ");
  const auto bytes = NewArray(ArrayDefinition(SimpleDefinition(kByteArray, 4), 2));
  for (const Variant& value : {Text(OLESTR("ab")), Variant::Null(), I4(5)}) PutItem(bytes, 0, value);
  EXPECT_EQ(Items(bytes), "BSTR , BSTR ");
}

TEST(SimpleFixedArray, DefinitionOfSomebodyElseIsInvalid) {
  const auto definition = NewForeign<ForeignArrayDefinition>();
  definition->data_type.value = kLong;
  definition->count.value = 3;
  const auto array = Untyped();
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->put_Info(definition.get()); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return array->put_Info(SimpleDefinition(kLong).get()); }));
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kLong, 2).get()), S_OK);
  EXPECT_EQ(Count(array), 2);
}

TEST(SimpleFixedArray, InfoIsTakenOnce) {
  const auto array = Shorts({1, 2});
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kReal, 50).get()), S_OK);
  EXPECT_EQ(Items(array), "I2 1, I2 2");
  EXPECT_EQ(array->put_Info(nullptr), E_INVALIDARG);
}

TEST(SimpleFixedArray, UntypedArrayHasNothing) {
  const auto array = Untyped();
  Ptr<IValueDefBase> info;
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(PacketSize(array), 0u);
  SHORT id = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Info(info.Out()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Id(&id); }));
  EXPECT_EQ(array->put_Info(nullptr), E_INVALIDARG);
  EXPECT_EQ(TryPutItem(array, 0, I4(1)), E_INVALIDARG);
}

TEST(SimpleFixedArray, NullOutArgumentsAreRejected) {
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
  ExpectNullBufferArgumentsRejected(array);
}

}  // namespace
}  // namespace halyard::test
