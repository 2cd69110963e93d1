// The bytes that a structure definition reads.
#include <gtest/gtest.h>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> NewStructure() { return CreateObject<IStructureDef>(kStructureInfoClass); }

// id 3, name "P", caption "C"; members a (caption "ca", Long) and b (Short, can be null);
// the data size in the header is not the real one.
constexpr const char* kPoint =
    "03 00 01 00 50 01 00 43 02 00 34 12"
    " 01 00 61 02 00 63 61 00 08 00 04 00 08 00 04 00 00 00"
    " 01 00 62 00 00 01 06 00 02 00 06 00 02 00 00 00";
constexpr ULONG kPointSize = 46;

// A structure with one member "m" of that type code, whose definition is `encoding`.
std::string OneMember(const char* type, const char* encoding) {
  return std::string("00 00 00 00 00 00 01 00 00 00 01 00 6D 00 00 00 ") + type + " 00 00 " + encoding;
}

Ptr<IValueDefBase> MemberAt(const Ptr<IStructureDef>& structure, LONG position) {
  return Get(structure, &IStructureDef::get_Members, I4(position));
}

// The type code of a member's definition; kNoDefinition for none.
constexpr int kNoDefinition = -1;
int TypeAt(const Ptr<IStructureDef>& structure, LONG position) {
  const auto definition = MemberAt(structure, position);
  return definition ? int{Get(definition, &IValueDefBase::get_Type)} : kNoDefinition;
}

// `depth` structures, each but the last with the next one as its only member.
Bytes Nested(int depth) {
  Bytes result;
  for (int level = 1; level < depth; ++level) {
    result = Join({result, Hex("00 00 00 00 00 00 01 00 00 00 00 00 00 00 00 0E 00 00 00")});
  }
  return Join({result, Hex("00 00 00 00 00 00 00 00 00 00")});
}

TEST(StructureDecoding, ReadsHeaderAndMembers) {
  const auto structure = NewStructure();
  EXPECT_EQ(ReadFrom(structure, kPoint), Moved(kPointSize));
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Id), 3);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), "P");
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberCount), 2);
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberName, 0), "a");
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberName, 1), "b");
  EXPECT_EQ(Get(structure, &IStructureDef::get_CanBeNull, I4(0)), VARIANT_FALSE);
  EXPECT_EQ(Get(structure, &IStructureDef::get_CanBeNull, I4(1)), VARIANT_TRUE);
  EXPECT_EQ(Get(MemberAt(structure, 0), &IValueDefBase::get_Type), kLong);
  EXPECT_EQ(Get(MemberAt(structure, 1), &IValueDefBase::get_Type), kShort);
}

TEST(StructureDecoding, CalculatesTheLayoutAtItsEnd) {
  const auto structure = NewStructure();
  EXPECT_EQ(ReadFrom(structure, kPoint), Moved(kPointSize));
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 6u);
  SHORT type = 0;
  LONG offset = -1;
  ULONG size = 0;
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_EQ(structure->MemberInfo(0, &type, &offset, &size, &result), S_OK);
  EXPECT_EQ(type, kLong);
  EXPECT_EQ(offset, 0);
  EXPECT_EQ(size, 4u);
}

TEST(StructureDecoding, CaptionsSurviveARoundTrip) {
  const auto structure = NewStructure();
  EXPECT_EQ(ReadFrom(structure, kPoint), Moved(kPointSize));
  std::string expected = kPoint;
  expected.replace(expected.find("34 12"), 5, "06 00");
  EXPECT_EQ(PacketSize(structure), kPointSize);
  EXPECT_EQ(Encoded(structure), expected);
}

TEST(StructureDecoding, EveryCutReportsAShortBuffer) { ExpectShortReads(kPoint, NewStructure); }

