// The bytes that a structure definition writes.
#include <gtest/gtest.h>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IStructureDef> NewStructure() { return CreateObject<IStructureDef>(kStructureInfoClass); }

constexpr const char* kPoint =
    "03 00 01 00 50 00 00 02 00 06 00"                                      // id 3, "P", 2 members, 6 bytes
    " 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00"                      // "a", Long
    " 01 00 62 00 00 01 06 00 02 00 06 00 02 00 00 00";                     // "b", Short, can be null
const std::vector<std::size_t> kPointFields = {2, 2, 1, 2, 2, 2,            // header
                                               2, 1, 2, 1, 2, 2, 2, 2, 2,   // "a"
                                               2, 1, 2, 1, 2, 2, 2, 2, 2};  // "b"

Ptr<IStructureDef> Point() {
  return StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("b"), kShort, 0, true}}, 3, OLESTR("P"));
}

TEST(StructureEncoding, EmptyStructureIsTenZeroBytes) {
  EXPECT_EQ(PacketSize(NewStructure()), 10u);
  EXPECT_EQ(Encoded(NewStructure()), "00 00 00 00 00 00 00 00 00 00");
}

TEST(StructureEncoding, MembersFollowTheHeader) {
  EXPECT_EQ(PacketSize(Point()), 43u);
  EXPECT_EQ(Encoded(Point()), kPoint);
}

TEST(StructureEncoding, ShortBuffersKeepWholeFields) { ExpectShortWrites(Point(), kPoint, kPointFields); }

TEST(StructureEncoding, LargerBuffersAreWrittenNoFurther) {
  const Written written = WriteTo(Point(), 50);
  EXPECT_EQ(written.outcome, Moved(43));
  EXPECT_EQ(ToHex(written.bytes), std::string(kPoint) + " EE EE EE EE EE EE EE");
}

TEST(StructureEncoding, SizeIsTheOneLastCalculated) {
  const auto structure = NewStructure();
  AddMember(structure, OLESTR("a"), SimpleDefinition(kLong).get());
  EXPECT_EQ(Encoded(structure),
            "00 00 00 00 00 00 01 00 00 00 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00");
  Calculate(structure);
  EXPECT_EQ(Encoded(structure),
            "00 00 00 00 00 00 01 00 04 00 01 00 61 00 00 00 08 00 04 00 08 00 04 00 00 00");
}

TEST(StructureEncoding, NestedStructureIsWrittenInPlace) {
  const auto outer = NewStructure();
  const auto inner = StructureDefinition({{OLESTR("x"), kByte}}, 2, OLESTR("I"));
  AddMember(outer, OLESTR("in"), inner.get());
  Calculate(outer);
  const std::string bytes =
      "00 00 00 00 00 00 01 00 01 00 02 00 69 6E 00 00 00 0E 00 01 00"
      " 02 00 01 00 49 00 00 01 00 01 00 01 00 78 00 00 00 05 00 01 00 05 00 01 00 00 00";
  EXPECT_EQ(Encoded(outer), bytes);
  ExpectShortWrites(outer, bytes, {2, 2, 2, 2, 2, 2, 2, 2, 1, 2, 2,  // header, member
                                   2, 2, 1, 2, 2, 2, 2, 1, 2, 1, 2, 2, 2, 2, 2});
}

TEST(StructureEncoding, FieldSizesAndValidationTravelWithTheMembers) {
  const auto range = SimpleDefinition(kShort);
  EXPECT_EQ(range->put_Validation(VARIANT_TRUE), S_OK);
  EXPECT_EQ(range->put_MaxValue(I2(9).get()), S_OK);
  const auto structure = NewStructure();
  AddMember(structure, OLESTR("f"), SimpleDefinition(kFixedString, 10).get());
  AddMember(structure, OLESTR("r"), range.get());
  Calculate(structure);
  EXPECT_EQ(Encoded(structure),
            "00 00 00 00 00 00 02 00 0C 00"
            " 01 00 66 00 00 00 02 00 0A 00 02 00 0A 00"
            " 01 00 72 00 00 00 06 00 02 00 06 00 02 00 06 00 00 00 09 00 00 00");
}

TEST(StructureEncoding, NamesTravelInNarrowCharacters) {
  const auto structure = NewStructure();
  AddMember(structure, OLESTR("\u00E9\u20AC\u4E2D"), SimpleDefinition(kDate).get());
  EXPECT_EQ(Encoded(structure),
            "00 00 00 00 00 00 01 00 00 00 03 00 E9 80 3F 00 00 00 0D 00 08 00 0D 00 08 00");
}

