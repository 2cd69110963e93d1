// The properties and elements of an enumeration definition; its bytes are in
// enumeration_encoding_test.cpp.
#include <gtest/gtest.h>

#include <limits>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IEnumerationDef> NewEnumeration() { return CreateObject<IEnumerationDef>(kEnumerationInfoClass); }

Ptr<IEnumerationDef> Colours() {
  return EnumerationDefinition(kShort, {{OLESTR("Red"), 5}, {OLESTR("Green"), 9}, {OLESTR("Blue"), -1}});
}

std::string Name(const Ptr<IEnumerationDef>& definition, LONG position) {
  return Get(definition, &IEnumerationDef::get_ElementName, position);
}

LONG Number(const Ptr<IEnumerationDef>& definition, LONG position) {
  return Get(definition, &IEnumerationDef::get_ElementValue, position);
}

constexpr LONG kBeyondThree[] = {
    3, 4, 65536, -1, std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::min()};

TEST(EnumerationInfo, FreshDefinitionIsStoredAsChar) {
  const auto definition = NewEnumeration();
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), kEnumeration);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_TypeString), "Enumeration");
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataType), kChar);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataTypeString), "Char");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 1u);
  EXPECT_EQ(Calculate(definition), 1u);
}

TEST(EnumerationInfo, FreshDefinitionIsEmpty) {
  const auto definition = NewEnumeration();
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), 0);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Count), 0);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 0);
}

TEST(EnumerationInfo, PutTypeStoresNothing) {
  const auto definition = NewEnumeration();
  for (const SHORT type : {SHORT{0}, SHORT{8}, SHORT{14}, SHORT{99}, SHORT{-1}}) {
    EXPECT_EQ(definition->put_Type(type), S_OK);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), kEnumeration);
  }
}

TEST(EnumerationInfo, KeepsIdAndName) {
  const auto definition = NewEnumeration();
  for (const SHORT id : {SHORT{1}, SHORT{32767}, SHORT{-1}, SHORT{-32768}, SHORT{0}}) {
    EXPECT_EQ(definition->put_Id(id), S_OK);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), id);
  }
  EXPECT_EQ(definition->put_Name(Bstr(OLESTR("Colour")).get()), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "Colour");
  EXPECT_EQ(definition->put_Name(nullptr), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "");
}

TEST(EnumerationInfo, NameIsKeptNarrow) {
  const auto definition = NewEnumeration();
  EXPECT_EQ(definition->put_Name(Bstr(OLESTR("f\u00E9\u4E2D")).get()), S_OK);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "f\\u00E9?");
}

TEST(EnumerationInfo, TakesThreeStoredTypes) {
  constexpr struct {
    SHORT type;
    const char* name;
    ULONG size;
  } kRows[] = {{kChar, "Char", 1}, {kShort, "Short", 2}, {kLong, "Long", 4}};
  for (const auto& row : kRows) {
    const auto definition = NewEnumeration();
    EXPECT_EQ(definition->put_DataType(row.type), S_OK);
    EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataType), row.type);
    EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataTypeString), row.name);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), row.size);
    EXPECT_EQ(Calculate(definition), row.size);
  }
}

TEST(EnumerationInfo, IgnoresEveryOtherStoredType) {
  for (const SHORT kept : {kChar, kShort, kLong}) {
    const auto definition = EnumerationDefinition(kept, {});
    for (SHORT type = -2; type <= 20; ++type) {
      if (type == kChar || type == kShort || type == kLong) continue;
      EXPECT_EQ(definition->put_DataType(type), S_OK);
      EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataType), kept) << type;
    }
  }
}

TEST(EnumerationInfo, ElementsAreKeptInOrder) {
  const auto definition = Colours();
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Count), 3);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 3);
  EXPECT_EQ(Name(definition, 0), "Red");
  EXPECT_EQ(Name(definition, 1), "Green");
  EXPECT_EQ(Name(definition, 2), "Blue");
  EXPECT_EQ(Number(definition, 0), 5);
  EXPECT_EQ(Number(definition, 1), 9);
  EXPECT_EQ(Number(definition, 2), -1);
}

TEST(EnumerationInfo, NamesAndNumbersMayRepeat) {
  const auto definition =
      EnumerationDefinition(kChar, {{OLESTR("On"), 1}, {OLESTR("On"), 1}, {OLESTR(""), 1}});
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 3);
  EXPECT_EQ(Name(definition, 1), "On");
  EXPECT_EQ(Number(definition, 1), 1);
  EXPECT_EQ(Name(definition, 2), "");
}