TEST(StructureDecoding, CutReadingKeepsTheFieldsThatArrived) {
  const Bytes bytes = Hex(kPoint);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const auto structure = NewStructure();
    EXPECT_EQ(ReadFrom(structure, Prefix(bytes, size)), TooShort());
    EXPECT_EQ(Get(structure, &IValueDefBase::get_Id), size < 2 ? 0 : 3) << size;
    EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), size < 5 ? "" : "P") << size;
    EXPECT_EQ(Get(structure, &IStructureDef::get_MemberCount), size < 10 ? 0 : 2) << size;
    EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, Bstr(OLESTR("a")).get()), size < 15 ? -1 : 0)
        << size;
    EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, Bstr(OLESTR("b")).get()), size < 33 ? -1 : 1)
        << size;
    EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), size < 12 ? 0u : 0x1234u) << size;
    if (size < 10) continue;
    EXPECT_EQ(TypeAt(structure, 0), size < 24 ? kNoDefinition : int{kLong}) << size;
    EXPECT_EQ(TypeAt(structure, 1), size < 40 ? kNoDefinition : int{kShort}) << size;
    EXPECT_EQ(Get(structure, &IStructureDef::get_CanBeNull, I4(0)), VARIANT_FALSE) << size;
    EXPECT_EQ(Get(structure, &IStructureDef::get_CanBeNull, I4(1)), size < 36 ? VARIANT_FALSE : VARIANT_TRUE)
        << size;
  }
}

TEST(StructureDecoding, MembersThatDidNotArriveAreEmpty) {
  const auto structure = NewStructure();
  EXPECT_EQ(ReadFrom(structure, "00 00 00 00 00 00 02 00 00 00"), TooShort());
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberCount), 2);
  EXPECT_FALSE(MemberAt(structure, 0));
  EXPECT_FALSE(MemberAt(structure, 1));
  EXPECT_EQ(Get(structure, &IStructureDef::get_CanBeNull, I4(1)), VARIANT_FALSE);
  const Bstr name = Bstr::Adopt([&] {
    BSTR out = nullptr;
    EXPECT_EQ(structure->get_MemberName(1, &out), S_OK);
    return out;
  }());
  EXPECT_TRUE(name.View().empty());
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return structure->CalculateDataSize(&size); }));
}

TEST(StructureDecoding, MembersThatDidNotArriveCanBeAskedForAndFilled) {
  const auto structure = NewStructure();
  EXPECT_EQ(
      ReadFrom(structure, "00 00 00 00 00 00 03 00 00 00 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00"),
      TooShort());
  EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, Bstr(OLESTR("a")).get()), 0);
  EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, Bstr(OLESTR("")).get()), 1);
  EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, Bstr(OLESTR("b")).get()), -1);
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return structure->get_PacketSize(&size); }));
  GuardedBuffer buffer(64);
  ULONG count = kUntouched;
  VARIANT_BOOL done = VARIANT_FALSE;
  EXPECT_TRUE(Raises(E_POINTER,
                     [&] { return structure->WriteToBuffer(buffer.data(), buffer.size(), &count, &done); }));
  EXPECT_EQ(structure->put_MemberName(2, Bstr(OLESTR("c")).get()), S_OK);
  EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, Bstr(OLESTR("c")).get()), 2);
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return structure->put_MemberName(3, nullptr); }));
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberCount), 3);
}

TEST(StructureDecoding, CountThatTheBufferCannotHoldIsKept) {
  const auto structure = NewStructure();
  EXPECT_EQ(ReadFrom(structure, "00 00 00 00 00 00 FF FF 00 00"), TooShort());
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberCount), 65535);
  EXPECT_FALSE(MemberAt(structure, 65534));
  EXPECT_EQ(structure->Remove(I4(65534).get()), S_OK);
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberCount), 65534);
  EXPECT_EQ(structure->RemoveAll(), S_OK);
}

TEST(StructureDecoding, SurplusMembersAreDropped) {
  const auto structure = StructureDefinition(
      {{OLESTR("x"), kReal}, {OLESTR("y"), kReal}, {OLESTR("z"), kReal}}, 9, OLESTR("old"));
  EXPECT_EQ(ReadFrom(structure, kPoint), Moved(kPointSize));
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberCount), 2);
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberName, 0), "a");
  EXPECT_EQ(Get(MemberAt(structure, 1), &IValueDefBase::get_Type), kShort);
}

