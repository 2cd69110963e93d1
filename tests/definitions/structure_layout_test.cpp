// The layout that a structure definition calculates, and the class of value that
// follows from it.
#include <gtest/gtest.h>

#include "halyard/values/structure.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> NewStructure() { return CreateObject<IStructureDef>(kStructureInfoClass); }

// Type, offset and size of a member: "8 at 0, 4 bytes".
std::string Place(const Ptr<IStructureDef>& structure, LONG position) {
  SHORT type = Garbage<SHORT>();
  LONG offset = Garbage<LONG>();
  ULONG size = Garbage<ULONG>();
  VARIANT_BOOL result = Garbage<VARIANT_BOOL>();
  EXPECT_EQ(structure->MemberInfo(position, &type, &offset, &size, &result), S_OK);
  EXPECT_EQ(result, VARIANT_TRUE);
  return std::to_string(type) + " at " + std::to_string(offset) + ", " + std::to_string(size) + " bytes";
}

// Whether the definition makes values of the class that is one block.
bool MakesFixedValues(const Ptr<IStructureDef>& structure) {
  const auto value = NewValue(structure);
  EXPECT_TRUE(value.As<IStructure>());
  return static_cast<bool>(value.As<ISimpleFixedStructure>());
}

TEST(StructureLayout, NewEmptyStructureIsFixedOnceItIsCalculated) {
  const auto structure = NewStructure();
  EXPECT_FALSE(MakesFixedValues(structure));
  EXPECT_EQ(Calculate(structure), 0u);
  EXPECT_TRUE(MakesFixedValues(structure));
}

TEST(StructureLayout, SimpleMembersLieSideBySide) {
  const auto structure = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kShort}});
  EXPECT_EQ(Calculate(structure), 6u);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 6u);
  EXPECT_EQ(Place(structure, 0), "8 at 0, 4 bytes");
  EXPECT_EQ(Place(structure, 1), "6 at 4, 2 bytes");
  EXPECT_TRUE(MakesFixedValues(structure));
}

TEST(StructureLayout, SimpleMembersArePlacedHoweverTheyAreAdded) {
  const auto structure = NewStructure();
  for (const OLECHAR* name : {OLESTR("a"), OLESTR("b")}) {
    EXPECT_EQ(Result<VARIANT_BOOL>(
                  [&](auto* out) { return structure->AddSimpleMember(Bstr(name).get(), kLong, out); }),
              VARIANT_TRUE);
  }
  EXPECT_EQ(Calculate(structure), 8u);
  EXPECT_EQ(Place(structure, 0), "8 at 0, 4 bytes");
  EXPECT_EQ(Place(structure, 1), "8 at 4, 4 bytes");
}

TEST(StructureLayout, MembersWithoutAFixedPlaceAreNumbered) {
  const auto structure =
      StructureDefinition({{OLESTR("s"), kString}, {OLESTR("x"), kLong}, {OLESTR("t"), kString}});
  EXPECT_EQ(Place(structure, 0), "1 at 0, 0 bytes");
  EXPECT_EQ(Place(structure, 1), "8 at 0, 4 bytes");
  EXPECT_EQ(Place(structure, 2), "1 at 1, 0 bytes");
  EXPECT_FALSE(MakesFixedValues(structure));
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 4u);
}

TEST(StructureLayout, NullableLongMemberIsNotFixedButCounted) {
  const auto structure = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kShort}});
  EXPECT_EQ(structure->put_CanBeNull(Text(OLESTR("a")).get(), VARIANT_TRUE), S_OK);
  EXPECT_EQ(Place(structure, 0), "8 at 0, 4 bytes");
  EXPECT_TRUE(MakesFixedValues(structure));
  EXPECT_EQ(Calculate(structure), 6u);
  EXPECT_EQ(Place(structure, 0), "8 at 0, 0 bytes");
  EXPECT_EQ(Place(structure, 1), "6 at 0, 2 bytes");
  EXPECT_FALSE(MakesFixedValues(structure));
}

TEST(StructureLayout, MemberAddedLaterHasNoPlaceYet) {
  const auto structure = StructureDefinition({{OLESTR("a"), kLong}});
  AddMember(structure, OLESTR("b"), SimpleDefinition(kShort).get());
  EXPECT_EQ(Place(structure, 1), "0 at 0, 0 bytes");
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 4u);
  Calculate(structure);
  EXPECT_EQ(Place(structure, 1), "6 at 4, 2 bytes");
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 6u);
}

TEST(StructureLayout, ChangesOfTheListKeepTheLastLayout) {
  const auto structure =
      StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kShort}, {OLESTR("c"), kByte}});
  EXPECT_EQ(structure->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(Place(structure, 0), "6 at 4, 2 bytes");
  EXPECT_EQ(Place(structure, 1), "5 at 6, 1 bytes");
  EXPECT_EQ(structure->put_Members(I4(0).get(), SimpleDefinition(kString).get()), S_OK);
  EXPECT_EQ(structure->put_MemberName(0, Bstr(OLESTR("n")).get()), S_OK);
  EXPECT_EQ(Place(structure, 0), "6 at 4, 2 bytes");
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 7u);
  EXPECT_EQ(structure->RemoveAll(), S_OK);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 7u);
  EXPECT_EQ(Calculate(structure), 0u);
}

