// The member list of a structure definition: adding, removing, finding and changing.
#include <gtest/gtest.h>

#include <limits>

#include "halyard/definitions/array_def.h"
#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_value.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> NewStructure() { return CreateObject<IStructureDef>(kStructureInfoClass); }

Ptr<IStructureDef> ThreeLongs() {
  return StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kLong}, {OLESTR("c"), kLong}});
}

LONG MemberCount(const Ptr<IStructureDef>& structure) {
  const LONG count = Get(structure, &IStructureDef::get_MemberCount);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Count), count);
  return count;
}

// The names of all members, each followed by a semicolon.
std::string Names(const Ptr<IStructureDef>& structure) {
  std::string result;
  for (LONG i = 0; i < MemberCount(structure); ++i) {
    result += Get(structure, &IStructureDef::get_MemberName, i) + ";";
  }
  return result;
}

Ptr<IValueDefBase> MemberAt(const Ptr<IStructureDef>& structure, const Variant& index) {
  return Get(structure, &IStructureDef::get_Members, index);
}

LONG IndexOf(const Ptr<IStructureDef>& structure, const OLECHAR* name) {
  return Get(structure, &IStructureDef::MemberIndex, Bstr(name).get());
}

VARIANT_BOOL CanBeNull(const Ptr<IStructureDef>& structure, const Variant& index) {
  return Get(structure, &IStructureDef::get_CanBeNull, index);
}

TEST(StructureInfo, NewStructureIsEmpty) {
  const auto structure = NewStructure();
  EXPECT_EQ(MemberCount(structure), 0);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Type), 14);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_TypeString), "Structure");
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Id), 0);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), "");
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 0u);
}

TEST(StructureInfo, KeepsIdAndNameButNoOtherType) {
  const auto structure = NewStructure();
  EXPECT_EQ(structure->put_Type(kLong), S_OK);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Type), 14);
  for (const SHORT id : {SHORT{3}, SHORT{-1}, SHORT{-32768}, SHORT{32767}, SHORT{0}}) {
    EXPECT_EQ(structure->put_Id(id), S_OK);
    EXPECT_EQ(Get(structure, &IValueDefBase::get_Id), id);
  }
  EXPECT_EQ(structure->put_Name(Bstr(OLESTR("Point")).get()), S_OK);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), "Point");
  EXPECT_EQ(structure->put_Name(nullptr), S_OK);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), "");
}

TEST(StructureInfo, NameIsKeptInItsNarrowForm) {
  const auto structure = NewStructure();
  EXPECT_EQ(structure->put_Name(Bstr(OLESTR("\u00E9\u20AC\u4E2D")).get()), S_OK);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), "\\u00E9\\u20AC?");
}

TEST(StructureInfo, AddSimpleMemberTakesElementaryTypes) {
  const auto structure = NewStructure();
  for (SHORT type = -1; type <= kLastElementaryType; ++type) {
    EXPECT_EQ(Result<VARIANT_BOOL>(
                  [&](auto* out) { return structure->AddSimpleMember(Bstr(OLESTR("m")).get(), type, out); }),
              VARIANT_TRUE);
    const auto member = MemberAt(structure, I4(MemberCount(structure) - 1));
    ASSERT_TRUE(member);
    EXPECT_EQ(Get(member, &IValueDefBase::get_Type), type);
    EXPECT_EQ(Get(member.As<ISimpleValueDef>(), &ISimpleValueDef::get_Validation), VARIANT_FALSE);
  }
  EXPECT_EQ(MemberCount(structure), 15);
}

TEST(StructureInfo, AddSimpleMemberRefusesCompositeTypes) {
  const auto structure = ThreeLongs();
  for (const SHORT type : std::initializer_list<SHORT>{14, 15, 16, 17, 18, 32767}) {
    EXPECT_EQ(Result<VARIANT_BOOL>(
                  [&](auto* out) { return structure->AddSimpleMember(Bstr(OLESTR("m")).get(), type, out); }),
              VARIANT_FALSE);
    EXPECT_EQ(Result<VARIANT_BOOL>([&](auto* out) {
                return structure->AddSimpleMemberSized(Bstr(OLESTR("m")).get(), type, 5, out);
              }),
              VARIANT_FALSE);
    EXPECT_EQ(Result<VARIANT_BOOL>([&](auto* out) {
                return structure->AddSimpleArrayMember(Bstr(OLESTR("m")).get(), type, 5, out);
              }),
              VARIANT_FALSE);
    EXPECT_EQ(MemberCount(structure), 3);
  }
}