TEST(StructureDecoding, DefinitionsOfMembersAreReplacedByFreshOnes) {
  const auto structure = StructureDefinition({{OLESTR("x"), kReal}});
  const auto old = MemberAt(structure, 0);
  EXPECT_EQ(ReadFrom(structure, kPoint), Moved(kPointSize));
  EXPECT_FALSE(SameObject(MemberAt(structure, 0).get(), old.get()));
  EXPECT_EQ(Get(old, &IValueDefBase::get_Type), kReal);
}

TEST(StructureDecoding, AnyNonZeroFlagMeansThatAMemberCanBeNull) {
  const auto structure = NewStructure();
  std::string bytes = kPoint;
  bytes.replace(bytes.find("01 06 00 02"), 2, "80");
  EXPECT_EQ(ReadFrom(structure, bytes), Moved(kPointSize));
  EXPECT_EQ(Get(structure, &IStructureDef::get_CanBeNull, I4(1)), VARIANT_TRUE);
}

TEST(StructureDecoding, NestedStructureIsRead) {
  const auto structure = NewStructure();
  const std::string bytes = OneMember("0E 00",
                                      "02 00 01 00 49 00 00 01 00 00 00 01 00 78 00 00 00 05 00 01 00"
                                      " 05 00 01 00 00 00");
  EXPECT_EQ(ReadFrom(structure, bytes), Moved(static_cast<ULONG>(Hex(bytes).size())));
  const auto nested = MemberAt(structure, 0).As<IStructureDef>();
  ASSERT_TRUE(nested);
  EXPECT_EQ(Get(nested, &IValueDefBase::get_Id), 2);
  EXPECT_EQ(Get(nested, &IValueDefBase::get_Name), "I");
  EXPECT_EQ(Get(nested, &IValueDefBase::get_DataSize), 1u);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 1u);
  ExpectShortReads(bytes, NewStructure);
}

TEST(StructureDecoding, TypesWithoutAClassOfTheirOwnAreReadAsSimple) {
  constexpr struct {
    const char* code;
    const char* encoding;
    SHORT type;
  } kRows[] = {{"00 00", "00 00 00 00", 0}, {"0D 00", "0D 00 08 00", 13}, {"10 00", "10 00 00 00", 16}};
  for (const auto& row : kRows) {
    const auto structure = NewStructure();
    EXPECT_EQ(ReadFrom(structure, OneMember(row.code, row.encoding)), Moved(24)) << row.code;
    const auto member = MemberAt(structure, 0);
    ASSERT_TRUE(member.As<ISimpleValueDef>()) << row.code;
    EXPECT_EQ(Get(member, &IValueDefBase::get_Type), row.type);
  }
}

TEST(StructureDecoding, UnknownMemberTypeShowsAMessageAndFails) {
  for (const char* code : {"12 00", "14 00", "63 00", "FF 7F", "00 80", "FF FF"}) {
    MessageRecorder messages;
    const auto structure = NewStructure();
    ULONG count = kUntouched;
    VARIANT_BOOL result = VARIANT_FALSE;
    Bytes bytes = Hex(OneMember(code, "08 00 04 00 00 00"));
    EXPECT_TRUE(Raises(E_POINTER, [&] {
      return structure->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, &result);
    })) << code;
    EXPECT_EQ(messages.Shown(), "No caption: Invalid type\n") << code;
    EXPECT_EQ(count, kUntouched) << code;
  }
}

