// The array of texts. Its bytes are in string_array_bytes_test.cpp.
#include <gtest/gtest.h>

#include <limits>

#include "halyard/values/arrays/string_array.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_composites.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IArray> New(LONG count = 0) { return NewArray(SimpleArrayDefinition(kString, count, 41)); }
Ptr<IArray> Untyped() { return CreateObject<IStringArray>(kStringArrayClass); }

Ptr<IArray> Texts(std::initializer_list<const OLECHAR*> texts) {
  const auto array = New();
  for (const OLECHAR* text : texts) Add(array, Text(text));
  return array;
}

TEST(StringArray, VariableArrayStartsEmpty) {
  const auto array = New();
  EXPECT_EQ(ClassOf(array.get()), "StringArray");
  EXPECT_EQ(Count(array), 0);
  EXPECT_EQ(Get(array, &IValueBase::get_Type), kArray);
  EXPECT_EQ(Get(array, &IValueBase::get_TypeString), "Array");
  EXPECT_EQ(Get(array, &IValueBase::get_Id), 41);
  EXPECT_EQ(Get(array, &IValueBase::get_Name, I4(0)), "");
}

TEST(StringArray, AddsAndReadsTexts) {
  EXPECT_EQ(Items(Texts({OLESTR("ab"), OLESTR(""), OLESTR("c")})), "BSTR ab, BSTR , BSTR c");
}

TEST(StringArray, ValuesAreConvertedToText) {
  const auto array = New();
  Add(array, I4(-12));
  Add(array, R8(1.5));
  Add(array, Variant());
  Add(array, Variant::FromBool(true));
  EXPECT_EQ(Items(array), "BSTR -12, BSTR 1.5, BSTR , BSTR -1");
  PutItem(array, 0, I4(7));
  EXPECT_EQ(Item(array, 0), "BSTR 7");
}

TEST(StringArray, TextsAreKeptNarrow) { EXPECT_EQ(Items(Texts({OLESTR("\u00E9\u4E2D")})), "BSTR \\u00E9?"); }

TEST(StringArray, ValuesThatDoNotConvertAreRaised) {
  const auto array = Texts({OLESTR("ab")});
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(array, 0, Variant::Null()); }));
  EXPECT_EQ(Items(array), "BSTR ab");
}

TEST(StringArray, AddThatDoesNotConvertLeavesAnEmptyTextBehind) {
  const auto array = Texts({OLESTR("ab")});
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->Add(Variant::Null().get()); }));
  EXPECT_EQ(Items(array), "BSTR ab, BSTR ");
}

TEST(StringArray, RemoveMovesLaterTextsDown) {
  const auto array = Texts({OLESTR("a"), OLESTR("b"), OLESTR("c")});
  EXPECT_EQ(array->Remove(I4(1).get()), S_OK);
  EXPECT_EQ(Items(array), "BSTR a, BSTR c");
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Count(array), 0);
}

TEST(StringArray, FixedArrayNeitherGrowsNorShrinks) {
  const auto array = New(2);
  EXPECT_EQ(Count(array), 2);
  Add(array, Text(OLESTR("x")));
  Add(array, Variant::Null());
  EXPECT_EQ(array->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Items(array), "BSTR , BSTR ");
  PutItem(array, 1, Text(OLESTR("y")));
  EXPECT_EQ(Items(array), "BSTR , BSTR y");
}

TEST(StringArray, ModeIsAskedOfTheDefinitionEachTime) {
  const auto definition = SimpleArrayDefinition(kString);
  const auto array = NewArray(definition);
  Add(array, Text(OLESTR("a")));
  EXPECT_EQ(definition->put_ElementCount(5), S_OK);
  Add(array, Text(OLESTR("b")));
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Items(array), "BSTR a");
  EXPECT_EQ(definition->put_ElementCount(0), S_OK);
  Add(array, Text(OLESTR("b")));
  EXPECT_EQ(Items(array), "BSTR a, BSTR b");
}

TEST(StringArray, PositionsOutOfRangeAreInvalid) {
  const auto array = Texts({OLESTR("a"), OLESTR("b")});
  for (const LONG position :
       {LONG{2}, LONG{-1}, std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::min()}) {
    Variant content;
    EXPECT_EQ(array->get_Item(I4(position).get(), content.Out()), E_INVALIDARG) << position;
    EXPECT_EQ(TryPutItem(array, position, Text(OLESTR("x"))), E_INVALIDARG) << position;
    EXPECT_EQ(array->Remove(I4(position).get()), E_INVALIDARG) << position;
  }
  EXPECT_EQ(Count(array), 2);
}