TEST(StructureInfo, AddSimpleMemberOfTypeStructureIsRefused) {
  const auto structure = NewStructure();
  EXPECT_EQ(Result<VARIANT_BOOL>(
                [&](auto* out) { return structure->AddSimpleMember(Bstr(OLESTR("m")).get(), 14, out); }),
            VARIANT_FALSE);
  EXPECT_EQ(MemberCount(structure), 0);
}

TEST(StructureInfo, SizedMembersTakeTheirSizeOnlyWhereThereIsAField) {
  constexpr struct {
    SHORT type;
    SHORT wish;
    ULONG size;
  } kRows[] = {{kFixedString, 10, 10}, {kByteArray, 32767, 32767},
               {kFixedString, -1, 0},  {kFixedString, 0, 0},
               {kLong, 10, 4},         {kString, 10, 0}};
  for (const auto& row : kRows) {
    const auto structure = StructureDefinition({{OLESTR("m"), row.type, row.wish}});
    EXPECT_EQ(Get(MemberAt(structure, I4(0)), &IValueDefBase::get_DataSize), row.size);
  }
}

TEST(StructureInfo, AddSimpleArrayMemberMakesAnArrayDefinition) {
  constexpr struct {
    SHORT type;
    LONG count;
    ULONG size;
  } kRows[] = {{kLong, 10, 40}, {kLong, 0, 0}, {kString, 3, 0}, {kDate, 2, 16}, {kInvalid, 4, 0}};
  for (const auto& row : kRows) {
    const auto structure = NewStructure();
    EXPECT_EQ(Result<VARIANT_BOOL>([&](auto* out) {
                return structure->AddSimpleArrayMember(Bstr(OLESTR("m")).get(), row.type, row.count, out);
              }),
              VARIANT_TRUE);
    EXPECT_EQ(Names(structure), "m;");
    const auto array = MemberAt(structure, I4(0)).As<IArrayDef>();
    ASSERT_TRUE(array) << row.type;
    EXPECT_EQ(Get(array, &IArrayDef::get_DataType), row.type);
    EXPECT_EQ(Get(array, &IArrayDef::get_ElementCount), row.count);
    EXPECT_EQ(Get(array, &IValueDefBase::get_Id), 0);
    EXPECT_EQ(CanBeNull(structure, I4(0)), VARIANT_FALSE);
    EXPECT_EQ(Calculate(structure), row.size) << row.type;
  }
}

TEST(StructureInfo, AddMemberSharesADefinitionOfAnyKind) {
  const auto structure = NewStructure();
  const auto simple = SimpleDefinition(kReal);
  const auto nested = ThreeLongs();
  const auto foreign = NewForeign<ForeignDefinition>();
  AddMember(structure, OLESTR("simple"), simple.get());
  AddMember(structure, OLESTR("nested"), nested.get());
  AddMember(structure, OLESTR("foreign"), foreign.get());
  EXPECT_EQ(Names(structure), "simple;nested;foreign;");
  EXPECT_TRUE(SameObject(MemberAt(structure, I4(0)).get(), simple.get()));
  EXPECT_TRUE(SameObject(MemberAt(structure, I4(1)).get(), nested.get()));
  EXPECT_TRUE(SameObject(MemberAt(structure, I4(2)).get(), foreign.get()));
}

TEST(StructureInfo, AddMemberOfSomethingElseHasNoDefinition) {
  const auto structure = NewStructure();
  const auto unwilling = NewForeign<ForeignDefinition>();
  unwilling->query_status = E_NOINTERFACE;
  AddMember(structure, OLESTR("null"), nullptr);
  AddMember(structure, OLESTR("value"), NewForeign<ForeignValue>().get());
  AddMember(structure, OLESTR("unwilling"), unwilling.get());
  for (LONG i = 0; i < 3; ++i) EXPECT_FALSE(MemberAt(structure, I4(i))) << i;
  EXPECT_EQ(MemberCount(structure), 3);
}

