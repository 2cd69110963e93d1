// Simple values: what they hold, what they convert, how they are typed and copied.
// Their bytes are in simple_value_buffer_test.cpp.
#include "halyard/values/simple_value.h"

#include <gtest/gtest.h>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IValueBase> Untyped() { return CreateObject<IValueBase>(kSimpleValueClass); }

SHORT TypeOf(const Ptr<IValueBase>& value) { return Get(value, &IValueBase::get_Type); }

struct FreshRow {
  SHORT type;
  const char* fresh;
};

constexpr FreshRow kFresh[] = {{kString, "BSTR "},   {kFixedString, "BSTR "}, {kChar, "UI1 0"},
                               {kByte, "UI1 0"},     {kShort, "I2 0"},        {kWord, "I2 0"},
                               {kLong, "I4 0"},      {kDWord, "I4 0"},        {kInt64, "I4 0"},
                               {kShortReal, "R4 0"}, {kReal, "R8 0"},         {kDate, "DATE 0"}};

TEST(SimpleValue, UntypedValueIsTheEmptyText) {
  const auto value = Untyped();
  EXPECT_EQ(TypeOf(value), 0);
  EXPECT_EQ(Get(value, &IValueBase::get_TypeString), "Invalid");
  EXPECT_EQ(ValueOf(value), "BSTR ");
  EXPECT_EQ(PacketSize(value), 0u);
  EXPECT_EQ(WriteTo(value, 0).outcome, Moved(0));
  EXPECT_EQ(ToHex(WriteTo(value, 4).bytes), "EE EE EE EE");
}

TEST(SimpleValue, UntypedValueHoldsATextAndNotNoText) {
  VARIANT content = Garbage<VARIANT>();
  EXPECT_EQ(Untyped()->get_Value(&content), S_OK);
  const Variant owner = Own(content);
  EXPECT_EQ(owner.type(), VT_BSTR);
  EXPECT_NE(owner->bstrVal, nullptr);
}

TEST(SimpleValue, TypeDecidesTheFreshContent) {
  for (const FreshRow& row : kFresh) {
    const auto value = SimpleValue(row.type);
    EXPECT_EQ(TypeOf(value), row.type);
    EXPECT_EQ(ValueOf(value), row.fresh) << row.type;
  }
}

TEST(SimpleValue, RetypingResetsTheContent) {
  for (const FreshRow& row : kFresh) {
    const auto value = SimpleValue(kString);
    PutValue(value, Text(OLESTR("old")));
    EXPECT_EQ(value->put_Info(SimpleDefinition(row.type).get()), S_OK);
    EXPECT_EQ(TypeOf(value), row.type);
    EXPECT_EQ(ValueOf(value), row.fresh) << row.type;
  }
}

TEST(SimpleValue, TypesWithoutConversionKeepTheContent) {
  for (const SHORT type : std::initializer_list<SHORT>{-1, 0, 3, 14, 15, 16, 17, 18}) {
    const auto value = SimpleValue(kLong);
    PutValue(value, I4(7));
    const auto definition = SimpleDefinition(kLong);
    EXPECT_EQ(definition->put_Type(type), S_OK);
    EXPECT_EQ(value->put_Info(definition.get()), S_OK);
    EXPECT_EQ(TypeOf(value), type);
    EXPECT_EQ(ValueOf(value), "I4 7") << type;
  }
}

TEST(SimpleValue, TypeWithoutANameIsUnknown) {
  for (const SHORT type : std::initializer_list<SHORT>{-1, 18, 99}) {
    const auto definition = SimpleDefinition(kLong);
    EXPECT_EQ(definition->put_Type(type), S_OK);
    const auto value = Untyped();
    EXPECT_EQ(value->put_Info(definition.get()), S_OK);
    EXPECT_EQ(Get(value, &IValueBase::get_TypeString), "Unknown") << type;
  }
}

TEST(SimpleValue, RealKeepsTheKindOfADate) {
  const auto value = SimpleValue(kDate);
  PutValue(value, Date(2));
  EXPECT_EQ(value->put_Info(SimpleDefinition(kReal).get()), S_OK);
  EXPECT_EQ(ValueOf(value), "DATE 0");
  EXPECT_EQ(ReadFrom(value, "00 00 00 00 00 00 F8 3F"), Moved(8));
  EXPECT_EQ(ValueOf(value), "DATE 1.5");
}

