// The bytes of an enumeration definition, written and read.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

Ptr<IEnumerationDef> NewEnumeration() { return CreateObject<IEnumerationDef>(kEnumerationInfoClass); }

Ptr<IEnumerationDef> Decoded(std::string_view hex) {
  const auto definition = NewEnumeration();
  EXPECT_EQ(ReadFrom(definition, hex), Moved(static_cast<ULONG>(Hex(hex).size()))) << hex;
  return definition;
}

std::string Name(const Ptr<IEnumerationDef>& definition, LONG position) {
  return Get(definition, &IEnumerationDef::get_ElementName, position);
}

LONG Number(const Ptr<IEnumerationDef>& definition, LONG position) {
  return Get(definition, &IEnumerationDef::get_ElementValue, position);
}

// id 3, name "Sw", caption "C", stored as Short; On = 1, Off = -2.
constexpr const char* kSwitch =
    "03 00 02 00 53 77 01 00 43 06 00 02 00"
    " 01 00 02 00 4F 6E"
    " FE FF 03 00 4F 66 66";
const std::vector<std::size_t> kSwitchFields = {2, 2, 2, 2, 1, 2, 2, 2, 2, 2, 2, 2, 3};

TEST(EnumerationEncoding, EmptyEnumeration) {
  const auto definition = NewEnumeration();
  EXPECT_EQ(PacketSize(definition), 10u);
  EXPECT_EQ(Encoded(definition), "00 00 00 00 00 00 04 00 00 00");
}

TEST(EnumerationEncoding, EntryIsNumberLengthAndName) {
  const auto definition = EnumerationDefinition(kShort, {{OLESTR("On"), 1}});
  EXPECT_EQ(PacketSize(definition), 16u);
  EXPECT_EQ(Encoded(definition), "00 00 00 00 00 00 06 00 01 00 01 00 02 00 4F 6E");
}

TEST(EnumerationEncoding, EverythingSurvivesARoundTrip) {
  const auto definition = Decoded(kSwitch);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), 3);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "Sw");
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataType), kShort);
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 2);
  EXPECT_EQ(Name(definition, 0), "On");
  EXPECT_EQ(Number(definition, 0), 1);
  EXPECT_EQ(Name(definition, 1), "Off");
  EXPECT_EQ(Number(definition, 1), -2);
  EXPECT_EQ(Encoded(definition), kSwitch);
}

TEST(EnumerationEncoding, NumbersAreCutToTheStoredWidth) {
  constexpr struct {
    SHORT type;
    LONG number;
    const char* bytes;
    LONG read_back;
  } kRows[] = {
      {kChar, 200, "C8", -56},
      {kChar, -1, "FF", -1},
      {kChar, 127, "7F", 127},
      {kChar, 1000, "E8", -24},
      {kShort, 70000, "70 11", 4464},
      {kShort, -32768, "00 80", -32768},
      {kShort, 40000, "40 9C", -25536},
      {kLong, -2147483647 - 1, "00 00 00 80", -2147483647 - 1},
      {kLong, 70000, "70 11 01 00", 70000},
  };
  for (const auto& row : kRows) {
    const auto definition = EnumerationDefinition(row.type, {{OLESTR("x"), row.number}});
    const std::string expected = "00 00 00 00 00 00 " +
                                 ToHex(LittleEndian(static_cast<unsigned>(row.type), 2)) + " 01 00 " +
                                 row.bytes + " 01 00 78";
    EXPECT_EQ(Encoded(definition), expected);
    EXPECT_EQ(Number(Decoded(expected), 0), row.read_back) << expected;
  }
}

TEST(EnumerationEncoding, ElementWithoutANameHasLengthZero) {
  const auto definition = NewEnumeration();
  VARIANT_BOOL added = VARIANT_FALSE;
  EXPECT_EQ(definition->AddMember(nullptr, 7, &added), S_OK);
  EXPECT_EQ(Encoded(definition), "00 00 00 00 00 00 04 00 01 00 07 00 00");
}