TEST(EnumerationInfo, NumbersWiderThanTheStoredTypeAreTaken) {
  const auto definition =
      EnumerationDefinition(kChar, {{OLESTR("a"), 1000}, {OLESTR("b"), std::numeric_limits<LONG>::min()}});
  EXPECT_EQ(Number(definition, 0), 1000);
  EXPECT_EQ(Number(definition, 1), std::numeric_limits<LONG>::min());
}

TEST(EnumerationInfo, ElementWithoutANameReadsAsNone) {
  const auto definition = NewEnumeration();
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(definition->AddMember(nullptr, 3, &added), S_OK);
  EXPECT_EQ(added, VARIANT_TRUE);
  EXPECT_EQ(Name(definition, 0), "(null)");
}

TEST(EnumerationInfo, NamesOfElementsStayWide) {
  const auto definition = EnumerationDefinition(kChar, {{OLESTR("\u4E2D\u6587"), 1}});
  EXPECT_EQ(Name(definition, 0), "\\u4E2D\\u6587");
}

TEST(EnumerationInfo, ElementsCanBeChanged) {
  const auto definition = Colours();
  EXPECT_EQ(definition->put_ElementName(1, Bstr(OLESTR("Lime")).get()), S_OK);
  EXPECT_EQ(definition->put_ElementValue(2, 70000), S_OK);
  EXPECT_EQ(Name(definition, 1), "Lime");
  EXPECT_EQ(Number(definition, 1), 9);
  EXPECT_EQ(Number(definition, 2), 70000);
  EXPECT_EQ(definition->put_ElementName(1, nullptr), S_OK);
  EXPECT_EQ(Name(definition, 1), "(null)");
}

TEST(EnumerationInfo, RemoveMovesLaterElementsDown) {
  const auto definition = Colours();
  EXPECT_EQ(definition->Remove(0), S_OK);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 2);
  EXPECT_EQ(Name(definition, 0), "Green");
  EXPECT_EQ(Number(definition, 0), 9);
  EXPECT_EQ(definition->Remove(1), S_OK);
  EXPECT_EQ(Name(definition, 0), "Green");
  EXPECT_EQ(definition->Remove(0), S_OK);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 0);
}

TEST(EnumerationInfo, RemoveAllLeavesNothing) {
  const auto definition = Colours();
  EXPECT_EQ(definition->RemoveAll(), S_OK);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 0);
  EXPECT_EQ(definition->RemoveAll(), S_OK);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataType), kShort);
}

TEST(EnumerationInfo, PositionsOutOfRangeAreInvalid) {
  const auto definition = Colours();
  for (const LONG position : kBeyondThree) {
    BSTR name = nullptr;
    LONG number = 77;
    EXPECT_EQ(definition->get_ElementName(position, &name), E_INVALIDARG) << position;
    EXPECT_EQ(definition->put_ElementName(position, nullptr), E_INVALIDARG) << position;
    EXPECT_EQ(definition->get_ElementValue(position, &number), E_INVALIDARG) << position;
    EXPECT_EQ(definition->put_ElementValue(position, 1), E_INVALIDARG) << position;
    EXPECT_EQ(definition->Remove(position), E_INVALIDARG) << position;
    EXPECT_EQ(number, 77);
  }
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 3);
  EXPECT_EQ(Number(definition, 2), -1);
  EXPECT_EQ(NewEnumeration()->Remove(0), E_INVALIDARG);
}

TEST(EnumerationInfo, MakesAnEnumerationOfItself) {
  const auto definition = Colours();
  const auto value = NewValue(definition);
  EXPECT_EQ(ClassOf(value.get()), "Enumeration");
  EXPECT_TRUE(SameObject(Get(value, &IValueBase::get_Info).get(), definition.get()));
  EXPECT_EQ(ValueOf(value), "I4 5");
}

TEST(EnumerationInfo, NullOutArgumentsAreRejected) {
  const auto definition = Colours();
  EXPECT_EQ(definition->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_Name(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_DataSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->CalculateDataSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(definition->CreateDataObject(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_TypeString(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_ElementCount(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_ElementName(0, nullptr), E_POINTER);
  EXPECT_EQ(definition->get_ElementValue(0, nullptr), E_POINTER);
  EXPECT_EQ(definition->get_DataType(nullptr), E_POINTER);
  EXPECT_EQ(definition->get_DataTypeString(nullptr), E_POINTER);
  EXPECT_EQ(definition->AddMember(nullptr, 1, nullptr), E_POINTER);
}

}  // namespace
}  // namespace halyard::test
