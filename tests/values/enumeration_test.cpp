// Values of an enumeration: their number, their definition and their bytes.
#include <gtest/gtest.h>

#include "halyard/values/enumeration.h"
#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_composites.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IValueBase> Untyped() { return CreateObject<IEnumeration>(kEnumerationClass); }

Ptr<IEnumerationDef> Colours(SHORT stored_type = kShort) {
  return EnumerationDefinition(stored_type, {{OLESTR("Red"), 5}, {OLESTR("Green"), 9}}, 21);
}

Ptr<IValueBase> Colour(SHORT stored_type = kShort) { return NewValue(Colours(stored_type)); }

TEST(Enumeration, StartsAsTheFirstElement) {
  const auto value = Colour();
  EXPECT_EQ(ValueOf(value), "I4 5");
  EXPECT_EQ(Get(value, &IValueBase::get_Type), kEnumeration);
  EXPECT_EQ(Get(value, &IValueBase::get_TypeString), "Enumeration");
  EXPECT_EQ(Get(value, &IValueBase::get_Id), 21);
  EXPECT_EQ(Get(value, &IValueBase::get_Count), 0);
}

TEST(Enumeration, WithoutElementsStartsAsZero) {
  const auto definition = EnumerationDefinition(kLong, {});
  const auto value = NewValue(definition);
  EXPECT_EQ(ValueOf(value), "I4 0");
  EXPECT_TRUE(SameObject(Get(value, &IValueBase::get_Info).get(), definition.get()));
}

TEST(Enumeration, ItemReadsTheNumberWhateverTheIndex) {
  const auto value = Colour();
  EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, I4(0))), "I4 5");
  EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, I4(-77))), "I4 5");
  EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, Text(OLESTR("Green")))), "I4 5");
  EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, Variant())), "I4 5");
}

TEST(Enumeration, NameIsEmptyWhateverTheIndex) {
  const auto value = Colour();
  EXPECT_EQ(Get(value, &IValueBase::get_Name, I4(0)), "");
  EXPECT_EQ(Get(value, &IValueBase::get_Name, Text(OLESTR("Red"))), "");
}

TEST(Enumeration, ValueIsConvertedToANumber) {
  const struct {
    Variant content;
    const char* value;
  } rows[] = {{I4(42), "I4 42"},
              {Text(OLESTR("9")), "I4 9"},
              {I2(-3), "I4 -3"},
              {Ui1(200), "I4 200"},
              {R8(2.5), "I4 2"},
              {R8(3.5), "I4 4"},
              {Variant(), "I4 0"},
              {Variant::FromBool(true), "I4 -1"},
              {Text(OLESTR("-12")), "I4 -12"},
              {R8(-2147483648.0), "I4 -2147483648"}};
  for (const auto& row : rows) {
    const auto value = Colour();
    PutValue(value, row.content);
    EXPECT_EQ(ValueOf(value), row.value);
  }
}

TEST(Enumeration, AnyNumberIsAcceptedWithoutComplaint) {
  const auto value = Colour();
  PutValue(value, I4(42));
  EXPECT_EQ(ValueOf(value), "I4 42");
  EXPECT_EQ(Encoded(value), "2A 00");
}

TEST(Enumeration, FailingConversionIsRaisedAndKeepsTheNumber) {
  const auto value = Colour();
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return value->put_Value(Text(OLESTR("Red")).get()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return value->put_Value(Variant::Null().get()); }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return value->put_Value(R8(3e9).get()); }));
  EXPECT_EQ(ValueOf(value), "I4 5");
}