// Nor do they become the letters and digits that they look like.
TEST(StructureEncoding, CharactersWithoutANarrowFormBecomeQuestionMarks) {
  const auto structure = NewStructure();
  const Bstr name(OLESTR("\u0100\u0101\u221E\uFF21\u2212"));
  EXPECT_EQ(structure->put_Name(name.get()), S_OK);
  EXPECT_EQ(Encoded(structure), "00 00 05 00 3F 3F 3F 3F 3F 00 00 00 00 00 00");
}

TEST(StructureEncoding, NegativeIdTravelsInSixteenBits) {
  const auto structure = NewStructure();
  EXPECT_EQ(structure->put_Id(-2), S_OK);
  EXPECT_EQ(Encoded(structure), "FE FF 00 00 00 00 00 00 00 00");
}

TEST(StructureEncoding, PacketSizeCountsTheHeaderInSixteenBits) {
  constexpr struct {
    std::size_t name;
    ULONG size;
  } kRows[] = {{65529, 65539}, {65530, 4}, {65535, 9}};
  for (const auto& row : kRows) {
    const auto structure = NewStructure();
    EXPECT_EQ(structure->put_Name(Bstr(WideString(row.name, 'n')).get()), S_OK);
    EXPECT_EQ(PacketSize(structure), row.size) << row.name;
  }
}

TEST(StructureEncoding, LengthsOfMemberNamesTravelInSixteenBits) {
  const auto structure = NewStructure();
  AddMember(structure, WideString(65537, 'n').c_str(), SimpleDefinition(kLong).get());
  EXPECT_EQ(PacketSize(structure), 26u);
  EXPECT_EQ(Encoded(structure),
            "00 00 00 00 00 00 01 00 00 00 01 00 6E 00 00 00 08 00 04 00 08 00 04 00 00 00");
}

TEST(StructureEncoding, MemberWithoutADefinitionFails) {
  const auto structure = NewStructure();
  AddMember(structure, OLESTR("m"), nullptr);
  GuardedBuffer buffer(64);
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return structure->get_PacketSize(&count); }));
  count = kUntouched;
  EXPECT_TRUE(Raises(
      E_POINTER, [&] { return structure->WriteToBuffer(buffer.data(), buffer.size(), &count, &result); }));
  EXPECT_EQ(count, kUntouched);
}

TEST(StructureEncoding, NullPointersAreRejected) {
  const auto structure = Point();
  ExpectNullBufferArgumentsRejected(structure);
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(structure->WriteToBuffer(nullptr, 0, &count, &result), E_POINTER);
  EXPECT_EQ(structure->WriteToBuffer(nullptr, 100, &count, &result), E_POINTER);
  EXPECT_EQ(count, kUntouched);
}

TEST(StructureEncoding, FailuresOfAMemberAreRaised) {
  const auto structure = NewStructure();
  const auto foreign = NewForeign<ForeignDefinition>();
  AddMember(structure, OLESTR("m"), foreign.get());
  GuardedBuffer buffer(64);
  ULONG count = 0;
  VARIANT_BOOL result = VARIANT_FALSE;
  const auto write = [&] { return structure->WriteToBuffer(buffer.data(), buffer.size(), &count, &result); };

  foreign->packet_size.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return structure->get_PacketSize(&count); }));
  for (HRESULT* status : {&foreign->type.status, &foreign->data_size.status, &foreign->write.status}) {
    *status = E_ABORT;
    EXPECT_TRUE(Raises(E_ABORT, write));
    *status = S_OK;
  }
}

TEST(StructureEncoding, MemberThatReportsAShortBufferShortensTheStructure) {
  const auto structure = NewStructure();
  const auto foreign = NewForeign<ForeignDefinition>();
  foreign->write.result = VARIANT_FALSE;
  AddMember(structure, OLESTR("m"), foreign.get());
  EXPECT_EQ(WriteTo(structure, 64).outcome, TooShort());
}

TEST(StructureEncoding, MemberThatLiesAboutItsBytesMovesNothingOutside) {
  const auto structure = NewStructure();
  const auto foreign = NewForeign<ForeignDefinition>();
  AddMember(structure, OLESTR("m"), foreign.get());
  AddMember(structure, OLESTR("n"), SimpleDefinition(kLong).get());
  for (const ULONG lie : {ULONG{1000}, ULONG{0x7FFFFFFF}, ULONG{0xFFFFFFFF}}) {
    foreign->write.count = lie;
    const Written written = WriteTo(structure, 64);  // checks the bytes around the buffer
    EXPECT_EQ(written.outcome, (Outcome{E_UNEXPECTED, VARIANT_FALSE, kUntouched})) << lie;
  }
}

}  // namespace
}  // namespace halyard::test
