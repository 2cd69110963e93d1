// The bytes of a simple definition, written and read.
#include <gtest/gtest.h>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

Ptr<ISimpleValueDef> NewDefinition() { return CreateObject<ISimpleValueDef>(kSimpleValueInfoClass); }

// A definition with validation on.
Ptr<ISimpleValueDef> Ranged(SHORT type, const Variant& low, const Variant& high,
                            const OLECHAR* script = nullptr) {
  const auto definition = SimpleDefinition(type);
  EXPECT_EQ(definition->put_Validation(VARIANT_TRUE), S_OK);
  EXPECT_EQ(definition->put_MinValue(low.get()), S_OK);
  EXPECT_EQ(definition->put_MaxValue(high.get()), S_OK);
  if (script != nullptr) {
    EXPECT_EQ(definition->put_ValidationScript(Bstr(script).get()), S_OK);
  }
  return definition;
}

// A definition read from bytes that it must take whole.
Ptr<ISimpleValueDef> Decoded(std::string_view hex) {
  const auto definition = NewDefinition();
  EXPECT_EQ(ReadFrom(definition, hex), Moved(static_cast<ULONG>(Hex(hex).size()))) << hex;
  return definition;
}

std::string Min(const Ptr<ISimpleValueDef>& definition) {
  return Describe(Get(definition, &ISimpleValueDef::get_MinValue));
}
std::string Max(const Ptr<ISimpleValueDef>& definition) {
  return Describe(Get(definition, &ISimpleValueDef::get_MaxValue));
}

constexpr const char* kRangedLong = "08 00 04 00 08 00 FB FF FF FF 64 00 00 00 03 00 78 3E 30";

Ptr<ISimpleValueDef> RangedLong() { return Ranged(kLong, I4(-5), I4(100), OLESTR("x>0")); }

TEST(SimpleValueEncoding, LongWithRangeAndScript) {
  const auto definition = RangedLong();
  EXPECT_EQ(PacketSize(definition), 19u);
  EXPECT_EQ(Encoded(definition), kRangedLong);
}

TEST(SimpleValueEncoding, TypesWithoutValidation) {
  constexpr struct {
    SHORT type;
    const char* bytes;
  } kRows[] = {{-1, "FF FF 00 00"},
               {0, "00 00 00 00"},
               {kString, "01 00 00 00 00 00"},
               {kFixedString, "02 00 00 00"},
               {kByteArray, "03 00 00 00"},
               {kChar, "04 00 01 00 00 00"},
               {kByte, "05 00 01 00 00 00"},
               {kShort, "06 00 02 00 00 00"},
               {kWord, "07 00 02 00 00 00"},
               {kLong, "08 00 04 00 00 00"},
               {kDWord, "09 00 04 00 00 00"},
               {kInt64, "0A 00 04 00 00 00"},
               {kShortReal, "0B 00 04 00 00 00"},
               {kReal, "0C 00 08 00 00 00"},
               {kDate, "0D 00 08 00"}};
  for (const auto& row : kRows) {
    EXPECT_EQ(Encoded(SimpleDefinition(row.type)), row.bytes);
    const auto decoded = Decoded(row.bytes);
    EXPECT_EQ(Get(decoded, &IValueDefBase::get_Type), row.type);
    EXPECT_EQ(Encoded(decoded), row.bytes);
  }
}

TEST(SimpleValueEncoding, TypesAboveTheElementaryEndAfterTheirSize) {
  for (const SHORT type : {SHORT{14}, SHORT{16}, SHORT{18}}) {
    const auto definition = SimpleDefinition(kString);
    EXPECT_EQ(definition->put_Type(type), S_OK);
    EXPECT_EQ(Encoded(definition), ToHex(Join({LittleEndian(static_cast<unsigned>(type), 2), Hex("00 00")})));
  }
}

