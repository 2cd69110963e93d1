// The bytes of simple values.
#include <gtest/gtest.h>

#include "tests/support/definitions.h"
#include "tests/support/encoding.h"
#include "tests/support/foreign_definition.h"
#include "tests/support/foreign_value.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

// An object that is the number 12, and makes a value a String when it is asked for it.
class Retyping : public ForeignValue {
 public:
  Ptr<IValueBase> value;

  HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT* result, EXCEPINFO*,
                                   UINT*) override {
    *result = I4(12).Detach();
    return value->put_Info(SimpleDefinition(kString).get());
  }
};

struct Row {
  SHORT type;
  LONG field_size;
  const char* bytes;
  const char* content;
  ULONG counted;
};

constexpr Row kRows[] = {
    {kString, 0, "03 00 61 62 63", "BSTR abc", 5},
    {kString, 0, "00 00", "BSTR ", 2},
    {kFixedString, 4, "41 42 00 00", "BSTR AB", 4},
    {kChar, 0, "C8", "UI1 200", 1},
    {kByte, 0, "FF", "UI1 255", 1},
    {kShort, 0, "2C 01", "I2 300", 2},
    {kWord, 0, "FF FF", "I2 -1", 2},
    {kLong, 0, "FB FF FF FF", "I4 -5", 4},
    {kDWord, 0, "FF FF FF FF", "I4 -1", 4},
    {kInt64, 0, "FE FF FF FF FF FF FF FF", "I4 -2", 4},
    {kShortReal, 0, "00 00 C0 3F", "R4 1.5", 4},
    {kReal, 0, "00 00 00 00 00 00 F8 3F", "R8 1.5", 8},
    {kDate, 0, "6C 07 01 01 00 00 00 00", "DATE 2", 8},
};

// A simple value that counts `size` bytes although its type is another.
Ptr<IValueBase> Oversized(SHORT type, ULONG size) {
  const auto foreign = NewForeign<ForeignDefinition>();
  foreign->type.value = type;
  foreign->data_size.value = size;
  const auto value = CreateObject<IValueBase>(kSimpleValueClass);
  EXPECT_EQ(value->put_Info(foreign.get()), S_OK);
  return value;
}

TEST(SimpleValueBuffer, EachTypeIsRead) {
  for (const Row& row : kRows) {
    const auto value = SimpleValue(row.type, row.field_size);
    EXPECT_EQ(ReadFrom(value, row.bytes), Moved(row.counted)) << row.bytes;
    EXPECT_EQ(ValueOf(value), row.content);
  }
}

TEST(SimpleValueBuffer, EachTypeIsWritten) {
  for (const Row& row : kRows) {
    const auto value = SimpleValue(row.type, row.field_size);
    EXPECT_EQ(ReadFrom(value, row.bytes), Moved(row.counted));
    EXPECT_EQ(PacketSize(value), row.counted) << row.bytes;
    const Written written = WriteTo(value, Hex(row.bytes).size());
    EXPECT_EQ(written.outcome, Moved(row.counted)) << row.bytes;
    EXPECT_EQ(ToHex(written.bytes), row.bytes);
  }
}

TEST(SimpleValueBuffer, DateIsPacked) {
  const auto value = SimpleValue(kDate);
  EXPECT_EQ(ReadFrom(value, "D4 07 0F 03 1E 0C 00 2D"), Moved(8));
  const Variant date = Get(value, &IValueBase::get_Value);
  EXPECT_EQ(date.type(), VT_DATE);
  EXPECT_DOUBLE_EQ(date->date, 38061 + 45045.0 / 86400);
  EXPECT_EQ(Encoded(value), "D4 07 0F 03 1E 0C 00 2D");
}

TEST(SimpleValueBuffer, NegativeDateCountsItsTimeForward) {
  const auto value = SimpleValue(kDate);
  PutValue(value, Date(-1.25));
  EXPECT_EQ(Encoded(value), "6B 07 1D 0C 00 06 00 00");
  EXPECT_EQ(ReadFrom(value, "6B 07 1D 0C 00 06 00 00"), Moved(8));
  EXPECT_EQ(ValueOf(value), "DATE -1.25");
}

TEST(SimpleValueBuffer, ZeroBytesAreTheDateZero) {
  const auto value = SimpleValue(kDate);
  PutValue(value, Date(5));
  EXPECT_EQ(ReadFrom(value, "00 00 00 00 00 00 00 00"), Moved(8));
  EXPECT_EQ(ValueOf(value), "DATE 0");
}

TEST(SimpleValueBuffer, StringOfThreeLetters) {
  const auto value = SimpleValue(kString);
  PutValue(value, Text(OLESTR("abc")));
  EXPECT_EQ(PacketSize(value), 5u);
  const Written written = WriteTo(value, 10);
  EXPECT_EQ(written.outcome, Moved(5));
  EXPECT_EQ(ToHex(written.bytes), "03 00 61 62 63 EE EE EE EE EE");
}