TEST(StructureDecoding, UnknownMemberTypeIsReadByTheOldDefinition) {
  MessageRecorder messages;
  const auto structure = StructureDefinition({{OLESTR("x"), kReal}});
  const auto old = MemberAt(structure, 0);
  EXPECT_EQ(ReadFrom(structure, OneMember("14 00", "08 00 04 00 00 00")), Moved(26));
  EXPECT_EQ(messages.Shown(), "No caption: Invalid type\n");
  EXPECT_TRUE(SameObject(MemberAt(structure, 0).get(), old.get()));
  EXPECT_EQ(Get(old, &IValueDefBase::get_Type), kLong);
  EXPECT_EQ(Get(structure, &IValueDefBase::get_DataSize), 4u);
}

TEST(StructureDecoding, OldDefinitionThatFailsIsRaised) {
  MessageRecorder messages;
  const auto structure = NewStructure();
  const auto foreign = NewForeign<ForeignDefinition>();
  AddMember(structure, OLESTR("m"), foreign.get());
  Bytes bytes = Hex(OneMember("14 00", "08 00 04 00 00 00"));
  ULONG count = 0;
  VARIANT_BOOL result = VARIANT_FALSE;
  foreign->read.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] {
    return structure->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, &result);
  }));
  foreign->read = {VARIANT_FALSE, 0, S_OK};
  EXPECT_EQ(ReadFrom(structure, bytes), TooShort());
}

TEST(StructureDecoding, OldDefinitionThatLiesAboutItsBytesReadsNothingOutside) {
  MessageRecorder messages;
  const auto structure = NewStructure();
  const auto foreign = NewForeign<ForeignDefinition>();
  AddMember(structure, OLESTR("m"), foreign.get());
  std::string bytes = OneMember("14 00", "08 00 04 00 00 00");
  bytes.replace(bytes.find("01 00 00 00"), 2, "02");
  for (const ULONG lie : {ULONG{7}, ULONG{1000}, ULONG{0x7FFFFFFF}, ULONG{0xFFFFFFFF}}) {
    foreign->read.count = lie;
    EXPECT_EQ(ReadFrom(structure, bytes), (Outcome{E_UNEXPECTED, VARIANT_FALSE, kUntouched})) << lie;
  }
}

TEST(StructureDecoding, SixtyFourLevelsAreRead) {
  const Bytes bytes = Nested(64);
  EXPECT_EQ(ReadFrom(NewStructure(), bytes), Moved(static_cast<ULONG>(bytes.size())));
}

TEST(StructureDecoding, DeeperNestingIsRefused) {
  EXPECT_EQ(ReadFrom(NewStructure(), Nested(65)), TooShort());
  EXPECT_EQ(ReadFrom(NewStructure(), Nested(1000)), TooShort());
}

TEST(StructureDecoding, NullBufferIsAShortOne) {
  for (const ULONG size : {0u, 100u}) {
    const auto structure = NewStructure();
    Outcome outcome{E_UNEXPECTED, VARIANT_TRUE, kUntouched};
    outcome.status = structure->ReadFromBuffer(nullptr, size, &outcome.count, &outcome.result);
    EXPECT_EQ(outcome, TooShort()) << size;
  }
}

// The definition's own name is read up to a zero, a member's with it; both are written as
// they came, and a member is found by what stands before the zero.
TEST(StructureDecoding, ZerosInsideNamesTravel) {
  const auto structure = NewStructure();
  const std::string bytes =
      "00 00 03 00 61 00 62 00 00 01 00 04 00"
      " 03 00 63 00 64 03 00 65 00 66 00 08 00 04 00 08 00 04 00 00 00";
  EXPECT_EQ(ReadFrom(structure, bytes), Moved(static_cast<ULONG>(Hex(bytes).size())));
  EXPECT_EQ(Get(structure, &IValueDefBase::get_Name), "a");
  EXPECT_EQ(Get(structure, &IStructureDef::get_MemberName, 0), "c\\u0000d");
  const Bstr longer(WideView(OLESTR("c\0x"), 3));
  EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, Bstr(OLESTR("C")).get()), 0);
  EXPECT_EQ(Get(structure, &IStructureDef::MemberIndex, longer.get()), 0);
  EXPECT_EQ(Encoded(structure), bytes);
}

}  // namespace
}  // namespace halyard::test
