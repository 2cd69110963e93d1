// The properties of an array definition and the values that it makes; its bytes are in
// array_encoding_test.cpp.
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IArrayDef> NewArrayInfo() { return CreateObject<IArrayDef>(kArrayInfoClass); }

Ptr<IArrayDef> Typed(SHORT type, LONG count) {
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_DataType(type), S_OK);
  EXPECT_EQ(definition->put_ElementCount(count), S_OK);
  return definition;
}

Ptr<IValueDefBase> ElementOf(const Ptr<IArrayDef>& definition) {
  return Get(definition, &IArrayDef::get_ValueType);
}

bool HasInfo(const Ptr<IValueBase>& value) {
  Ptr<IValueDefBase> info;
  return value->get_Info(info.Out()) == S_OK;
}

TEST(ArrayInfo, FreshDefinitionHasNoElementDefinition) {
  const auto definition = NewArrayInfo();
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), kArray);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_TypeString), "Array");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Count), 0);
  EXPECT_EQ(Get(definition, &IArrayDef::get_ElementCount), 0);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), 0);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "");
  EXPECT_FALSE(ElementOf(definition));
}

TEST(ArrayInfo, CallsThatNeedAnElementDefinitionFailWithoutOne) {
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ElementCount(3), S_OK);
  SHORT type = 0;
  ULONG size = 0;
  BSTR text = nullptr;
  IValueBase* value = nullptr;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return definition->get_DataType(&type); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return definition->get_DataTypeString(&text); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return definition->get_DataSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return definition->CalculateDataSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return definition->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return definition->CreateDataObject(&value); }));
  GuardedBuffer buffer(32);
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_TRUE(
      Raises(E_POINTER, [&] { return definition->WriteToBuffer(buffer.data(), 32, &count, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_EQ(count, kUntouched);
}

TEST(ArrayInfo, PutTypeStoresNothing) {
  const auto definition = NewArrayInfo();
  for (const SHORT type : {SHORT{0}, SHORT{8}, SHORT{14}, SHORT{99}, SHORT{-1}}) {
    EXPECT_EQ(definition->put_Type(type), S_OK);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), kArray);
  }
  EXPECT_FALSE(ElementOf(definition));
}

TEST(ArrayInfo, KeepsIdNameAndCount) {
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_Id(-7), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), -7);
  EXPECT_EQ(definition->put_Name(Bstr(OLESTR("f\u00E9\u4E2D")).get()), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "f\\u00E9?");
  for (const LONG count : {LONG{1}, LONG{65536}, std::numeric_limits<LONG>::max(), LONG{-1}, LONG{0}}) {
    EXPECT_EQ(definition->put_ElementCount(count), S_OK);
    EXPECT_EQ(Get(definition, &IArrayDef::get_ElementCount), count);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Count), count);
  }
}

TEST(ArrayInfo, NegativeCountIsALargeOne) {
  const auto definition = Typed(kLong, -1);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 4294967292u);
  EXPECT_EQ(Calculate(definition), 4294967292u);
  EXPECT_EQ(Encoded(definition), "00 00 00 00 00 00 FF FF 08 00 04 00 08 00 04 00 00 00");
  EXPECT_EQ(Get(NewValue(definition), &IValueBase::get_Count), 65535);
}

TEST(ArrayInfo, PutDataTypeMakesAnElementDefinition) {
  const auto definition = Typed(kLong, 10);
  EXPECT_EQ(Get(definition, &IArrayDef::get_DataType), kLong);
  EXPECT_EQ(Get(definition, &IArrayDef::get_DataTypeString), "Long");
  EXPECT_TRUE(ElementOf(definition).As<ISimpleValueDef>());
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 40u);
  EXPECT_EQ(Calculate(definition), 40u);
}

TEST(ArrayInfo, PutDataTypeRetypesTheElementDefinitionThatIsThere) {
  const auto definition = NewArrayInfo();
  const auto element = SimpleDefinition(kShort);
  EXPECT_EQ(definition->put_ValueType(element.get()), S_OK);
  EXPECT_EQ(definition->put_DataType(kReal), S_OK);
  EXPECT_TRUE(SameObject(ElementOf(definition).get(), element.get()));
  EXPECT_EQ(Get(element, &IValueDefBase::get_Type), kReal);
}