TEST(SimpleValueBuffer, StringInFourBytesKeepsItsCount) {
  const auto value = SimpleValue(kString);
  PutValue(value, Text(OLESTR("abc")));
  const Written written = WriteTo(value, 4);
  EXPECT_EQ(written.outcome, TooShort());
  EXPECT_EQ(ToHex(written.bytes), "03 00 EE EE");
}

TEST(SimpleValueBuffer, StringChecksEveryRoom) {
  const auto value = SimpleValue(kString);
  PutValue(value, Text(OLESTR("abc")));
  ExpectShortWrites(value, "03 00 61 62 63", {2, 3});
}

TEST(SimpleValueBuffer, CutStringIsNotRead) {
  const auto value = SimpleValue(kString);
  PutValue(value, Text(OLESTR("old")));
  EXPECT_EQ(ReadFrom(value, "05 00 61 62"), TooShort());
  EXPECT_EQ(ReadFrom(value, "05"), TooShort());
  EXPECT_EQ(ReadFrom(value, ""), TooShort());
  EXPECT_EQ(ReadFrom(value, "05 00"), TooShort());
  EXPECT_EQ(ReadFrom(value, "05 00 61 62 63 64"), TooShort());
  EXPECT_EQ(ValueOf(value), "BSTR old");
}

TEST(SimpleValueBuffer, StringRoomIsComparedAsASignedNumber) {
  const auto value = SimpleValue(kString);
  Bytes bytes = Hex("01 00 61");
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_TRUE;
  EXPECT_EQ(value->ReadFromBuffer(bytes.data(), 0x80000002u, &count, &result), S_OK);
  EXPECT_EQ(result, VARIANT_FALSE);
  EXPECT_EQ(count, kUntouched);
}

TEST(SimpleValueBuffer, ReadStringEndsAtAZeroButCountsAll) {
  const auto value = SimpleValue(kString);
  EXPECT_EQ(ReadFrom(value, "04 00 61 00 62 63"), Moved(6));
  EXPECT_EQ(ValueOf(value), "BSTR a");
}

TEST(SimpleValueBuffer, NumberInAStringIsATextOnceItWasWritten) {
  const auto value = SimpleValue(kLong);
  const auto object = NewForeign<Retyping>();
  object->value = value;
  PutValue(value, Variant(static_cast<IDispatch*>(object.get())));
  EXPECT_EQ(Get(value, &IValueBase::get_Type), kString);
  EXPECT_EQ(ValueOf(value), "I4 12");
  EXPECT_EQ(PacketSize(value), 4u);
  const Written cut = WriteTo(value, 3);
  EXPECT_EQ(cut.outcome, TooShort());
  EXPECT_EQ(ToHex(cut.bytes), "02 00 EE");
  EXPECT_EQ(ValueOf(value), "I4 12");
  EXPECT_EQ(Encoded(value), "02 00 31 32");
  EXPECT_EQ(ValueOf(value), "BSTR 12");
}

TEST(SimpleValueBuffer, StringTravelsInNarrowCharacters) {
  const auto value = SimpleValue(kString);
  PutValue(value, Text(OLESTR("\u00E9\u20AC\u4E2D")));
  EXPECT_EQ(Encoded(value), "03 00 E9 80 3F");
  EXPECT_EQ(ReadFrom(value, "02 00 E9 80"), Moved(4));
  EXPECT_EQ(ValueOf(value), "BSTR \\u00E9\\u20AC");
}

TEST(SimpleValueBuffer, LongestStringOfTheLengthField) {
  const auto value = SimpleValue(kString);
  const WideString text(65535, 'x');
  PutValue(value, Variant(WideView(text)));
  EXPECT_EQ(PacketSize(value), 65537u);
  const Written written = WriteTo(value, 65537);
  EXPECT_EQ(written.outcome, Moved(65537));
  const auto copy = SimpleValue(kString);
  EXPECT_EQ(ReadFrom(copy, written.bytes), Moved(65537));
  EXPECT_EQ(ValueOf(copy), ValueOf(value));
}

TEST(SimpleValueBuffer, LongerStringsWriteTheLowBitsOfTheirLength) {
  const auto value = SimpleValue(kString);
  PutValue(value, Variant(WideView(WideString(65536, 'x'))));
  EXPECT_EQ(PacketSize(value), 65538u);
  const Written written = WriteTo(value, 65538);
  EXPECT_EQ(written.outcome, Moved(65538));
  EXPECT_EQ(ToHex(Prefix(written.bytes, 3)), "00 00 78");
  EXPECT_EQ(WriteTo(value, 65537).outcome, TooShort());
}