TEST(SimpleValue, NullDefinitionLeavesNoType) {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(7));
  EXPECT_EQ(value->put_Info(nullptr), S_OK);
  EXPECT_EQ(TypeOf(value), 0);
  EXPECT_EQ(ValueOf(value), "I4 7");
}

TEST(SimpleValue, FailedTypingKeepsTheFieldSize) {
  const auto value = SimpleValue(kFixedString, 10);
  EXPECT_EQ(value->put_Info(nullptr), S_OK);
  EXPECT_EQ(PacketSize(value), 10u);
}

TEST(SimpleValue, DefinitionThatFailsLeavesNoType) {
  const auto foreign = NewForeign<ForeignDefinition>();
  for (HRESULT* status : {&foreign->query_status, &foreign->type.status, &foreign->data_size.status}) {
    for (const HRESULT code : {E_ABORT, E_OUTOFMEMORY}) {
      const auto value = SimpleValue(kLong);
      *status = code;
      EXPECT_EQ(value->put_Info(foreign.get()), S_OK);
      EXPECT_EQ(TypeOf(value), 0);
      *status = S_OK;
    }
  }
  const auto value = SimpleValue(kLong);
  foreign->query_status = E_NOINTERFACE;
  EXPECT_EQ(value->put_Info(foreign.get()), S_OK);
  EXPECT_EQ(TypeOf(value), 0);
}

TEST(SimpleValue, TakesTypeAndSizeOfAnyDefinition) {
  const auto foreign = NewForeign<ForeignDefinition>();
  foreign->data_size.value = 70000;
  const auto value = Untyped();
  EXPECT_EQ(value->put_Info(foreign.get()), S_OK);
  EXPECT_EQ(TypeOf(value), kLong);
  EXPECT_EQ(PacketSize(value), 70000u % 65536u);
}

TEST(SimpleValue, KeepsNoReferenceToItsDefinition) {
  auto foreign = NewForeign<ForeignDefinition>();
  const auto life = foreign->Life();
  const auto value = Untyped();
  EXPECT_EQ(value->put_Info(foreign.get()), S_OK);
  foreign.Reset();
  EXPECT_TRUE(life.expired());
  EXPECT_FALSE(Get(value, &IValueBase::get_Info));
  EXPECT_EQ(Get(value, &IValueBase::get_Id), 0);
}

TEST(SimpleValue, LongTakesNumbersAndDigits) {
  const auto value = SimpleValue(kLong);
  for (const Variant& seven : {I4(7), I2(7), Ui1(7), R8(7.2), Text(OLESTR("7")), Text(OLESTR(" 7 "))}) {
    PutValue(value, I4(0));
    PutValue(value, seven);
    EXPECT_EQ(ValueOf(value), "I4 7") << Describe(seven);
  }
}

TEST(SimpleValue, ContentThatDoesNotConvertIsDropped) {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(7));
  for (const Variant& content :
       {Text(OLESTR("x")), Text(OLESTR("")), R8(3e9), Variant::Null(), Tagged(VT_DISPATCH)}) {
    PutValue(value, content);
    EXPECT_EQ(ValueOf(value), "I4 7") << Describe(content);
  }
}

TEST(SimpleValue, WordDropsThe65535OfALong) {
  const auto value = SimpleValue(kWord);
  PutValue(value, I4(65535));
  EXPECT_EQ(ValueOf(value), "I2 0");
  PutValue(value, I2(-1));
  EXPECT_EQ(ValueOf(value), "I2 -1");
}

TEST(SimpleValue, EachTypeConvertsToWhatItHolds) {
  constexpr struct {
    SHORT type;
    const char* held;
  } kRows[] = {{kString, "BSTR 12"}, {kFixedString, "BSTR 12"}, {kChar, "UI1 12"}, {kByte, "UI1 12"},
               {kShort, "I2 12"},    {kWord, "I2 12"},          {kLong, "I4 12"},  {kDWord, "I4 12"},
               {kInt64, "I4 12"},    {kShortReal, "R4 12"},     {kReal, "R8 12"},  {kDate, "DATE 12"}};
  for (const auto& row : kRows) {
    const auto value = SimpleValue(row.type);
    PutValue(value, R8(12));
    EXPECT_EQ(ValueOf(value), row.held);
  }
}

TEST(SimpleValue, ContentByReferenceIsCopied) {
  const auto value = SimpleValue(kString);
  {
    Bstr text(OLESTR("abc"));
    BSTR place = text.get();
    PutValue(value, ByReference(&place));
  }
  EXPECT_EQ(ValueOf(value), "BSTR abc");
}