TEST(ArrayInfo, PutDataTypeChangesNothingOverACompositeElement) {
  const auto structure = StructureDefinition({{OLESTR("x"), kLong}});
  const auto definition = ArrayDefinition(structure);
  EXPECT_EQ(definition->put_DataType(kReal), S_OK);
  EXPECT_EQ(Get(definition, &IArrayDef::get_DataType), kStructure);
  EXPECT_TRUE(SameObject(ElementOf(definition).get(), structure.get()));
}

TEST(ArrayInfo, PutDataTypeAboveTheElementaryChangesNothing) {
  for (const SHORT type : {kStructure, kArray, kCollection, kEnumeration}) {
    const auto fresh = NewArrayInfo();
    EXPECT_EQ(fresh->put_DataType(type), S_OK);
    EXPECT_FALSE(ElementOf(fresh)) << type;
    const auto typed = Typed(kLong, 0);
    EXPECT_EQ(typed->put_DataType(type), S_OK);
    EXPECT_EQ(Get(typed, &IArrayDef::get_DataType), kLong) << type;
  }
}

TEST(ArrayInfo, ElementDefinitionIsShared) {
  const auto element = SimpleDefinition(kFixedString, 7);
  const auto definition = ArrayDefinition(element, 3);
  EXPECT_TRUE(SameObject(ElementOf(definition).get(), element.get()));
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 21u);
  EXPECT_EQ(element->SetDataSize(10), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 30u);
}

TEST(ArrayInfo, NullLeavesNoElementDefinition) {
  const auto definition = Typed(kLong, 3);
  EXPECT_EQ(definition->put_ValueType(nullptr), S_OK);
  EXPECT_FALSE(ElementOf(definition));
}

TEST(ArrayInfo, ObjectThatIsNoDefinitionLeavesNone) {
  const auto definition = Typed(kLong, 3);
  const auto stranger = NewForeign<ForeignDefinition>();
  stranger->query_status = E_NOINTERFACE;
  EXPECT_EQ(definition->put_ValueType(stranger.get()), S_OK);
  EXPECT_FALSE(ElementOf(definition));
}

TEST(ArrayInfo, FailingQueryForAnElementDefinitionIsRaised) {
  const auto definition = Typed(kLong, 3);
  const auto stranger = NewForeign<ForeignDefinition>();
  stranger->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return definition->put_ValueType(stranger.get()); }));
}

TEST(ArrayInfo, SizesAreElementSizeTimesCount) {
  constexpr struct {
    SHORT type;
    ULONG size;
  } kRows[] = {{kString, 0}, {kChar, 3},       {kWord, 6},  {kDWord, 12},
               {kInt64, 12}, {kShortReal, 12}, {kReal, 24}, {kDate, 24}};
  for (const auto& row : kRows) {
    const auto definition = Typed(row.type, 3);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), row.size) << row.type;
    EXPECT_EQ(Calculate(definition), row.size) << row.type;
    EXPECT_EQ(definition->put_ElementCount(0), S_OK);
    EXPECT_EQ(Calculate(definition), 0u) << row.type;
  }
}

TEST(ArrayInfo, CalculatedSizeTakesSixteenBitsOfTheElementSize) {
  const auto rows = ArrayDefinition(SimpleDefinition(kLong), 20000);
  const auto table = ArrayDefinition(rows, 2);
  EXPECT_EQ(Get(table, &IValueDefBase::get_DataSize), 160000u);
  EXPECT_EQ(Calculate(table), 2u * (80000 - 65536));
}

TEST(ArrayInfo, CalculatingReachesNestedDefinitions) {
  const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(structure->AddSimpleMember(Bstr(OLESTR("x")).get(), kReal, &added), S_OK);
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ValueType(structure.get()), S_OK);
  EXPECT_EQ(definition->put_ElementCount(4), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 0u);
  EXPECT_EQ(Calculate(definition), 32u);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 8u);
}

