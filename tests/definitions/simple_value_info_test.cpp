// The properties of a simple definition; its bytes are in simple_value_encoding_test.cpp.
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<ISimpleValueDef> NewDefinition() { return CreateObject<ISimpleValueDef>(kSimpleValueInfoClass); }

struct TypeRow {
  SHORT code;
  const char* name;
  ULONG size;
};

constexpr TypeRow kTypes[] = {
    {-32768, "Unknown", 0}, {-1, "Unknown", 0},   {0, "Invalid", 0}, {1, "String", 0},
    {2, "FixedString", 0},  {3, "ByteArray", 0},  {4, "Char", 1},    {5, "Byte", 1},
    {6, "Short", 2},        {7, "Word", 2},       {8, "Long", 4},    {9, "DWord", 4},
    {10, "Int64", 4},       {11, "ShortReal", 4}, {12, "Real", 8},   {13, "Date", 8},
};
constexpr TypeRow kTypesAboveTheElementary[] = {{14, "Structure", 0},  {15, "Array", 0},
                                                {16, "Collection", 0}, {17, "Enumeration", 0},
                                                {18, "Unknown", 0},    {32767, "Unknown", 0}};

// Reads `hex` into the definition; the fields are kept however the reading ends.
void Feed(const Ptr<ISimpleValueDef>& definition, std::string_view hex) {
  EXPECT_EQ(ReadFrom(definition, hex).status, S_OK);
}

TEST(SimpleValueInfo, FreshDefinitionIsAShort) {
  const auto definition = NewDefinition();
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), 6);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_TypeString), "Short");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 2u);
  EXPECT_EQ(PacketSize(definition), 6u);
  EXPECT_EQ(Encoded(definition), "06 00 02 00 00 00");
}

TEST(SimpleValueInfo, FreshDefinitionHasNoRangeAndNoScript) {
  const auto definition = NewDefinition();
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), VARIANT_FALSE);
  EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MinValue)), "I2 0");
  EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MaxValue)), "I2 0");
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_ValidationScript), "(null)");
}

TEST(SimpleValueInfo, HasNeitherNameNorIdNorParts) {
  const auto definition = NewDefinition();
  EXPECT_EQ(definition->put_Name(Bstr(OLESTR("name")).get()), S_OK);
  EXPECT_EQ(definition->put_Name(nullptr), S_OK);
  EXPECT_EQ(definition->put_Id(5), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), 0);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Count), 0);
}

TEST(SimpleValueInfo, TypesHaveNamesAndSizes) {
  for (const TypeRow& row : kTypes) {
    const auto definition = NewDefinition();
    EXPECT_EQ(definition->put_Type(row.code), S_OK);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), row.code);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_TypeString), row.name);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), row.size) << row.name;
    EXPECT_EQ(Calculate(definition), row.size) << row.name;
  }
}

TEST(SimpleValueInfo, Int64IsSizedFour) {
  const auto definition = SimpleDefinition(kInt64);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_TypeString), "Int64");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 4u);
}

TEST(SimpleValueInfo, PuttingATypeTurnsValidationOffAndTakesItsSize) {
  for (const TypeRow& row : kTypes) {
    const auto definition = SimpleDefinition(kFixedString, 10);
    EXPECT_EQ(definition->put_Validation(VARIANT_TRUE), S_OK);
    EXPECT_EQ(definition->put_Type(row.code), S_OK);
    EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), VARIANT_FALSE) << row.name;
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), row.size) << row.name;
  }
}

TEST(SimpleValueInfo, PuttingATypeAboveTheElementaryKeepsValidationAndSize) {
  for (const TypeRow& row : kTypesAboveTheElementary) {
    const auto definition = SimpleDefinition(kFixedString, 10);
    EXPECT_EQ(definition->put_Validation(VARIANT_TRUE), S_OK);
    EXPECT_EQ(definition->put_Type(row.code), S_OK);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), row.code);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_TypeString), row.name);
    EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), VARIANT_TRUE) << row.code;
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 10u) << row.code;
  }
}