TEST(StructureInfo, FailedQueryOfAMemberIsRaised) {
  const auto structure = NewStructure();
  const auto broken = NewForeign<ForeignDefinition>();
  broken->query_status = E_ABORT;
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_TRUE(
      Raises(E_ABORT, [&] { return structure->AddMember(Bstr(OLESTR("m")).get(), broken.get(), &added); }));
}

TEST(StructureInfo, NamesMayRepeatOrBeEmpty) {
  const auto structure = NewStructure();
  AddMember(structure, OLESTR("same"), SimpleDefinition(kLong).get());
  AddMember(structure, OLESTR("same"), SimpleDefinition(kShort).get());
  AddMember(structure, OLESTR(""), SimpleDefinition(kByte).get());
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(structure->AddSimpleMember(nullptr, kReal, &added), S_OK);
  EXPECT_EQ(MemberCount(structure), 4);
  EXPECT_EQ(IndexOf(structure, OLESTR("same")), 0);
  EXPECT_EQ(IndexOf(structure, OLESTR("")), 2);
}

TEST(StructureInfo, MemberIndexIgnoresLetterCase) {
  const auto structure = ThreeLongs();
  EXPECT_EQ(IndexOf(structure, OLESTR("A")), 0);
  EXPECT_EQ(IndexOf(structure, OLESTR("a")), 0);
  EXPECT_EQ(IndexOf(structure, OLESTR("C")), 2);
}

TEST(StructureInfo, MemberIndexOfAnUnknownNameIsMinusOne) {
  const auto structure = ThreeLongs();
  for (const OLECHAR* name : {OLESTR("d"), OLESTR(""), OLESTR("ab"), OLESTR("0")}) {
    EXPECT_EQ(IndexOf(structure, name), -1);
  }
}

TEST(StructureInfo, MembersAreFoundByNameOrPosition) {
  const auto structure = StructureDefinition({{OLESTR("Depth"), kReal}, {OLESTR("Count"), kShort}});
  for (const Variant& index :
       {I4(1), I2(1), Ui1(1), R8(1.0), R8(0.6), Text(OLESTR("Count")), Text(OLESTR("COUNT"))}) {
    const auto member = MemberAt(structure, index);
    ASSERT_TRUE(member) << Describe(index);
    EXPECT_EQ(Get(member, &IValueDefBase::get_Type), kShort) << Describe(index);
  }
  EXPECT_EQ(Get(MemberAt(structure, Variant()), &IValueDefBase::get_Type), kReal);
}

TEST(StructureInfo, StringIndexIsANameEvenIfItHoldsDigits) {
  const auto structure = ThreeLongs();
  EXPECT_FALSE(MemberAt(structure, Text(OLESTR("1"))));
}

TEST(StructureInfo, StringIndexByReferenceIsConverted) {
  const auto structure = StructureDefinition({{OLESTR("a"), kReal}, {OLESTR("b"), kShort}});
  Bstr digit(OLESTR("1"));
  Bstr name(OLESTR("a"));
  BSTR text = digit.get();
  EXPECT_EQ(Get(MemberAt(structure, ByReference(&text)), &IValueDefBase::get_Type), kShort);
  text = name.get();
  IValueDefBase* member = nullptr;
  EXPECT_TRUE(
      Raises(DISP_E_TYPEMISMATCH, [&] { return structure->get_Members(ByReference(&text).get(), &member); }));
}

TEST(StructureInfo, IndexThatDoesNotConvertIsRaised) {
  const auto structure = ThreeLongs();
  const Variant index = Variant::Null();
  const Variant too_large = R8(3e9);
  IValueDefBase* member = nullptr;
  VARIANT_BOOL flag = VARIANT_FALSE;
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return structure->get_Members(index.get(), &member); }));
  EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] { return structure->get_Members(too_large.get(), &member); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH,
                     [&] { return structure->put_Members(index.get(), SimpleDefinition(kLong).get()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return structure->Remove(index.get()); }));
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return structure->get_CanBeNull(index.get(), &flag); }));
  EXPECT_TRUE(
      Raises(DISP_E_TYPEMISMATCH, [&] { return structure->put_CanBeNull(index.get(), VARIANT_TRUE); }));
}

