// The bytes of an array definition, written and read.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/message_recorder.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<IArrayDef> NewArrayInfo() { return CreateObject<IArrayDef>(kArrayInfoClass); }

Ptr<IArrayDef> Decoded(std::string_view hex) {
  const auto definition = NewArrayInfo();
  EXPECT_EQ(ReadFrom(definition, hex), Moved(static_cast<ULONG>(Hex(hex).size()))) << hex;
  return definition;
}

Ptr<IValueDefBase> ElementOf(const Ptr<IArrayDef>& definition) {
  return Get(definition, &IArrayDef::get_ValueType);
}

// id 5, name "T", caption "Cap", 3 elements of type Short.
constexpr const char* kTriple = "05 00 01 00 54 03 00 43 61 70 03 00 06 00 02 00 06 00 02 00 00 00";
constexpr const char* kHeader = "00 00 00 00 00 00 02 00 ";

// `depth` array definitions around each other, the innermost one of Long.
Bytes Nested(int depth) {
  Bytes result;
  for (int level = 1; level < depth; ++level) {
    result = Join({result, Hex("00 00 00 00 00 00 00 00 0F 00 00 00")});
  }
  return Join({result, Hex("00 00 00 00 00 00 00 00 08 00 04 00 08 00 04 00 00 00")});
}

TEST(ArrayEncoding, ArrayOfTenLong) {
  const auto definition = SimpleArrayDefinition(kLong, 10);
  EXPECT_EQ(PacketSize(definition), 18u);
  EXPECT_EQ(Encoded(definition), "00 00 00 00 00 00 0A 00 08 00 04 00 08 00 04 00 00 00");
}

TEST(ArrayEncoding, ElementDefinitionsOfEveryKind) {
  const struct {
    Ptr<IValueDefBase> element;
    const char* bytes;
  } rows[] = {
      {SimpleDefinition(kString), "01 00 00 00 01 00 00 00 00 00"},
      {SimpleDefinition(kFixedString, 9), "02 00 09 00 02 00 09 00"},
      {EnumerationDefinition(kShort, {{OLESTR("On"), 1}}, 4),
       "11 00 02 00 04 00 00 00 00 00 06 00 01 00 01 00 02 00 4F 6E"},
      {StructureDefinition({{OLESTR("x"), kByte}}, 6),
       "0E 00 01 00 06 00 00 00 00 00 01 00 01 00 01 00 78 00 00 00 05 00 01 00 05 00 01 00 00 00"},
      {SimpleArrayDefinition(kWord, 3, 7),
       "0F 00 06 00 07 00 00 00 00 00 03 00 07 00 02 00 07 00 02 00 00 00"},
  };
  for (const auto& row : rows) {
    const std::string expected = std::string(kHeader) + row.bytes;
    EXPECT_EQ(Encoded(ArrayDefinition(row.element, 2)), expected);
    const auto decoded = Decoded(expected);
    EXPECT_EQ(Encoded(decoded), expected);
    EXPECT_EQ(Get(ElementOf(decoded), &IValueDefBase::get_Type), Get(row.element, &IValueDefBase::get_Type));
    ExpectShortReads(expected, NewArrayInfo);
  }
}

TEST(ArrayEncoding, EverythingSurvivesARoundTrip) {
  const auto definition = Decoded(kTriple);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), 5);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), "T");
  EXPECT_EQ(Get(definition, &IArrayDef::get_ElementCount), 3);
  EXPECT_EQ(Get(definition, &IArrayDef::get_DataType), kShort);
  EXPECT_EQ(Encoded(definition), kTriple);
}

TEST(ArrayEncoding, ElementSizeInTheHeaderIsSkipped) {
  const auto definition = Decoded("00 00 00 00 00 00 02 00 08 00 34 12 08 00 04 00 00 00");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 8u);
}

TEST(ArrayEncoding, CountAndElementSizeTravelInSixteenBits) {
  const auto rows = ArrayDefinition(SimpleDefinition(kLong), 20000);
  const auto table = ArrayDefinition(rows, 65536 + 3);
  EXPECT_EQ(Encoded(table),
            "00 00 00 00 00 00 03 00 0F 00 80 38 00 00 00 00 00 00 20 4E 08 00 04 00 08 00 04 00 00 00");
}

TEST(ArrayEncoding, PacketSizeWrapsOverLongNames) {
  const auto definition = SimpleArrayDefinition(kLong);
  EXPECT_EQ(definition->put_Name(Bstr(WideString(65530, 'n')).get()), S_OK);
  EXPECT_EQ(PacketSize(definition), 6u + 6);
  EXPECT_EQ(WriteTo(definition, 65548).outcome, Moved(65548));
}

TEST(ArrayEncoding, ReadingDoesNotGiveSimpleArraysTheirElementWidth) {
  const auto definition = Decoded("00 00 00 00 00 00 00 00 08 00 04 00 08 00 04 00 00 00");
  Ptr<IValueDefBase> info;
  EXPECT_EQ(NewValue(definition)->get_Info(info.Out()), E_POINTER);
  Calculate(definition);
  EXPECT_EQ(NewValue(definition)->get_Info(info.Out()), S_OK);
}