TEST(SimpleValueInfo, FieldSizesAreCutToTheirLimits) {
  constexpr struct {
    LONG wish;
    ULONG size;
  } kSizes[] = {{0, 0},
                {1, 1},
                {64999, 64999},
                {65000, 65000},
                {65001, 65000},
                {70000, 65000},
                {-1, 0},
                {std::numeric_limits<LONG>::max(), 65000},
                {std::numeric_limits<LONG>::min(), 0}};
  for (const SHORT type : {kFixedString, kByteArray}) {
    for (const auto& row : kSizes) {
      const auto definition = SimpleDefinition(type, 5);
      EXPECT_EQ(definition->SetDataSize(row.wish), S_OK);
      EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), row.size) << row.wish;
      EXPECT_EQ(Calculate(definition), row.size) << row.wish;
    }
  }
}

TEST(SimpleValueInfo, SetDataSizeChangesNothingForOtherTypes) {
  for (const TypeRow& row : kTypes) {
    if (row.code == kFixedString || row.code == kByteArray) continue;
    const auto definition = NewDefinition();
    EXPECT_EQ(definition->put_Type(row.code), S_OK);
    EXPECT_EQ(definition->SetDataSize(10), S_OK);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), row.size) << row.name;
  }
}

TEST(SimpleValueInfo, SetDataSizeOnALongChangesNothing) {
  const auto definition = SimpleDefinition(kLong);
  EXPECT_EQ(definition->SetDataSize(10), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 4u);
  EXPECT_EQ(Encoded(definition), "08 00 04 00 00 00");
}

TEST(SimpleValueInfo, CalculateDataSizeReplacesAStoredSize) {
  const auto definition = NewDefinition();
  Feed(definition, "08 00 0A 00 00 00");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 10u);
  EXPECT_EQ(Calculate(definition), 4u);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 4u);
}

TEST(SimpleValueInfo, CalculateDataSizeClearsTheSizeOfTextAndUnknownTypes) {
  for (const char* bytes : {"01 00 05 00 00 00", "00 00 05 00", "12 00 05 00", "FF FF 05 00"}) {
    const auto definition = NewDefinition();
    Feed(definition, bytes);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 5u) << bytes;
    EXPECT_EQ(Calculate(definition), 0u) << bytes;
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 0u) << bytes;
  }
}

TEST(SimpleValueInfo, DataSizeDerivesWithoutStoring) {
  const auto definition = NewDefinition();
  Feed(definition, "08 00 00 00 00 00");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 4u);
  Feed(definition, "0C 00");  // another type; the size that was stored stays: none
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 8u);
}

TEST(SimpleValueInfo, CalculateDataSizeStores) {
  const auto definition = NewDefinition();
  Feed(definition, "08 00 00 00 00 00");
  Calculate(definition);
  Feed(definition, "0C 00");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 4u);
}

TEST(SimpleValueInfo, BoundsAreKeptUnconverted) {
  const auto definition = SimpleDefinition(kLong);
  const struct {
    Variant bound;
    const char* kept;
  } rows[] = {{Text(OLESTR("abc")), "BSTR abc"},
              {R8(2.5), "R8 2.5"},
              {Variant::Null(), "NULL"},
              {Variant(), "EMPTY"}};
  for (const auto& row : rows) {
    EXPECT_EQ(definition->put_MinValue(row.bound.get()), S_OK);
    EXPECT_EQ(definition->put_MaxValue(row.bound.get()), S_OK);
    EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MinValue)), row.kept);
    EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MaxValue)), row.kept);
  }
}