TEST(StringArray, IndicesAreConverted) {
  const auto array = Texts({OLESTR("a"), OLESTR("b")});
  EXPECT_EQ(Describe(Get(array, &IValueBase::get_Item, Text(OLESTR("1")))), "BSTR b");
  Variant content;
  EXPECT_TRUE(
      Raises(DISP_E_TYPEMISMATCH, [&] { return array->get_Item(Text(OLESTR("x")).get(), content.Out()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return array->Remove(Text(OLESTR("x")).get()); }));
}

TEST(StringArray, AtIsNotImplemented) {
  Ptr<IValueBase> element;
  EXPECT_EQ(Texts({OLESTR("a")})->get_At(I4(0).get(), element.Out()), E_NOTIMPL);
}

TEST(StringArray, ValueIsTheArrayItself) {
  const auto array = Texts({OLESTR("a")});
  const auto value = Get(array, &IValueBase::get_Value);
  ASSERT_EQ(value.type(), VT_DISPATCH);
  EXPECT_TRUE(SameObject(value->pdispVal, array.get()));
  PutValue(array, Text(OLESTR("x")));
  EXPECT_EQ(Items(array), "BSTR a");
}

TEST(StringArray, CopyIsIndependent) {
  const auto array = Texts({OLESTR("a"), OLESTR("b")});
  const auto copy = Get(array, &IValueBase::Copy).As<IArray>();
  EXPECT_EQ(ClassOf(copy.get()), "StringArray");
  PutItem(copy, 0, Text(OLESTR("x")));
  Add(copy, Text(OLESTR("y")));
  EXPECT_EQ(Items(copy), "BSTR x, BSTR b, BSTR y");
  EXPECT_EQ(Items(array), "BSTR a, BSTR b");
  EXPECT_TRUE(SameObject(Get(copy, &IValueBase::get_Info).get(), Get(array, &IValueBase::get_Info).get()));
}

TEST(StringArray, NullInfoFailsUnlikeInTheOtherArrays) {
  EXPECT_EQ(Untyped()->put_Info(nullptr), E_POINTER);
  EXPECT_EQ(New()->put_Info(nullptr), E_POINTER);
}

TEST(StringArray, InfoIsTakenOnce) {
  const auto array = New(2);
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kString, 9).get()), S_OK);
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kLong, 9).get()), S_OK);
  EXPECT_EQ(Count(array), 2);
}

TEST(StringArray, DefinitionOfAnotherElementTypeIsDropped) {
  const auto array = Untyped();
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kShort, 3).get()), S_OK);
  EXPECT_EQ(Count(array), 0);
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Add(Text(OLESTR("x")).get()); }));
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kString, 3).get()), S_OK);
  EXPECT_EQ(Count(array), 3);
}

TEST(StringArray, CallsThatNeedADefinitionFailWithoutOne) {
  const auto array = Untyped();
  Ptr<IValueDefBase> info;
  SHORT id = 0;
  ULONG size = 0;
  unsigned char bytes[8] = {};
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Add(Text(OLESTR("x")).get()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->Remove(I4(0).get()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->RemoveAll(); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Info(info.Out()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_Id(&id); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->WriteToBuffer(bytes, 8, &size, &result); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->ReadFromBuffer(bytes, 8, &size, &result); }));
  EXPECT_EQ(Count(array), 0);
}

TEST(StringArray, ServesADefinitionOfSomebodyElse) {
  const auto definition = NewForeign<ForeignArrayDefinition>();
  const auto array = Untyped();
  EXPECT_EQ(array->put_Info(definition.get()), S_OK);
  Add(array, Text(OLESTR("a")));
  EXPECT_EQ(Items(array), "BSTR a");
  definition->count.status = E_ABORT;
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->Add(Text(OLESTR("b")).get()); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->Remove(I4(0).get()); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->RemoveAll(); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->get_PacketSize(&size); }));
  unsigned char bytes[8] = {};
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->WriteToBuffer(bytes, 8, &size, &result); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->ReadFromBuffer(bytes, 8, &size, &result); }));
  definition->id.status = E_ABORT;
  SHORT id = 0;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return array->get_Id(&id); }));
  EXPECT_EQ(Items(array), "BSTR a");
}

TEST(StringArray, DefinitionThatFailsWhileItIsTakenStays) {
  const auto definition = NewForeign<ForeignArrayDefinition>();
  definition->count.value = 2;
  for (HRESULT* status : {&definition->data_type.status, &definition->count.status}) {
    const auto array = Untyped();
    *status = E_ABORT;
    EXPECT_TRUE(Raises(E_ABORT, [&] { return array->put_Info(definition.get()); }));
    *status = S_OK;
    EXPECT_TRUE(SameObject(Get(array, &IValueBase::get_Info).get(), definition.get()));
    EXPECT_EQ(Count(array), 0);
    EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kString, 3).get()), S_OK);
    EXPECT_EQ(Count(array), 0);
  }
}

TEST(StringArray, ObjectThatIsNoArrayDefinitionIsNotTaken) {
  const auto array = Untyped();
  EXPECT_TRUE(Raises(E_POINTER, [&] { return array->put_Info(SimpleDefinition(kString).get()); }));
  EXPECT_EQ(array->put_Info(SimpleArrayDefinition(kString, 3).get()), S_OK);
  EXPECT_EQ(Count(array), 3);
}

TEST(StringArray, HasNoNumbersToTransfer) {
  const auto array = Texts({OLESTR("1"), OLESTR("2")});
  for (const OLECHAR* path : {OLESTR(""), OLESTR("x"), OLESTR("[0]")}) {
    GuardedBuffer buffer(16);
    const Bstr text(path);
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ(array->BuildNumericArray(text.get(), I2(kLong).get(), buffer.data(), &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    result = VARIANT_TRUE;
    EXPECT_EQ(array->ReadNumericArray(text.get(), I2(kLong).get(), buffer.data(), &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    EXPECT_EQ(buffer.Contents(), Bytes(16, GuardedBuffer::kFiller));
    EXPECT_EQ(array->BuildNumericArray(text.get(), I2(kLong).get(), buffer.data(), nullptr), E_POINTER);
    EXPECT_EQ(array->ReadNumericArray(text.get(), I2(kLong).get(), buffer.data(), nullptr), E_POINTER);
  }
  EXPECT_EQ(Items(array), "BSTR 1, BSTR 2");
}

TEST(StringArray, NullOutArgumentsAreRejected) {
  const auto array = Texts({OLESTR("a")});
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
  ExpectNullBufferArgumentsRejected(array);
}

}  // namespace
}  // namespace halyard::test