TEST(ArrayEncoding, ElementDefinitionIsReplacedByAFreshOne) {
  const auto old = SimpleDefinition(kReal);
  const auto definition = ArrayDefinition(old, 9);
  EXPECT_EQ(ReadFrom(definition, kTriple), Moved(22));
  EXPECT_FALSE(SameObject(ElementOf(definition).get(), old.get()));
  EXPECT_EQ(Get(old, &IValueDefBase::get_Type), kReal);
}

TEST(ArrayEncoding, TypesWithoutAClassOfTheirOwnAreReadAsSimple) {
  for (const char* type : {"00 00", "0D 00", "10 00"}) {
    const std::string hex = kHeader + std::string(type) + " 00 00 " + type + " 00 00";
    EXPECT_TRUE(ElementOf(Decoded(hex)).As<ISimpleValueDef>()) << type;
  }
}

TEST(ArrayEncoding, UnknownElementTypeShowsAMessageAndFails) {
  for (const char* type : {"12 00", "14 00", "FF 7F", "FF FF"}) {
    MessageRecorder messages;
    const auto definition = NewArrayInfo();
    Bytes bytes = Hex(kHeader + std::string(type) + " 00 00 08 00 04 00 00 00");
    ULONG count = kUntouched;
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_TRUE(Raises(E_POINTER, [&] {
      return definition->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, &result);
    })) << type;
    EXPECT_EQ(messages.Shown(), "No caption: Invalid type\n");
    EXPECT_EQ(result, VARIANT_FALSE);
    EXPECT_EQ(count, kUntouched);
  }
}

TEST(ArrayEncoding, UnknownElementTypeIsReadByTheOldDefinition) {
  MessageRecorder messages;
  const auto old = SimpleDefinition(kReal);
  const auto definition = ArrayDefinition(old);
  EXPECT_EQ(ReadFrom(definition, kHeader + std::string("14 00 00 00 08 00 04 00 00 00")), Moved(18));
  EXPECT_EQ(messages.Shown(), "No caption: Invalid type\n");
  EXPECT_TRUE(SameObject(ElementOf(definition).get(), old.get()));
  EXPECT_EQ(Get(old, &IValueDefBase::get_Type), kLong);
}

TEST(ArrayEncoding, EveryRoomThatIsTooSmallReportsIt) {
  ExpectShortWrites(Decoded(kTriple), kTriple, {2, 2, 1, 2, 3, 2, 2, 2, 2, 2, 2});
}

TEST(ArrayEncoding, EveryCutReportsAShortBuffer) { ExpectShortReads(kTriple, NewArrayInfo); }

TEST(ArrayEncoding, CutReadingKeepsTheFieldsThatArrived) {
  const Bytes bytes = Hex(kTriple);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const auto definition = NewArrayInfo();
    EXPECT_EQ(ReadFrom(definition, Prefix(bytes, size)), TooShort());
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Id), size < 2 ? 0 : 5) << size;
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Name), size < 5 ? "" : "T") << size;
    EXPECT_EQ(Get(definition, &IArrayDef::get_ElementCount), size < 12 ? 0 : 3) << size;
    EXPECT_EQ(static_cast<bool>(ElementOf(definition)), size >= 16) << size;
  }
}

TEST(ArrayEncoding, NullBufferIsAShortOneWhateverItsSize) {
  const auto definition = SimpleArrayDefinition(kLong, 2);
  for (const ULONG size : {0u, 1u, 100u}) {
    Outcome outcome{E_UNEXPECTED, VARIANT_TRUE, kUntouched};
    outcome.status = definition->ReadFromBuffer(nullptr, size, &outcome.count, &outcome.result);
    EXPECT_EQ(outcome, TooShort());
    outcome.result = VARIANT_TRUE;
    outcome.status = definition->WriteToBuffer(nullptr, size, &outcome.count, &outcome.result);
    EXPECT_EQ(outcome, TooShort());
  }
  EXPECT_EQ(Get(definition, &IArrayDef::get_ElementCount), 2);
}

TEST(ArrayEncoding, ElementDefinitionDecidesTheResult) {
  const auto element = NewForeign<ForeignDefinition>();
  element->write = {VARIANT_TRUE, 5, S_OK};
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ValueType(element.get()), S_OK);
  EXPECT_EQ(WriteTo(definition, 64).outcome, Moved(17));
  element->write.result = VARIANT_FALSE;
  EXPECT_EQ(WriteTo(definition, 64).outcome, TooShort());
}