TEST(StructureLayout, EveryElementaryTypeTakesItsSize) {
  const auto structure = StructureDefinition({{OLESTR("char"), kChar},
                                              {OLESTR("byte"), kByte},
                                              {OLESTR("short"), kShort},
                                              {OLESTR("word"), kWord},
                                              {OLESTR("long"), kLong},
                                              {OLESTR("dword"), kDWord},
                                              {OLESTR("int64"), kInt64},
                                              {OLESTR("short real"), kShortReal},
                                              {OLESTR("real"), kReal},
                                              {OLESTR("date"), kDate},
                                              {OLESTR("text"), kFixedString, 10},
                                              {OLESTR("bytes"), kByteArray, 3}});
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 51u);
  EXPECT_EQ(Place(structure, 4), "8 at 6, 4 bytes");
  EXPECT_EQ(Place(structure, 6), "10 at 14, 4 bytes");
  EXPECT_EQ(Place(structure, 9), "13 at 30, 8 bytes");
  EXPECT_EQ(Place(structure, 10), "2 at 38, 10 bytes");
  EXPECT_EQ(Place(structure, 11), "3 at 48, 3 bytes");
  EXPECT_TRUE(MakesFixedValues(structure));
}

TEST(StructureLayout, FieldsOfSizeZeroAreNotFixed) {
  const auto structure = StructureDefinition({{OLESTR("f"), kFixedString}, {OLESTR("i"), kInvalid}});
  EXPECT_EQ(Place(structure, 0), "2 at 0, 0 bytes");
  EXPECT_EQ(Place(structure, 1), "0 at 1, 0 bytes");
  EXPECT_FALSE(MakesFixedValues(structure));
}

TEST(StructureLayout, NestedStructureIsCalculatedCountedAndNotFixed) {
  const auto inner = NewStructure();
  AddMember(inner, OLESTR("x"), SimpleDefinition(kReal).get());
  const auto outer = NewStructure();
  AddMember(outer, OLESTR("id"), SimpleDefinition(kShort).get());
  AddMember(outer, OLESTR("inner"), inner.get());
  EXPECT_EQ(Calculate(outer), 10u);
  EXPECT_EQ(Get(inner, &IValueDefBase::get_DataSize), 8u);
  EXPECT_EQ(Place(inner, 0), "12 at 0, 8 bytes");
  EXPECT_EQ(Place(outer, 1), "14 at 0, 0 bytes");
  EXPECT_FALSE(MakesFixedValues(outer));
}

TEST(StructureLayout, MemberWithoutADefinitionFails) {
  const auto structure = NewStructure();
  AddMember(structure, OLESTR("m"), nullptr);
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return structure->CalculateDataSize(&size); }));
}

TEST(StructureLayout, FailedCalculationKeepsWhatItReached) {
  const auto structure = StructureDefinition({{OLESTR("a"), kLong}});
  AddMember(structure, OLESTR("m"), nullptr);
  AddMember(structure, OLESTR("b"), SimpleDefinition(kReal).get());
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return structure->CalculateDataSize(&size); }));
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 4u);
  EXPECT_EQ(Place(structure, 0), "8 at 0, 4 bytes");
  EXPECT_EQ(Place(structure, 2), "0 at 0, 0 bytes");
  EXPECT_TRUE(MakesFixedValues(structure));
  EXPECT_EQ(Get(NewValue(structure), &IValueBase::get_Count), 3);
}

TEST(StructureLayout, FailuresOfAMemberAreRaised) {
  const auto structure = NewStructure();
  const auto foreign = NewForeign<ForeignDefinition>();
  AddMember(structure, OLESTR("m"), foreign.get());
  ULONG size = 0;
  foreign->calculated_size.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return structure->CalculateDataSize(&size); }));
  foreign->calculated_size.status = S_OK;
  foreign->type.status = E_UNEXPECTED;
  EXPECT_TRUE(Raises(E_UNEXPECTED, [&] { return structure->CalculateDataSize(&size); }));
  foreign->type.status = S_OK;
  EXPECT_EQ(Calculate(structure), 4u);
}

TEST(StructureLayout, CompositeForeignMemberIsNotFixed) {
  for (const SHORT type : {SHORT{14}, SHORT{15}, SHORT{17}, SHORT{99}}) {
    const auto structure = NewStructure();
    const auto foreign = NewForeign<ForeignDefinition>();
    foreign->type.value = type;
    AddMember(structure, OLESTR("m"), foreign.get());
    EXPECT_EQ(Calculate(structure), 4u);
    EXPECT_EQ(Place(structure, 0), std::to_string(type) + " at 0, 0 bytes");
  }
}

TEST(StructureLayout, SizesAreKeptInSixteenBits) {
  const auto structure = NewStructure();
  for (const OLECHAR* name : {OLESTR("a"), OLESTR("b"), OLESTR("c")}) {
    AddMember(structure, name, SimpleDefinition(kByteArray, 40000).get());
  }
  EXPECT_EQ(Calculate(structure), 120000u % 65536u);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 120000u % 65536u);
  EXPECT_EQ(Place(structure, 1), "3 at 40000, 40000 bytes");
  EXPECT_EQ(Place(structure, 2), "3 at 14464, 40000 bytes");
}

TEST(StructureLayout, StructureInItselfFailsCleanly) {
  const auto structure = NewStructure();
  AddMember(structure, OLESTR("self"), structure.get());
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return structure->CalculateDataSize(&size); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return structure->get_PacketSize(&size); }));
  EXPECT_EQ(WriteTo(structure, 100000).outcome, (Outcome{E_INVALIDARG, VARIANT_FALSE, kUntouched}));
  EXPECT_EQ(WriteTo(structure, 1000).outcome, TooShort());  // the room ends first
  EXPECT_EQ(structure->RemoveAll(), S_OK);
}

TEST(StructureLayout, ValuesKeepTheDefinitionThatMadeThem) {
  const auto structure = StructureDefinition({{OLESTR("a"), kLong}});
  EXPECT_TRUE(SameObject(Get(NewValue(structure), &IValueBase::get_Info).get(), structure.get()));
}

}  // namespace
}  // namespace halyard::test