TEST(Enumeration, OperationsOfCollectionsDoNothing) {
  const auto value = Colour();
  EXPECT_EQ(value->put_Item(I4(0).get(), I4(9).get()), S_OK);
  EXPECT_EQ(value->Add(I4(9).get()), S_OK);
  EXPECT_EQ(value->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(value->RemoveAll(), S_OK);
  EXPECT_EQ(ValueOf(value), "I4 5");
}

TEST(Enumeration, AtIsTheObjectItself) {
  const auto value = Colour();
  EXPECT_TRUE(SameObject(Get(value, &IValueBase::get_At, I4(3)).get(), value.get()));
}

TEST(Enumeration, CopySharesTheDefinitionAndKeepsItsOwnNumber) {
  const auto definition = Colours();
  const auto value = NewValue(definition);
  PutValue(value, I4(9));
  const auto copy = Get(value, &IValueBase::Copy);
  EXPECT_EQ(ClassOf(copy.get()), "Enumeration");
  EXPECT_EQ(ValueOf(copy), "I4 9");
  EXPECT_TRUE(SameObject(Get(copy, &IValueBase::get_Info).get(), definition.get()));
  PutValue(copy, I4(1));
  EXPECT_EQ(ValueOf(value), "I4 9");
}

TEST(Enumeration, ConvertsToItsNumber) {
  Variant result;
  EXPECT_EQ(ConvertObject(Colour().get(), VT_I4, &result), S_OK);
  EXPECT_EQ(Describe(result), "I4 5");
  EXPECT_EQ(ConvertObject(Colour().get(), VT_BSTR, &result), S_OK);
  EXPECT_EQ(Describe(result), "BSTR 5");
}

TEST(Enumeration, WithoutADefinitionIsZero) {
  const auto value = Untyped();
  EXPECT_EQ(ValueOf(value), "I4 0");
  EXPECT_EQ(Get(value, &IValueBase::get_Type), kEnumeration);
  PutValue(value, I4(3));
  EXPECT_EQ(ValueOf(value), "I4 3");
}

TEST(Enumeration, CallsThatNeedADefinitionFailWithoutOne) {
  const auto value = Untyped();
  Ptr<IValueDefBase> info;
  SHORT id = 0;
  ULONG size = 0;
  unsigned char bytes[8] = {};
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->get_Info(info.Out()); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->get_Id(&id); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->ReadFromBuffer(bytes, 8, &size, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->WriteToBuffer(bytes, 8, &size, &result); }));
}

TEST(Enumeration, InfoThatIsNoEnumerationIsRefused) {
  const auto value = Untyped();
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->put_Info(nullptr); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->put_Info(SimpleDefinition(kLong).get()); }));
  const auto stranger = NewForeign<ForeignEnumerationDefinition>();
  stranger->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->put_Info(stranger.get()); }));
  EXPECT_EQ(value->put_Info(Colours().get()), S_OK);
  EXPECT_EQ(ValueOf(value), "I4 5");
}

TEST(Enumeration, InfoIsTakenOnce) {
  const auto definition = Colours();
  const auto value = NewValue(definition);
  PutValue(value, I4(9));
  EXPECT_EQ(value->put_Info(EnumerationDefinition(kLong, {{OLESTR("x"), 1}}).get()), S_OK);
  EXPECT_EQ(value->put_Info(nullptr), S_OK);
  EXPECT_EQ(value->put_Info(SimpleDefinition(kLong).get()), S_OK);
  EXPECT_EQ(ValueOf(value), "I4 9");
  EXPECT_TRUE(SameObject(Get(value, &IValueBase::get_Info).get(), definition.get()));
}

TEST(Enumeration, ServesADefinitionOfSomebodyElse) {
  const auto definition = NewForeign<ForeignEnumerationDefinition>();
  const auto value = Untyped();
  EXPECT_EQ(value->put_Info(definition.get()), S_OK);
  EXPECT_EQ(ValueOf(value), "I4 7");
  EXPECT_EQ(Encoded(value), "07 00");
}

TEST(Enumeration, FailuresOfTheDefinitionAreRaised) {
  const auto definition = NewForeign<ForeignEnumerationDefinition>();
  definition->first.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Untyped()->put_Info(definition.get()); }));
  definition->first.status = S_OK;
  const auto value = Untyped();
  EXPECT_EQ(value->put_Info(definition.get()), S_OK);
  definition->id.status = E_ABORT;
  definition->data_type.status = E_ABORT;
  SHORT id = 0;
  ULONG size = 0;
  unsigned char bytes[8] = {};
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->get_Id(&id); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->ReadFromBuffer(bytes, 8, &size, &result); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return value->WriteToBuffer(bytes, 8, &size, &result); }));
}

TEST(Enumeration, NullOutArgumentsAreRejected) {
  const auto value = Colour();
  EXPECT_EQ(value->get_Item(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Name(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(value->get_At(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Value(nullptr), E_POINTER);
  EXPECT_EQ(value->Copy(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Info(nullptr), E_POINTER);
  EXPECT_EQ(value->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(value->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(value->get_TypeString(nullptr), E_POINTER);
  ExpectNullBufferArgumentsRejected(value);
}

}  // namespace
}  // namespace halyard::test