TEST(ArrayEncoding, ResultIsNeeded) {
  const auto definition = SimpleArrayDefinition(kLong, 10);
  Bytes bytes = Hex(kTriple);
  ULONG count = kUntouched;
  EXPECT_TRUE(Raises(E_POINTER, [&] {
    return definition->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, nullptr);
  }));
  EXPECT_TRUE(Raises(E_POINTER, [&] {
    return definition->WriteToBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), &count, nullptr);
  }));
  EXPECT_EQ(count, kUntouched);
  EXPECT_EQ(ToHex(bytes), kTriple);
  EXPECT_EQ(Get(definition, &IArrayDef::get_ElementCount), 10);
}

TEST(ArrayEncoding, CountIsNeededOnlyWhereItWouldBeStored) {
  const auto definition = NewArrayInfo();
  Bytes bytes = Hex(kTriple);
  const auto size = static_cast<ULONG>(bytes.size());
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(definition->ReadFromBuffer(bytes.data(), size - 1, nullptr, &result), S_OK);
  EXPECT_EQ(result, VARIANT_FALSE);
  result = VARIANT_TRUE;
  EXPECT_TRUE(
      Raises(E_POINTER, [&] { return definition->ReadFromBuffer(bytes.data(), size, nullptr, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_EQ(Encoded(definition), kTriple);  // all of it was read

  GuardedBuffer buffer(size);
  result = VARIANT_TRUE;
  EXPECT_EQ(definition->WriteToBuffer(buffer.data(), size - 1, nullptr, &result), S_OK);
  EXPECT_EQ(result, VARIANT_FALSE);
  result = VARIANT_TRUE;
  EXPECT_TRUE(
      Raises(E_POINTER, [&] { return definition->WriteToBuffer(buffer.data(), size, nullptr, &result); }));
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_EQ(ToHex(buffer.Contents()), kTriple);
}

TEST(ArrayEncoding, ElementDefinitionThatLiesAboutItsBytesMovesNothingOutside) {
  const auto element = NewForeign<ForeignDefinition>();
  element->write.count = 1000;
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ValueType(element.get()), S_OK);
  EXPECT_EQ(WriteTo(definition, 64).outcome, (Outcome{E_UNEXPECTED, VARIANT_FALSE, kUntouched}));
}

TEST(ArrayEncoding, SixtyFourLevelsAreRead) {
  const Bytes bytes = Nested(64);
  EXPECT_EQ(ReadFrom(NewArrayInfo(), bytes), Moved(static_cast<ULONG>(bytes.size())));
}

TEST(ArrayEncoding, DeeperNestingIsRefused) {
  EXPECT_EQ(ReadFrom(NewArrayInfo(), Nested(65)), TooShort());
  EXPECT_EQ(ReadFrom(NewArrayInfo(), Nested(1000)), TooShort());
}

// Every call that walks into the element definition of a definition that holds itself.
void ExpectWalksToEnd(const Ptr<IArrayDef>& definition) {
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return definition->CalculateDataSize(&size); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return definition->get_DataSize(&size); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return definition->get_PacketSize(&size); }));
  EXPECT_EQ(WriteTo(definition, 100000).outcome, (Outcome{E_INVALIDARG, VARIANT_FALSE, kUntouched}));
}

TEST(ArrayEncoding, DefinitionNestedInItselfFailsCleanly) {
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ValueType(definition.get()), S_OK);
  EXPECT_EQ(Get(definition, &IArrayDef::get_DataType), kArray);
  ExpectWalksToEnd(definition);
  EXPECT_EQ(definition->put_ValueType(nullptr), S_OK);
}

TEST(ArrayEncoding, ValueOfADefinitionNestedInItselfIsNotMade) {
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ValueType(definition.get()), S_OK);
  EXPECT_EQ(definition->put_ElementCount(1), S_OK);
  Ptr<IValueBase> value;
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return definition->CreateDataObject(value.Out()); }));
  EXPECT_FALSE(value);
  EXPECT_EQ(definition->put_ValueType(nullptr), S_OK);
}

TEST(ArrayEncoding, DefinitionsNestedInEachOtherFailCleanly) {
  const auto outer = NewArrayInfo();
  const auto inner = NewArrayInfo();
  EXPECT_EQ(outer->put_ValueType(inner.get()), S_OK);
  EXPECT_EQ(inner->put_ValueType(outer.get()), S_OK);
  ExpectWalksToEnd(outer);
  EXPECT_EQ(inner->put_ValueType(nullptr), S_OK);
}

TEST(ArrayEncoding, ArrayNestedInItsOwnStructureFailsCleanly) {
  const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
  const auto definition = NewArrayInfo();
  EXPECT_EQ(definition->put_ValueType(structure.get()), S_OK);
  AddMember(structure, OLESTR("again"), definition.get());
  ULONG size = 0;
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return definition->CalculateDataSize(&size); }));
  EXPECT_TRUE(Raises(E_INVALIDARG, [&] { return definition->get_PacketSize(&size); }));
  EXPECT_EQ(WriteTo(definition, 100000).outcome, (Outcome{E_INVALIDARG, VARIANT_FALSE, kUntouched}));
  EXPECT_EQ(structure->RemoveAll(), S_OK);
}

}  // namespace
}  // namespace halyard::test
