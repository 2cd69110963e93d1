// The bytes of general structures, nulls included.
#include <gtest/gtest.h>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

// a (Long), s (String, can be null), b (Byte).
Ptr<IValueBase> Record() {
  return NewValue(
      StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString, 0, true}, {OLESTR("b"), kByte}}));
}

Ptr<IValueBase> FilledRecord(const Variant& text) {
  const auto value = Record();
  PutItem(value, OLESTR("a"), I4(5));
  PutItem(value, OLESTR("s"), text);
  PutItem(value, OLESTR("b"), Ui1(7));
  return value;
}

constexpr const char* kWithText = "05 00 00 00 00 02 00 68 69 07";
constexpr const char* kWithNull = "05 00 00 00 01 07";

HRESULT Write(const Ptr<IValueBase>& value) {
  GuardedBuffer buffer(64);
  ULONG count = 0;
  VARIANT_BOOL result = VARIANT_FALSE;
  return value->WriteToBuffer(buffer.data(), buffer.size(), &count, &result);
}

HRESULT Read(const Ptr<IValueBase>& value, std::string_view hex) {
  Bytes bytes = Hex(hex);
  ULONG count = 0;
  VARIANT_BOOL result = VARIANT_FALSE;
  return value->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, &result);
}

TEST(StructureValueEncoding, NullableTextIsLedByAFlag) {
  const auto with_null = FilledRecord(Variant::Null());
  EXPECT_EQ(PacketSize(with_null), 6u);
  EXPECT_EQ(Encoded(with_null), kWithNull);
  const auto with_text = FilledRecord(Text(OLESTR("hi")));
  EXPECT_EQ(PacketSize(with_text), 10u);
  EXPECT_EQ(Encoded(with_text), kWithText);
}

TEST(StructureValueEncoding, FiveBytesAreTooFewForANullAndAByte) {
  const Written written = WriteTo(FilledRecord(Variant::Null()), 5);
  EXPECT_EQ(written.outcome, TooShort());
  EXPECT_EQ(ToHex(written.bytes), "05 00 00 00 01");
}

TEST(StructureValueEncoding, ShortBuffersKeepWholeFields) {
  ExpectShortWrites(FilledRecord(Variant::Null()), kWithNull, {4, 1, 1});
  ExpectShortWrites(FilledRecord(Text(OLESTR("hi"))), kWithText, {4, 1, 2, 2, 1});
}

TEST(StructureValueEncoding, IsReadBack) {
  const auto value = Record();
  EXPECT_EQ(ReadFrom(value, kWithText), Moved(10));
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 5");
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR hi");
  EXPECT_EQ(Item(value, OLESTR("b")), "UI1 7");
  EXPECT_EQ(Encoded(value), kWithText);
}

TEST(StructureValueEncoding, EveryCutReportsAShortBuffer) {
  ExpectShortReads(kWithNull, Record);
  ExpectShortReads(kWithText, Record);
}

TEST(StructureValueEncoding, CutReadingKeepsTheMembersThatArrived) {
  const auto value = Record();
  EXPECT_EQ(ReadFrom(value, "05 00 00 00 00 02 00 68"), TooShort());
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 5");
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR ");
  EXPECT_EQ(Item(value, OLESTR("b")), "UI1 0");
}

TEST(StructureValueEncoding, BytesBehindAStructureAreNotRead) {
  EXPECT_EQ(ReadFrom(Record(), std::string(kWithText) + " 01 02"), Moved(10));
}

TEST(StructureValueEncoding, ReadNullReleasesTheMember) {
  for (const char* flag : {"01", "02", "80", "FF"}) {
    const auto value = FilledRecord(Text(OLESTR("hi")));
    EXPECT_EQ(ReadFrom(value, std::string("05 00 00 00 ") + flag + " 07"), Moved(6)) << flag;
    EXPECT_EQ(Item(value, OLESTR("s")), "NULL") << flag;
    EXPECT_EQ(Encoded(value), kWithNull) << flag;
  }
}

TEST(StructureValueEncoding, NullMemberCannotBeReadInto) {
  const auto value = FilledRecord(Variant::Null());
  EXPECT_TRUE(Raises(E_POINTER, [&] { return Read(value, kWithText); }));
  EXPECT_EQ(ReadFrom(value, kWithNull), Moved(6));
  PutItem(value, OLESTR("s"), Text(OLESTR("")));
  EXPECT_EQ(ReadFrom(value, kWithText), Moved(10));
  EXPECT_EQ(Item(value, OLESTR("s")), "BSTR hi");
}