TEST(StructureInfo, PositionsOutsideTheListAreInvalid) {
  const auto structure = ThreeLongs();
  for (const LONG position :
       {LONG{3}, LONG{-1}, LONG{65536}, std::numeric_limits<LONG>::max(), std::numeric_limits<LONG>::min()}) {
    const Variant index = I4(position);
    IValueDefBase* member = nullptr;
    BSTR name = nullptr;
    VARIANT_BOOL flag = VARIANT_FALSE;
    SHORT type = 0;
    LONG offset = 0;
    ULONG size = 0;
    EXPECT_EQ(structure->get_Members(index.get(), &member), E_INVALIDARG) << position;
    EXPECT_EQ(structure->put_Members(index.get(), SimpleDefinition(kLong).get()), E_INVALIDARG) << position;
    EXPECT_EQ(structure->Remove(index.get()), E_INVALIDARG) << position;
    EXPECT_EQ(structure->get_CanBeNull(index.get(), &flag), E_INVALIDARG) << position;
    EXPECT_EQ(structure->put_CanBeNull(index.get(), VARIANT_TRUE), E_INVALIDARG) << position;
    EXPECT_EQ(structure->get_MemberName(position, &name), E_INVALIDARG) << position;
    EXPECT_EQ(structure->put_MemberName(position, Bstr(OLESTR("x")).get()), E_INVALIDARG) << position;
    EXPECT_EQ(structure->MemberInfo(position, &type, &offset, &size, &flag), E_INVALIDARG) << position;
  }
  EXPECT_EQ(Names(structure), "a;b;c;");
}

TEST(StructureInfo, UnknownNamesFindNothing) {
  const auto structure = ThreeLongs();
  const Variant name = Text(OLESTR("d"));
  VARIANT_BOOL flag = VARIANT_FALSE;
  EXPECT_FALSE(MemberAt(structure, name));
  EXPECT_EQ(structure->put_Members(name.get(), SimpleDefinition(kReal).get()), S_OK);
  EXPECT_EQ(structure->Remove(name.get()), S_OK);
  EXPECT_EQ(structure->get_CanBeNull(name.get(), &flag), E_INVALIDARG);
  EXPECT_EQ(structure->put_CanBeNull(name.get(), VARIANT_TRUE), E_INVALIDARG);
  EXPECT_EQ(Names(structure), "a;b;c;");
}

TEST(StructureInfo, ObjectsAreNotAskedWithoutAPlaceForThem) {
  const auto structure = ThreeLongs();
  const auto stranger = NewForeign<ForeignDefinition>();
  stranger->query_status = E_ABORT;
  EXPECT_EQ(structure->put_Members(Text(OLESTR("d")).get(), stranger.get()), S_OK);
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return structure->put_Members(I4(3).get(), stranger.get()); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return structure->put_Members(I4(2).get(), stranger.get()); }));
}

TEST(StructureInfo, PutMembersReplacesTheDefinition) {
  const auto structure = ThreeLongs();
  const auto real = SimpleDefinition(kReal);
  EXPECT_EQ(structure->put_Members(Text(OLESTR("B")).get(), real.get()), S_OK);
  EXPECT_TRUE(SameObject(MemberAt(structure, I4(1)).get(), real.get()));
  EXPECT_EQ(structure->put_Members(I4(0).get(), real.get()), S_OK);
  EXPECT_TRUE(SameObject(MemberAt(structure, I4(0)).get(), real.get()));
  EXPECT_EQ(Names(structure), "a;b;c;");
}

TEST(StructureInfo, PutMembersRefusesNull) {
  const auto structure = ThreeLongs();
  EXPECT_EQ(structure->put_Members(I4(0).get(), nullptr), E_INVALIDARG);
  EXPECT_EQ(structure->put_Members(Text(OLESTR("d")).get(), nullptr), E_INVALIDARG);
  EXPECT_TRUE(MemberAt(structure, I4(0)));
}