TEST(EnumerationEncoding, NamesTravelNarrow) {
  const auto definition = EnumerationDefinition(kChar, {{OLESTR("\u00E9\u4E2D"), 1}});
  EXPECT_EQ(Encoded(definition), "00 00 00 00 00 00 04 00 01 00 01 02 00 E9 3F");
  EXPECT_EQ(Name(Decoded("00 00 00 00 00 00 04 00 01 00 01 02 00 E9 3F"), 0), "\\u00E9?");
}

TEST(EnumerationEncoding, AnyStoredTypeIsReadAsItStands) {
  constexpr struct {
    SHORT type;
    const char* name;
    ULONG size;
  } kRows[] = {
      {0, "Invalid", 0},    {kString, "String", 0},       {kByte, "Byte", 1}, {kWord, "Word", 2},
      {kDWord, "DWord", 4}, {kInt64, "Int64", 4},         {kReal, "Real", 8}, {kShortReal, "ShortReal", 4},
      {kDate, "Date", 8},   {kStructure, "Structure", 0}, {99, "Unknown", 0}};
  for (const auto& row : kRows) {
    const auto definition = EnumerationOver(row.type, 0);
    EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataType), row.type);
    EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataTypeString), row.name);
    EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), row.size) << row.name;
    EXPECT_EQ(Calculate(definition), row.size) << row.name;
  }
}

TEST(EnumerationEncoding, OtherStoredTypesCountNumbersThatAreNotWritten) {
  const auto definition = EnumerationOver(kReal, 2);
  EXPECT_EQ(PacketSize(definition), 10u + 2 * (2 + 1 + 8));
  const Written written = WriteTo(definition, 32);
  EXPECT_EQ(written.outcome, Moved(16));
  EXPECT_EQ(ToHex(Prefix(written.bytes, 16)), "00 00 00 00 00 00 0C 00 02 00 01 00 41 01 00 42");
}

TEST(EnumerationEncoding, OtherStoredTypesKeepTheOldNumbersWhenRead) {
  const auto definition = EnumerationDefinition(kLong, {{OLESTR("a"), 11}, {OLESTR("b"), 22}});
  EXPECT_EQ(ReadFrom(definition, "00 00 00 00 00 00 09 00 03 00 01 00 78 01 00 79 01 00 7A"), Moved(19));
  EXPECT_EQ(Name(definition, 0), "x");
  EXPECT_EQ(Number(definition, 0), 11);
  EXPECT_EQ(Number(definition, 1), 22);
  EXPECT_EQ(Number(definition, 2), 0);
}

TEST(EnumerationEncoding, SurplusElementsAreDropped) {
  const auto definition =
      EnumerationDefinition(kLong, {{OLESTR("a"), 1}, {OLESTR("b"), 2}, {OLESTR("c"), 3}});
  EXPECT_EQ(ReadFrom(definition, kSwitch), Moved(26));
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 2);
  EXPECT_EQ(Encoded(definition), kSwitch);
}

TEST(EnumerationEncoding, PacketSizeWrapsOverLongNames) {
  const auto definition = NewEnumeration();
  EXPECT_EQ(definition->put_Name(Bstr(WideString(65529, 'n')).get()), S_OK);
  EXPECT_EQ(PacketSize(definition), 65535u + 4);
  EXPECT_EQ(definition->put_Name(Bstr(WideString(65530, 'n')).get()), S_OK);
  EXPECT_EQ(PacketSize(definition), 4u);
  EXPECT_EQ(WriteTo(definition, 65540).outcome, Moved(65540));
}

TEST(EnumerationEncoding, EveryRoomThatIsTooSmallReportsIt) {
  ExpectShortWrites(Decoded(kSwitch), kSwitch, kSwitchFields);
}