TEST(SimpleValue, TakesTheContentOfAnotherSimpleValue) {
  const auto source = SimpleValue(kReal);
  PutValue(source, R8(7));
  const auto value = SimpleValue(kLong);
  PutValue(value, Variant(static_cast<IDispatch*>(source.get())));
  EXPECT_EQ(ValueOf(value), "I4 7");
}

TEST(SimpleValue, ConvertsToItsContentWhereVariantsAreConverted) {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(7));
  Variant converted;
  EXPECT_EQ(ConvertObject(value.get(), VT_BSTR, &converted), S_OK);
  EXPECT_EQ(Describe(converted), "BSTR 7");
  EXPECT_EQ(ConvertObject(value.get(), VT_I4, &converted), S_OK);
  EXPECT_EQ(Describe(converted), "I4 7");
}

TEST(SimpleValue, ValueIsACopy) {
  const auto value = SimpleValue(kString);
  Variant text = Text(OLESTR("abc"));
  PutValue(value, text);
  text->bstrVal[0] = 'x';
  Variant read = Get(value, &IValueBase::get_Value);
  EXPECT_EQ(Describe(read), "BSTR abc");
  read->bstrVal[0] = 'y';
  EXPECT_EQ(ValueOf(value), "BSTR abc");
}

TEST(SimpleValue, ImpossibleContentIsDropped) {
  const auto value = SimpleValue(kLong);
  VARIANT impossible;
  VariantInit(&impossible);
  impossible.vt = kImpossibleType;
  EXPECT_EQ(value->put_Value(impossible), S_OK);
  EXPECT_EQ(ValueOf(value), "I4 0");
}

TEST(SimpleValue, ItemIsTheContentWhateverTheIndex) {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(7));
  for (const Variant& index : {I4(0), I4(-1), I4(99), Text(OLESTR("x")), Variant(), Variant::Null()}) {
    EXPECT_EQ(Describe(Get(value, &IValueBase::get_Item, index)), "I4 7") << Describe(index);
    EXPECT_EQ(Get(value, &IValueBase::get_Name, index), "") << Describe(index);
    EXPECT_TRUE(SameObject(Get(value, &IValueBase::get_At, index).get(), value.get())) << Describe(index);
  }
}

TEST(SimpleValue, CollectionCallsSucceedAndChangeNothing) {
  const auto value = SimpleValue(kLong);
  PutValue(value, I4(7));
  EXPECT_EQ(Get(value, &IValueBase::get_Count), 0);
  EXPECT_EQ(value->put_Item(I4(0).get(), I4(9).get()), S_OK);
  EXPECT_EQ(value->Add(I4(9).get()), S_OK);
  EXPECT_EQ(value->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(value->RemoveAll(), S_OK);
  EXPECT_EQ(Get(value, &IValueBase::get_Count), 0);
  EXPECT_EQ(ValueOf(value), "I4 7");
}

TEST(SimpleValue, CopyIsIndependent) {
  const auto value = SimpleValue(kString);
  PutValue(value, Text(OLESTR("abc")));
  const auto copy = Get(value, &IValueBase::Copy);
  EXPECT_FALSE(SameObject(copy.get(), value.get()));
  EXPECT_EQ(ValueOf(copy), "BSTR abc");
  PutValue(copy, Text(OLESTR("xyz")));
  EXPECT_EQ(ValueOf(value), "BSTR abc");
  PutValue(value, Text(OLESTR("123")));
  EXPECT_EQ(ValueOf(copy), "BSTR xyz");
}

TEST(SimpleValue, CopyHasTypeAndFieldSize) {
  const auto value = SimpleValue(kFixedString, 10);
  PutValue(value, Text(OLESTR("abc")));
  const auto copy = Get(value, &IValueBase::Copy);
  EXPECT_EQ(TypeOf(copy), kFixedString);
  EXPECT_EQ(PacketSize(copy), 10u);
  EXPECT_EQ(ValueOf(copy), "BSTR abc");
  EXPECT_TRUE(copy.As<ISimpleValue>());
}

TEST(SimpleValue, NullOutPointersAreRejected) {
  const auto value = SimpleValue(kLong);
  const Variant index = I4(0);
  EXPECT_EQ(value->get_Item(index.get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Name(index.get(), nullptr), E_POINTER);
  EXPECT_EQ(value->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(value->get_At(index.get(), nullptr), E_POINTER);
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