TEST(SimpleValueEncoding, EachTypeCarriesItsRange) {
  const struct {
    Ptr<ISimpleValueDef> definition;
    const char* bytes;
    const char* min;
    const char* max;
  } rows[] = {
      {Ranged(kString, I2(1), I2(2), OLESTR("hi")), "01 00 00 00 01 00 02 00 68 69", "I2 0", "I2 0"},
      {Ranged(kChar, I2(1), I2(200)), "04 00 01 00 04 00 01 C8 00 00", "UI1 1", "UI1 200"},
      {Ranged(kByte, I2(0), I2(255)), "05 00 01 00 05 00 00 FF 00 00", "UI1 0", "UI1 255"},
      {Ranged(kShort, I4(-5), I4(100)), "06 00 02 00 06 00 FB FF 64 00 00 00", "I2 -5", "I2 100"},
      {Ranged(kWord, I4(-1), I4(1)), "07 00 02 00 07 00 FF FF 01 00 00 00", "I2 -1", "I2 1"},
      {RangedLong(), kRangedLong, "I4 -5", "I4 100"},
      {Ranged(kDWord, I4(-1), I4(1)), "09 00 04 00 09 00 FF FF FF FF 01 00 00 00 00 00", "I4 -1", "I4 1"},
      {Ranged(kInt64, I4(-5), I4(100)), "0A 00 04 00 0A 00 FB FF FF FF 64 00 00 00 00 00", "I4 -5", "I4 100"},
      {Ranged(kShortReal, R8(1.5), R8(2)), "0B 00 04 00 0B 00 00 00 C0 3F 00 00 00 40 00 00", "R4 1.5",
       "R4 2"},
      {Ranged(kReal, R8(1.5), R8(2)),
       "0C 00 08 00 0C 00 00 00 00 00 00 00 F8 3F 00 00 00 00 00 00 00 40 00 00", "R8 1.5", "R8 2"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Encoded(row.definition), row.bytes);
    const auto decoded = Decoded(row.bytes);
    EXPECT_EQ(Get(decoded, &ISimpleValueDef::get_Validation), VARIANT_TRUE) << row.bytes;
    EXPECT_EQ(Min(decoded), row.min);
    EXPECT_EQ(Max(decoded), row.max);
    EXPECT_EQ(Encoded(decoded), row.bytes);
  }
}

TEST(SimpleValueEncoding, BoundsAreConvertedToTheType) {
  EXPECT_EQ(Encoded(Ranged(kShort, Text(OLESTR("12")), R8(2.5))), "06 00 02 00 06 00 0C 00 02 00 00 00");
  EXPECT_EQ(Encoded(Ranged(kShort, Variant(), Variant::FromBool(true))),
            "06 00 02 00 06 00 00 00 FF FF 00 00");
}

TEST(SimpleValueEncoding, WritingLeavesTheBoundsUnconverted) {
  const auto definition = Ranged(kShort, Text(OLESTR("12")), R8(2.5));
  Encoded(definition);
  EXPECT_EQ(Min(definition), "BSTR 12");
  EXPECT_EQ(Max(definition), "R8 2.5");
}

TEST(SimpleValueEncoding, BoundThatDoesNotConvertIsRaised) {
  const struct {
    Ptr<ISimpleValueDef> definition;
    HRESULT code;
  } rows[] = {{Ranged(kLong, Text(OLESTR("abc")), I4(0)), DISP_E_TYPEMISMATCH},
              {Ranged(kLong, I4(0), Text(OLESTR("abc"))), DISP_E_TYPEMISMATCH},
              {Ranged(kDWord, R8(3e9), I4(0)), DISP_E_OVERFLOW},
              {Ranged(kChar, I2(-5), I2(0)), DISP_E_OVERFLOW},
              {Ranged(kWord, I4(0), I4(65535)), DISP_E_OVERFLOW}};
  for (const auto& row : rows) {
    GuardedBuffer buffer(64);
    ULONG count = kUntouched;
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_TRUE(Raises(row.code, [&] {
      return row.definition->WriteToBuffer(buffer.data(), buffer.size(), &count, &result);
    }));
    EXPECT_EQ(count, kUntouched);
    EXPECT_TRUE(buffer.GuardsIntact());
  }
}