TEST(StructureValueEncoding, NullWhereNoneIsAllowedFails) {
  const auto value = NewValue(StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}}));
  PutItem(value, OLESTR("s"), Variant::Null());
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_POINTER, [&] { return value->get_PacketSize(&size); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return Write(value); }));
  EXPECT_TRUE(Raises(E_POINTER, [&] { return Read(value, "05 00 00 00 00 00"); }));
  PutItem(value, OLESTR("s"), Text(OLESTR("")));
  EXPECT_EQ(PacketSize(value), 6u);
}

TEST(StructureValueEncoding, NullableNumberIsAnObjectWithAFlag) {
  const auto value = NewValue(StructureDefinition({{OLESTR("n"), kLong, 0, true}, {OLESTR("b"), kByte}}));
  PutItem(value, OLESTR("n"), I4(5));
  EXPECT_EQ(PacketSize(value), 6u);
  ExpectShortWrites(value, "00 05 00 00 00 00", {1, 4, 1});
  EXPECT_EQ(Encoded(value), "00 05 00 00 00 00");
  EXPECT_EQ(ReadFrom(value, "00 09 00 00 00 07"), Moved(6));
  EXPECT_EQ(Item(value, OLESTR("n")), "I4 9");
  EXPECT_EQ(ReadFrom(value, "01 08"), Moved(2));
  EXPECT_EQ(Item(value, OLESTR("n")), "NULL");
  EXPECT_EQ(Item(value, OLESTR("b")), "UI1 8");
}

TEST(StructureValueEncoding, NumberObjectNeedsItsRoomToBeRead) {
  const auto make = [] {
    return NewValue(
        StructureDefinition({{OLESTR("n"), kReal, 0, true}, {OLESTR("f"), kFixedString, 3, true}}));
  };
  ExpectShortReads("00 00 00 00 00 00 00 F8 3F 00 41 42 43", make);
  EXPECT_EQ(ReadFrom(make(), "00 00 00 00 00 00 00 F8 3F 00 41 42 43"), Moved(13));
}

TEST(StructureValueEncoding, Int64ObjectStaysInsideItsRoom) {
  const auto value = NewValue(StructureDefinition({{OLESTR("q"), kInt64, 0, true}}));
  PutItem(value, OLESTR("q"), I4(-2));
  EXPECT_EQ(PacketSize(value), 5u);
  const Written written = WriteTo(value, 5);  // checks the bytes around the buffer
  EXPECT_EQ(written.outcome, Moved(5));
  EXPECT_EQ(ToHex(written.bytes), "00 FE FF FF FF");
}

TEST(StructureValueEncoding, Int64ObjectIsFollowedByTheNextMember) {
  const auto value = NewValue(StructureDefinition({{OLESTR("q"), kInt64, 0, true}, {OLESTR("n"), kLong}}));
  PutItem(value, OLESTR("q"), I4(-2));
  PutItem(value, OLESTR("n"), I4(5));
  EXPECT_EQ(Encoded(value), "00 FE FF FF FF 05 00 00 00");
}

// The layout says what is a fixed member until the size is calculated anew.
TEST(StructureValueEncoding, FixedMemberIsNeverNull) {
  const auto definition = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}});
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("a"), I4(5));
  PutItem(value, OLESTR("s"), Text(OLESTR("hi")));
  EXPECT_EQ(definition->put_CanBeNull(Text(OLESTR("a")).get(), VARIANT_TRUE), S_OK);
  EXPECT_EQ(Encoded(value), "05 00 00 00 02 00 68 69");
  EXPECT_TRUE(Raises(DISP_E_TYPEMISMATCH, [&] { return TryPutItem(value, OLESTR("a"), Variant::Null()); }));
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 5");
  EXPECT_EQ(ReadFrom(value, "06 00 00 00 02 00 68 69"), Moved(8));
  EXPECT_EQ(Item(value, OLESTR("a")), "I4 6");
}

TEST(StructureValueEncoding, ObjectMemberGetsItsFlagAtOnce) {
  const auto definition = StructureDefinition({{OLESTR("a"), kLong}, {OLESTR("s"), kString}});
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("s"), Text(OLESTR("hi")));
  EXPECT_EQ(definition->put_CanBeNull(Text(OLESTR("s")).get(), VARIANT_TRUE), S_OK);
  EXPECT_EQ(Encoded(value), "00 00 00 00 00 02 00 68 69");
  EXPECT_EQ(definition->put_CanBeNull(Text(OLESTR("s")).get(), VARIANT_FALSE), S_OK);
  EXPECT_EQ(Encoded(value), "00 00 00 00 02 00 68 69");
}