TEST(StructureInfo, PutMembersOfSomethingElseLeavesNoDefinition) {
  const auto structure = ThreeLongs();
  const auto unwilling = NewForeign<ForeignDefinition>();
  unwilling->query_status = E_NOINTERFACE;
  EXPECT_EQ(structure->put_Members(I4(0).get(), unwilling.get()), S_OK);
  EXPECT_FALSE(MemberAt(structure, I4(0)));
}

TEST(StructureInfo, PutMembersRaisesAFailedQuery) {
  const auto structure = ThreeLongs();
  const auto broken = NewForeign<ForeignDefinition>();
  broken->query_status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return structure->put_Members(I4(0).get(), broken.get()); }));
}

TEST(StructureInfo, RemoveMovesLaterMembersDown) {
  const auto structure = ThreeLongs();
  EXPECT_EQ(structure->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(Names(structure), "b;c;");
  EXPECT_EQ(structure->Remove(Text(OLESTR("C")).get()), S_OK);
  EXPECT_EQ(Names(structure), "b;");
  EXPECT_EQ(structure->Remove(I4(0).get()), S_OK);
  EXPECT_EQ(Names(structure), "");
  EXPECT_EQ(structure->Remove(I4(0).get()), E_INVALIDARG);
}

TEST(StructureInfo, RemoveByNameTakesTheFirstOfThatName) {
  const auto structure = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("a"), kShort}});
  EXPECT_EQ(structure->Remove(Text(OLESTR("a")).get()), S_OK);
  EXPECT_EQ(Get(MemberAt(structure, I4(0)), &IValueDefBase::get_Type), kShort);
}

TEST(StructureInfo, RemoveAllReleasesTheDefinitions) {
  const auto structure = NewStructure();
  auto foreign = NewForeign<ForeignDefinition>();
  const auto life = foreign->Life();
  AddMember(structure, OLESTR("m"), foreign.get());
  foreign.Reset();
  EXPECT_FALSE(life.expired());
  EXPECT_EQ(structure->RemoveAll(), S_OK);
  EXPECT_TRUE(life.expired());
  EXPECT_EQ(MemberCount(structure), 0);
  EXPECT_EQ(structure->RemoveAll(), S_OK);
}

TEST(StructureInfo, DefinitionsAreReleasedWithTheStructure) {
  auto structure = NewStructure();
  auto foreign = NewForeign<ForeignDefinition>();
  const auto life = foreign->Life();
  AddMember(structure, OLESTR("m"), foreign.get());
  foreign.Reset();
  EXPECT_FALSE(life.expired());
  structure.Reset();
  EXPECT_TRUE(life.expired());
}

TEST(StructureInfo, RemovedAndReplacedDefinitionsAreReleased) {
  const auto structure = NewStructure();
  auto removed = NewForeign<ForeignDefinition>();
  auto replaced = NewForeign<ForeignDefinition>();
  const auto removed_life = removed->Life();
  const auto replaced_life = replaced->Life();
  AddMember(structure, OLESTR("a"), removed.get());
  AddMember(structure, OLESTR("b"), replaced.get());
  removed.Reset();
  replaced.Reset();
  EXPECT_EQ(structure->put_Members(I4(1).get(), SimpleDefinition(kLong).get()), S_OK);
  EXPECT_TRUE(replaced_life.expired());
  EXPECT_EQ(structure->Remove(I4(0).get()), S_OK);
  EXPECT_TRUE(removed_life.expired());
}

TEST(StructureInfo, MemberNamesAreReplacedAndCopied) {
  const auto structure = ThreeLongs();
  Bstr name(OLESTR("new"));
  EXPECT_EQ(structure->put_MemberName(1, name.get()), S_OK);
  name.get()[0] = 'x';
  EXPECT_EQ(Names(structure), "a;new;c;");
  EXPECT_EQ(IndexOf(structure, OLESTR("NEW")), 1);
  EXPECT_EQ(IndexOf(structure, OLESTR("b")), -1);
}

TEST(StructureInfo, MemberNamesStayWideUntilTheyAreWritten) {
  const auto structure = ThreeLongs();
  EXPECT_EQ(structure->put_MemberName(0, Bstr(OLESTR("\u4E2D")).get()), S_OK);
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberName, 0), "\\u4E2D");
}