TEST(ArrayInfo, ElementTypeChoosesTheClassOfValues) {
  constexpr struct {
    SHORT type;
    const char* variable;
    const char* fixed;
  } kRows[] = {
      {-1, "SimpleArray", "SimpleFixedArray"},         {0, "SimpleArray", "SimpleFixedArray"},
      {kString, "StringArray", "StringArray"},         {kFixedString, "SimpleArray", "SimpleFixedArray"},
      {kByteArray, "SimpleArray", "SimpleFixedArray"}, {kChar, "SimpleArray", "SimpleFixedArray"},
      {kLong, "SimpleArray", "SimpleFixedArray"},      {kInt64, "SimpleArray", "SimpleFixedArray"},
      {kDate, "SimpleArray", "SimpleFixedArray"}};
  for (const auto& row : kRows) {
    const auto definition = Typed(row.type, 0);
    Calculate(definition);
    EXPECT_EQ(ClassOf(NewValue(definition).get()), row.variable) << row.type;
    EXPECT_EQ(definition->put_ElementCount(2), S_OK);
    EXPECT_EQ(ClassOf(NewValue(definition).get()), row.fixed) << row.type;
  }
}

TEST(ArrayInfo, CompositeElementsMakeAnArrayOfValues) {
  const auto collection = SimpleDefinition(kString);
  EXPECT_EQ(collection->put_Type(kCollection), S_OK);
  const Ptr<IValueDefBase> elements[] = {StructureDefinition({{OLESTR("x"), kLong}}),
                                         EnumerationDefinition(kChar, {{OLESTR("a"), 1}}),
                                         SimpleArrayDefinition(kLong), collection};
  for (const auto& element : elements) {
    EXPECT_EQ(ClassOf(NewValue(ArrayDefinition(element)).get()), "Array");
    EXPECT_EQ(ClassOf(NewValue(ArrayDefinition(element, 2)).get()), "Array");
  }
}

TEST(ArrayInfo, ValuesKnowTheirDefinition) {
  const auto definition = SimpleArrayDefinition(kLong, 0, 12);
  const auto value = NewValue(definition);
  EXPECT_TRUE(SameObject(Get(value, &IValueBase::get_Info).get(), definition.get()));
  EXPECT_EQ(Get(value, &IValueBase::get_Id), 12);
}

TEST(ArrayInfo, OnlyCalculateDataSizeGivesSimpleArraysTheirElementWidth) {
  const auto definition = Typed(kLong, 0);
  const auto before = NewValue(definition);
  EXPECT_EQ(ClassOf(before.get()), "SimpleArray");
  EXPECT_FALSE(HasInfo(before));
  Calculate(definition);
  EXPECT_TRUE(HasInfo(NewValue(definition)));
}

TEST(ArrayInfo, RetypedDefinitionMakesArraysOfTheOldWidthUntilItIsCalculated) {
  const auto definition = SimpleArrayDefinition(kLong);
  EXPECT_EQ(definition->put_DataType(kReal), S_OK);
  const auto stale = NewArray(definition);
  Add(stale, R8(1.0));
  EXPECT_EQ(Encoded(stale), "01 00 00 00 01 00 00 00");
  Calculate(definition);
  const auto current = NewArray(definition);
  Add(current, R8(1.0));
  EXPECT_EQ(Encoded(current), "01 00 00 00 00 00 00 00 00 00 F0 3F");
}

TEST(ArrayInfo, FailingElementDefinitionIsRaised) {
  const auto element = NewForeign<ForeignDefinition>();
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ValueType(element.get()), S_OK);
  element->type.status = E_ABORT;
  element->data_size.status = E_ABORT;
  element->calculated_size.status = E_ABORT;
  element->packet_size.status = E_ABORT;
  SHORT type = 0;
  ULONG size = 0;
  IValueBase* value = nullptr;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return definition->get_DataType(&type); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return definition->get_DataSize(&size); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return definition->CalculateDataSize(&size); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return definition->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return definition->CreateDataObject(&value); }));
}

TEST(ArrayInfo, NullOutArgumentsAreRejected) {
  const auto definition = Typed(kLong, 3);
  EXPECT_EQ(definition->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Name(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_DataSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->CalculateDataSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->CreateDataObject(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_TypeString(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_DataType(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_ValueType(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_ElementCount(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_DataTypeString(nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