// As a full text in a block does, only that here it ends with the buffer.
TEST(StructureValueEncoding, FullTextObjectReadsOnIntoTheBytesOfTheNextMember) {
  const auto value =
      NewValue(StructureDefinition({{OLESTR("f"), kFixedString, 3, true}, {OLESTR("b"), kByte}}));
  EXPECT_EQ(ReadFrom(value, "00 41 42 43 44"), Moved(5));
  EXPECT_EQ(Item(value, OLESTR("f")), "BSTR ABCD");
  EXPECT_EQ(Item(value, OLESTR("b")), "UI1 68");
  EXPECT_EQ(ReadFrom(value, "00 41 42 00 44"), Moved(5));
  EXPECT_EQ(Item(value, OLESTR("f")), "BSTR AB");
}

TEST(StructureValueEncoding, NestedStructureIsWrittenInPlace) {
  const auto inner = StructureDefinition({{OLESTR("t"), kString}, {OLESTR("x"), kShort}});
  const auto definition = StructureDefinition({{OLESTR("a"), kByte}});
  AddMember(definition, OLESTR("in"), inner.get());
  AddMember(definition, OLESTR("b"), SimpleDefinition(kByte).get());
  Calculate(definition);
  const auto value = NewValue(definition);
  PutItem(value, OLESTR("a"), Ui1(1));
  PutItem(value, OLESTR("b"), Ui1(2));
  const auto nested = Get(value, &IValueBase::get_At, Text(OLESTR("in")));
  PutItem(nested, OLESTR("t"), Text(OLESTR("hi")));
  PutItem(nested, OLESTR("x"), I2(300));
  EXPECT_EQ(Encoded(value), "01 02 00 68 69 2C 01 02");
  ExpectShortWrites(value, "01 02 00 68 69 2C 01 02", {1, 2, 2, 2, 1});
  ExpectShortReads("01 02 00 68 69 2C 01 02", [&] { return NewValue(definition); });
}

TEST(StructureValueEncoding, FixedMembersAroundObjectsShareOneBlock) {
  const auto value =
      NewValue(StructureDefinition({{OLESTR("q"), kInt64}, {OLESTR("s"), kString}, {OLESTR("b"), kByte}}));
  PutItem(value, OLESTR("b"), Ui1(7));
  PutItem(value, OLESTR("q"), I4(-2));
  EXPECT_EQ(Item(value, OLESTR("b")), "UI1 255");
  EXPECT_EQ(Encoded(value), "FE FF FF FF 00 00 FF");
}

TEST(StructureValueEncoding, FailuresOfAMemberObjectAreRaised) {
  const auto value = Record();
  const auto foreign = NewForeign<ForeignValue>();
  PutItem(value, OLESTR("s"), Variant(static_cast<IDispatch*>(foreign.get())));
  foreign->write.status = E_ABORT;
  foreign->read.status = E_ABORT;
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Write(value); }));
  EXPECT_TRUE(Raises(E_ABORT, [&] { return Read(value, kWithText); }));
}

TEST(StructureValueEncoding, MemberObjectThatReportsAShortBufferShortensTheStructure) {
  const auto value = Record();
  const auto foreign = NewForeign<ForeignValue>();
  PutItem(value, OLESTR("s"), Variant(static_cast<IDispatch*>(foreign.get())));
  foreign->write.result = VARIANT_FALSE;
  foreign->read.result = VARIANT_FALSE;
  EXPECT_EQ(WriteTo(value, 64).outcome, TooShort());
  EXPECT_EQ(ReadFrom(value, kWithText), TooShort());
}

TEST(StructureValueEncoding, MemberObjectThatLiesAboutItsBytesMovesNothingOutside) {
  const auto value = Record();
  const auto foreign = NewForeign<ForeignValue>();
  PutItem(value, OLESTR("s"), Variant(static_cast<IDispatch*>(foreign.get())));
  for (const ULONG lie : {ULONG{6}, ULONG{1000}, ULONG{0x7FFFFFFF}, ULONG{0xFFFFFFFF}}) {
    foreign->write.count = lie;
    foreign->read.count = lie;
    const Outcome lied{E_UNEXPECTED, VARIANT_FALSE, kUntouched};
    EXPECT_EQ(WriteTo(value, 10).outcome, lied) << lie;  // checks the bytes around the buffer
    EXPECT_EQ(ReadFrom(value, kWithText), lied) << lie;
  }
}

}  // namespace
}  // namespace halyard::test