TEST(SimpleValueBuffer, NumbersDoNotLookAtTheBufferSize) {
  for (const Row& row : kRows) {
    if (row.type == kString) continue;
    const auto value = SimpleValue(row.type, row.field_size);
    Bytes bytes = Hex(row.bytes);
    ULONG count = kUntouched;
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_EQ(value->ReadFromBuffer(bytes.data(), 0, &count, &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE) << row.bytes;
    EXPECT_EQ(count, row.counted) << row.bytes;
    EXPECT_EQ(ValueOf(value), row.content);
    Bytes written(bytes.size(), 0xEE);
    EXPECT_EQ(value->WriteToBuffer(written.data(), 0, &count, &result), S_OK);
    EXPECT_EQ(result, VARIANT_TRUE) << row.bytes;
    EXPECT_EQ(ToHex(written), row.bytes);
  }
}

TEST(SimpleValueBuffer, LongReadsFourBytesOfABufferOfSizeZero) {
  const auto value = Oversized(kLong, 0);
  Bytes bytes = Hex("07 00 00 00");
  ULONG count = kUntouched;
  VARIANT_BOOL result = VARIANT_FALSE;
  EXPECT_EQ(value->ReadFromBuffer(bytes.data(), 0, &count, &result), S_OK);
  EXPECT_EQ(result, VARIANT_TRUE);
  EXPECT_EQ(count, 4u);
  EXPECT_EQ(ValueOf(value), "I4 7");
}

TEST(SimpleValueBuffer, DataSizeOfTheDefinitionIsCounted) {
  const auto value = Oversized(kLong, 10);
  EXPECT_EQ(PacketSize(value), 10u);
  EXPECT_EQ(ReadFrom(value, "07 00 00 00 01 02 03 04 05 06"), Moved(10));
  EXPECT_EQ(ValueOf(value), "I4 7");
  const Written written = WriteTo(value, 10);
  EXPECT_EQ(written.outcome, Moved(10));
  EXPECT_EQ(ToHex(written.bytes), "07 00 00 00 EE EE EE EE EE EE");
}

TEST(SimpleValueBuffer, StringCountsItsOwnLengthWhateverTheDataSize) {
  const auto value = Oversized(kString, 10);
  PutValue(value, Text(OLESTR("abc")));
  EXPECT_EQ(PacketSize(value), 5u);
  EXPECT_EQ(Encoded(value), "03 00 61 62 63");
}

TEST(SimpleValueBuffer, ByteArrayIsCountedAndLeftAlone) {
  const auto value = SimpleValue(kByteArray, 3);
  PutValue(value, Text(OLESTR("kept")));
  EXPECT_EQ(PacketSize(value), 3u);
  EXPECT_EQ(ReadFrom(value, "01 02 03"), Moved(3));
  EXPECT_EQ(ValueOf(value), "BSTR kept");
  const Written written = WriteTo(value, 3);
  EXPECT_EQ(written.outcome, Moved(3));
  EXPECT_EQ(ToHex(written.bytes), "EE EE EE");
}

TEST(SimpleValueBuffer, UnknownTypeMovesNothingAndReportsTrue) {
  const auto value = Oversized(99, 0);
  EXPECT_EQ(PacketSize(value), 0u);
  EXPECT_EQ(ReadFrom(value, "01 02"), Moved(0));
  EXPECT_EQ(WriteTo(value, 2).outcome, Moved(0));
  EXPECT_EQ(PacketSize(Oversized(99, 6)), 6u);
}

TEST(SimpleValueBuffer, FixedStringFillsOrCutsItsField) {
  const auto value = SimpleValue(kFixedString, 4);
  PutValue(value, Text(OLESTR("ABCDEF")));
  EXPECT_EQ(Encoded(value), "41 42 43 44");
  PutValue(value, Text(OLESTR("AB")));
  EXPECT_EQ(Encoded(value), "41 42 00 00");
}

// Eight bytes whose month is none are a number, which need not be one that dates count.
TEST(SimpleValueBuffer, DateOutsideTheCalendarIsRaised) {
  for (const char* bytes : {"00 00 00 00 D0 12 63 41", "FF 00 00 00 FF FF FF FF"}) {  // 1e7 and not a number
    const auto value = SimpleValue(kDate);
    EXPECT_EQ(ReadFrom(value, bytes), Moved(8));
    GuardedBuffer buffer(8);
    ULONG count = kUntouched;
    VARIANT_BOOL result = VARIANT_FALSE;
    EXPECT_TRUE(Raises(DISP_E_OVERFLOW, [&] {
      return value->WriteToBuffer(buffer.data(), buffer.size(), &count, &result);
    })) << bytes;
    EXPECT_EQ(count, kUntouched);
  }
}

// The size is not looked at, so null is no buffer of no bytes here.
TEST(SimpleValueBuffer, NullBufferFailsButForAString) {
  for (const SHORT type : {kChar, kShort, kLong, kInt64, kShortReal, kReal, kDate, kString}) {
    const auto value = SimpleValue(type);
    const HRESULT expected = type == kString ? S_OK : E_POINTER;
    ULONG count = kUntouched;
    VARIANT_BOOL result = VARIANT_TRUE;
    EXPECT_EQ(value->ReadFromBuffer(nullptr, 64, &count, &result), expected) << type;
    EXPECT_EQ(result, VARIANT_FALSE) << type;
    result = VARIANT_TRUE;
    EXPECT_EQ(value->WriteToBuffer(nullptr, 64, &count, &result), expected) << type;
    EXPECT_EQ(result, VARIANT_FALSE) << type;
    EXPECT_EQ(count, kUntouched) << type;
  }
}

}  // namespace
}  // namespace halyard::test