TEST(SimpleValueEncoding, PacketSizeDoesNotLookAtTheBounds) {
  EXPECT_EQ(PacketSize(Ranged(kLong, Text(OLESTR("abc")), I4(0))), 16u);
}

TEST(SimpleValueEncoding, CutFixedStringFieldOf65000Bytes) {
  const auto definition = SimpleDefinition(kFixedString, 70000);
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 65000u);
  EXPECT_EQ(Encoded(definition), "02 00 E8 FD");
  EXPECT_EQ(definition->put_Validation(VARIANT_TRUE), S_OK);
  EXPECT_EQ(PacketSize(definition), 4u);
  EXPECT_EQ(Encoded(definition), "02 00 E8 FD");
}

TEST(SimpleValueEncoding, DateNeverCarriesARange) {
  const auto definition = Ranged(kDate, Date(1), Date(2), OLESTR("x"));
  EXPECT_EQ(PacketSize(definition), 4u);
  EXPECT_EQ(Encoded(definition), "0D 00 08 00");
}

TEST(SimpleValueEncoding, WriterStoresADerivedSize) {
  const auto definition = NewDefinition();
  EXPECT_EQ(Encoded(definition), "06 00 02 00 00 00");
  EXPECT_EQ(ReadFrom(definition, "08 00"), TooShort());
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 2u);
}

TEST(SimpleValueEncoding, WriterStoresADerivedSizeEvenInAShortBuffer) {
  const auto definition = NewDefinition();
  EXPECT_EQ(WriteTo(definition, 2).outcome, TooShort());
  EXPECT_EQ(ReadFrom(definition, "08 00"), TooShort());
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 2u);
}

TEST(SimpleValueEncoding, FiveBytesAreTooFewForARangedLong) {
  EXPECT_EQ(WriteTo(RangedLong(), 5).outcome, TooShort());
}

TEST(SimpleValueEncoding, ShortBuffersKeepWholeFields) {
  ExpectShortWrites(RangedLong(), kRangedLong, {2, 2, 2, 4, 4, 2, 3});
  ExpectShortWrites(SimpleDefinition(kLong), "08 00 04 00 00 00", {2, 2, 2});
  ExpectShortWrites(SimpleDefinition(kDate), "0D 00 08 00", {2, 2});
}

TEST(SimpleValueEncoding, LargerBuffersAreWrittenNoFurther) {
  const Written written = WriteTo(RangedLong(), 25);
  EXPECT_EQ(written.outcome, Moved(19));
  EXPECT_EQ(ToHex(written.bytes), std::string(kRangedLong) + " EE EE EE EE EE EE");
}

TEST(SimpleValueEncoding, BytesBehindADefinitionAreNotRead) {
  EXPECT_EQ(ReadFrom(NewDefinition(), std::string(kRangedLong) + " 01 02 03"), Moved(19));
  EXPECT_EQ(ReadFrom(NewDefinition(), "0D 00 08 00 0D 00"), Moved(4));
}

TEST(SimpleValueEncoding, EveryCutReportsAShortBuffer) {
  ExpectShortReads(kRangedLong, NewDefinition);
  ExpectShortReads("08 00 04 00 00 00", NewDefinition);
  ExpectShortReads("0D 00 08 00", NewDefinition);
}

TEST(SimpleValueEncoding, CutReadingKeepsTheFieldsThatArrived) {
  const Bytes bytes = Hex(kRangedLong);
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    const auto definition = NewDefinition();
    EXPECT_EQ(ReadFrom(definition, Prefix(bytes, size)), TooShort());
    EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), size < 2 ? kShort : kLong) << size;
    EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), size < 6 ? VARIANT_FALSE : VARIANT_TRUE)
        << size;
    EXPECT_EQ(Min(definition), size < 10 ? "I2 0" : "I4 -5") << size;
    EXPECT_EQ(Max(definition), size < 14 ? "I2 0" : "I4 100") << size;
    EXPECT_EQ(Get(definition, &ISimpleValueDef::get_ValidationScript), "(null)") << size;
  }
}