TEST(SimpleValueInfo, BoundsAreCopies) {
  const auto definition = SimpleDefinition(kLong);
  Variant bound = Text(OLESTR("abc"));
  EXPECT_EQ(definition->put_MinValue(bound.get()), S_OK);
  bound->bstrVal[0] = 'x';
  Variant read = Get(definition, &ISimpleValueDef::get_MinValue);
  EXPECT_EQ(Describe(read), "BSTR abc");
  read->bstrVal[0] = 'y';
  EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MinValue)), "BSTR abc");
}

TEST(SimpleValueInfo, ReferencesAreFollowedWhenTheyArePut) {
  const auto definition = SimpleDefinition(kLong);
  LONG number = 5;
  VARIANT reference;
  VariantInit(&reference);
  reference.vt = VT_BYREF | VT_I4;
  reference.plVal = &number;
  EXPECT_EQ(definition->put_MinValue(reference), S_OK);
  EXPECT_EQ(definition->put_MaxValue(reference), S_OK);
  number = 6;
  EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MinValue)), "I4 5");
  EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MaxValue)), "I4 5");
}

TEST(SimpleValueInfo, BoundThatCannotBeCopiedIsRaised) {
  const auto definition = SimpleDefinition(kLong);
  VARIANT impossible;
  VariantInit(&impossible);
  impossible.vt = kImpossibleType;
  EXPECT_TRUE(Raises(DISP_E_BADVARTYPE, [&] { return definition->put_MinValue(impossible); }));
  EXPECT_TRUE(Raises(DISP_E_BADVARTYPE, [&] { return definition->put_MaxValue(impossible); }));
  EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MinValue)), "I2 0");
  EXPECT_EQ(Describe(Get(definition, &ISimpleValueDef::get_MaxValue)), "I2 0");
}

TEST(SimpleValueInfo, ValidationIsKeptAsGivenUntilASizeIsAskedFor) {
  const auto definition = SimpleDefinition(kLong);
  EXPECT_EQ(definition->put_Validation(1), S_OK);
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), 1);
  EXPECT_EQ(PacketSize(definition), 16u);
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), VARIANT_TRUE);
}

TEST(SimpleValueInfo, ScriptIsReplacedAndCopied) {
  const auto definition = SimpleDefinition(kLong);
  Bstr script(OLESTR("x>0"));
  EXPECT_EQ(definition->put_ValidationScript(script.get()), S_OK);
  script.get()[0] = 'y';
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_ValidationScript), "x>0");
  EXPECT_EQ(definition->put_ValidationScript(Bstr(OLESTR("x<9")).get()), S_OK);
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_ValidationScript), "x<9");
  EXPECT_EQ(definition->put_ValidationScript(nullptr), S_OK);
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_ValidationScript), "(null)");
}

TEST(SimpleValueInfo, CreatesAValueOfItsType) {
  for (const TypeRow& row : kTypes) {
    const auto definition = SimpleDefinition(row.code);
    const auto value = NewValue(definition);
    EXPECT_EQ(Get(value, &IValueBase::get_Type), row.code);
    EXPECT_EQ(Get(value, &IValueBase::get_TypeString), row.name);
  }
}

TEST(SimpleValueInfo, CreatedValueTakesTheFieldSize) {
  const auto value = NewValue(SimpleDefinition(kFixedString, 10));
  EXPECT_EQ(PacketSize(value), 10u);
}

TEST(SimpleValueInfo, EachCallCreatesAnotherValue) {
  const auto definition = SimpleDefinition(kLong);
  EXPECT_FALSE(SameObject(NewValue(definition).get(), NewValue(definition).get()));
}

TEST(SimpleValueInfo, NullOutPointersAreRejected) {
  const auto definition = NewDefinition();
  EXPECT_EQ(definition->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Name(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_DataSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->CalculateDataSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->CreateDataObject(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_TypeString(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_MinValue(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_MaxValue(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Validation(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_ValidationScript(nullptr), E_POINTER);
  ExpectNullBufferArgumentsRejected(definition);
}

}  // namespace
}  // namespace halyard::test