TEST(EnumerationEncoding, EveryCutReportsAShortBuffer) { ExpectShortReads(kSwitch, NewEnumeration); }

TEST(EnumerationEncoding, CutReadingKeepsTheFieldsThatArrived) {
  const Bytes bytes = Hex(kSwitch);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const auto definition = NewEnumeration();
    EXPECT_EQ(ReadFrom(definition, Prefix(bytes, size)), TooShort());
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), size < 2 ? 0 : 3) << size;
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), size < 6 ? "" : "Sw") << size;
    EXPECT_EQ(Get(definition, &IEnumerationDef::get_DataType), size < 11 ? kChar : kShort) << size;
    EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), size < 13 ? 0 : 2) << size;
    if (size < 13) continue;
    EXPECT_EQ(Number(definition, 0), size < 15 ? 0 : 1) << size;
    EXPECT_EQ(Name(definition, 0) == "On", size >= 19) << size;
    EXPECT_EQ(Number(definition, 1), size < 21 ? 0 : -2) << size;
  }
}

TEST(EnumerationEncoding, CountThatTheBufferCannotHoldIsKept) {
  const auto definition = NewEnumeration();
  EXPECT_EQ(ReadFrom(definition, "00 00 00 00 00 00 04 00 FF FF 01 00 00"), TooShort());
  EXPECT_EQ(Get(definition, &IEnumerationDef::get_ElementCount), 65535);
  EXPECT_EQ(Number(definition, 0), 1);
  EXPECT_EQ(Number(definition, 65534), 0);
  EXPECT_EQ(definition->put_ElementValue(65534, 5), S_OK);
  EXPECT_EQ(Number(definition, 65534), 5);
  EXPECT_EQ(definition->RemoveAll(), S_OK);
}

TEST(EnumerationEncoding, NullBufferIsAShortOneWhateverItsSize) {
  for (const ULONG size : {0u, 100u}) {
    Outcome outcome{E_UNEXPECTED, VARIANT_TRUE, kUntouched};
    outcome.status = NewEnumeration()->ReadFromBuffer(nullptr, size, &outcome.count, &outcome.result);
    EXPECT_EQ(outcome, TooShort()) << size;
  }
}

TEST(EnumerationEncoding, ZerosInsideElementNamesTravel) {
  const char* bytes = "00 00 00 00 00 00 04 00 01 00 07 03 00 61 00 62";
  EXPECT_EQ(Name(Decoded(bytes), 0), "a\\u0000b");
  EXPECT_EQ(Encoded(Decoded(bytes)), bytes);
}

// All elements are written, behind a count of 16 bits; a reader takes as many as that says.
TEST(EnumerationEncoding, CountTravelsInSixteenBits) {
  const auto definition = NewEnumeration();
  VARIANT_BOOL added = VARIANT_FALSE;
  for (int i = 0; i < 65537; ++i) ASSERT_EQ(definition->AddMember(nullptr, 7, &added), S_OK);
  EXPECT_EQ(PacketSize(definition), 196621u);
  const Written written = WriteTo(definition, 196621);
  EXPECT_EQ(written.outcome, Moved(196621));
  EXPECT_EQ(ToHex(Prefix(written.bytes, 13)), "00 00 00 00 00 00 04 00 01 00 07 00 00");
  const auto read = NewEnumeration();
  EXPECT_EQ(ReadFrom(read, written.bytes), Moved(13));
  EXPECT_EQ(Get(read, &IEnumerationDef::get_ElementCount), 1);
}

TEST(EnumerationEncoding, NullArgumentsAreRejected) {
  const auto definition = NewEnumeration();
  ExpectNullBufferArgumentsRejected(definition);
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(definition->WriteToBuffer(nullptr, 0, &count, &result), E_POINTER);
  EXPECT_EQ(definition->ReadFromBuffer(nullptr, 0, &count, &result), S_OK);
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_EQ(count, kUntouched);
}

}  // namespace
}  // namespace halyard::test