TEST(SimpleValueEncoding, ReadScriptBecomesWideText) {
  EXPECT_EQ(Get(Decoded(kRangedLong), &ISimpleValueDef::get_ValidationScript), "x>0");
}

TEST(SimpleValueEncoding, ScriptTravelsInNarrowCharacters) {
  const auto definition = Ranged(kString, I2(0), I2(0), OLESTR("\u00E9\u20AC\u4E2D"));
  EXPECT_EQ(Encoded(definition), "01 00 00 00 01 00 03 00 E9 80 3F");
  EXPECT_EQ(Get(Decoded("01 00 00 00 01 00 03 00 E9 80 3F"), &ISimpleValueDef::get_ValidationScript),
            "\\u00E9\\u20AC?");
}

TEST(SimpleValueEncoding, ReadValidationOfZeroTurnsItOff) {
  const auto definition = RangedLong();
  EXPECT_EQ(ReadFrom(definition, "08 00 04 00 00 00"), Moved(6));
  EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), VARIANT_FALSE);
  EXPECT_EQ(Min(definition), "I4 -5");
}

TEST(SimpleValueEncoding, ValidationTypeSizesTheBoundsThatAreRead) {
  const auto definition = Decoded("08 00 04 00 06 00 01 00 02 00 00 00");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_Type), kLong);
  EXPECT_EQ(Min(definition), "I2 1");
  EXPECT_EQ(Max(definition), "I2 2");
}

TEST(SimpleValueEncoding, ValidationTypeWithoutWidthKeepsTheBounds) {
  for (const char* bytes :
       {"08 00 04 00 01 00 00 00", "08 00 04 00 63 00 00 00", "08 00 04 00 02 00 00 00"}) {
    const auto definition = RangedLong();
    EXPECT_EQ(ReadFrom(definition, bytes), Moved(8)) << bytes;
    EXPECT_EQ(Min(definition), "I4 -5") << bytes;
    EXPECT_EQ(Max(definition), "I4 100") << bytes;
    EXPECT_EQ(Get(definition, &ISimpleValueDef::get_Validation), VARIANT_TRUE) << bytes;
  }
}

TEST(SimpleValueEncoding, BoundsOfAValidationTypeDateArePassedOver) {
  const std::string bytes = "08 00 04 00 0D 00 D4 07 0F 03 00 00 00 00 D5 07 0F 03 00 00 00 00 00 00";
  const auto definition = Decoded(bytes);
  EXPECT_EQ(Min(definition), "I2 0");
  EXPECT_EQ(Max(definition), "I2 0");
  ExpectShortReads(bytes, NewDefinition);
}

TEST(SimpleValueEncoding, SizeIsReadWithoutACheckAgainstTheType) {
  const auto definition = Decoded("08 00 FF FF 00 00");
  EXPECT_EQ(Get(definition, &IValueDefBase::get_DataSize), 65535u);
  EXPECT_EQ(Encoded(definition), "08 00 FF FF 00 00");
}

TEST(SimpleValueEncoding, NullBuffersAreToldApart) {
  const auto definition = NewDefinition();
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(definition->WriteToBuffer(nullptr, 0, &count, &result), E_POINTER);
  EXPECT_EQ(definition->WriteToBuffer(nullptr, 10, &count, &result), E_POINTER);
  for (const ULONG size : {0u, 100u}) {
    result = VARIANT_TRUE;
    EXPECT_EQ(definition->ReadFromBuffer(nullptr, size, &count, &result), S_OK);
    EXPECT_EQ(result, VARIANT_FALSE);
    EXPECT_EQ(count, kUntouched);
  }
}

TEST(SimpleValueEncoding, ZerosInsideAScriptTravel) {
  const char* bytes = "01 00 00 00 01 00 03 00 61 00 62";
  EXPECT_EQ(Get(Decoded(bytes), &ISimpleValueDef::get_ValidationScript), "a\\u0000b");
  EXPECT_EQ(Encoded(Decoded(bytes)), bytes);
}

}  // namespace
}  // namespace halyard::test