TEST(StructureInfo, CanBeNullTakesAnyNonZeroFlag) {
  const auto structure = ThreeLongs();
  EXPECT_EQ(CanBeNull(structure, I4(0)), VARIANT_FALSE);
  EXPECT_EQ(structure->put_CanBeNull(I4(0).get(), VARIANT_TRUE), S_OK);
  EXPECT_EQ(structure->put_CanBeNull(Text(OLESTR("B")).get(), 256), S_OK);
  EXPECT_EQ(CanBeNull(structure, Text(OLESTR("a"))), VARIANT_TRUE);
  EXPECT_EQ(CanBeNull(structure, I4(1)), VARIANT_TRUE);
  EXPECT_EQ(CanBeNull(structure, I4(2)), VARIANT_FALSE);
  EXPECT_EQ(structure->put_CanBeNull(I4(1).get(), VARIANT_FALSE), S_OK);
  EXPECT_EQ(CanBeNull(structure, I4(1)), VARIANT_FALSE);
}

TEST(StructureInfo, NullOutPointersAreRejected) {
  const auto structure = ThreeLongs();
  const Bstr name(OLESTR("x"));
  SHORT type = 0;
  LONG offset = 0;
  ULONG size = 0;
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_EQ(structure->get_Count(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_Type(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_Id(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_Name(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_DataSize(nullptr), E_POINTER);
  EXPECT_EQ(structure->CalculateDataSize(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_PacketSize(nullptr), E_POINTER);
  EXPECT_EQ(structure->CreateDataObject(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_TypeString(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_MemberCount(nullptr), E_POINTER);
  EXPECT_EQ(structure->get_Members(I4(0).get(), nullptr), E_POINTER);
  EXPECT_EQ(structure->AddMember(name.get(), SimpleDefinition(kLong).get(), nullptr), E_POINTER);
  EXPECT_EQ(structure->AddSimpleMember(name.get(), kLong, nullptr), E_POINTER);
  EXPECT_EQ(structure->AddSimpleMemberSized(name.get(), kLong, 4, nullptr), E_POINTER);
  EXPECT_EQ(structure->AddSimpleArrayMember(name.get(), kLong, 4, nullptr), E_POINTER);
  EXPECT_EQ(structure->MemberIndex(name.get(), nullptr), E_POINTER);
  EXPECT_EQ(structure->MemberInfo(0, nullptr, &offset, &size, &result), E_POINTER);
  EXPECT_EQ(structure->MemberInfo(0, &type, nullptr, &size, &result), E_POINTER);
  EXPECT_EQ(structure->MemberInfo(0, &type, &offset, nullptr, &result), E_POINTER);
  EXPECT_EQ(structure->MemberInfo(0, &type, &offset, &size, nullptr), E_POINTER);
  EXPECT_EQ(structure->get_CanBeNull(I4(0).get(), nullptr), E_POINTER);
}

TEST(StructureInfo, NullPlaceForAMemberNameIsNoFailure) {
  EXPECT_EQ(ThreeLongs()->get_MemberName(0, nullptr), S_OK);
  EXPECT_EQ(ThreeLongs()->get_MemberName(99, nullptr), S_OK);
}

TEST(StructureInfo, NullNameIsTheNameOfNoMember) {
  EXPECT_EQ(Get(ThreeLongs(), &IStructureDef::MemberIndex, nullptr), -1);
}

TEST(StructureInfo, NegativeTypesMakeDefinitionsThatNobodyReads) {
  const auto structure = NewStructure();
  EXPECT_EQ(Result<VARIANT_BOOL>(
                [&](auto* out) { return structure->AddSimpleMember(Bstr(OLESTR("m")).get(), -1, out); }),
            VARIANT_TRUE);
  const std::string bytes = Encoded(structure);
  EXPECT_EQ(bytes, "00 00 00 00 00 00 01 00 00 00 01 00 6D 00 00 00 FF FF 00 00 FF FF 00 00");
  const MessageRecorder messages;
  EXPECT_EQ(ReadFrom(NewStructure(), bytes).status, E_POINTER);
  EXPECT_EQ(messages.Shown(), "No caption: Invalid type\n");
}

}  // namespace
}  // namespace halyard::test
