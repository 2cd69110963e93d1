#include "types/elementary.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/bytes.h"
#include "tests/support/raised.h"
#include "tests/support/variants.h"

namespace halyard::test {
namespace {

constexpr SHORT kTypesWithoutConversion[] = {-1,     kInvalid,    kString,      kByteArray, kStructure,
                                             kArray, kCollection, kEnumeration, 18,         32767};
constexpr unsigned char kFiller = 0xEE;

// Reads the bytes into a variant that holds `before`; what it holds afterwards.
std::string ReadInto(Variant before, SHORT type, std::string_view hex) {
  const Bytes bytes = Hex(hex);
  EXPECT_TRUE(ReadElementary(bytes, type, before.get()));
  return Describe(before);
}

std::string Read(SHORT type, std::string_view hex) { return ReadInto(Variant(), type, hex); }

// Stores a value over 12 filler bytes; the bytes up to `shown` of them.
std::string Stored(Variant value, SHORT type, std::size_t shown, std::uint16_t size = 0) {
  Bytes bytes(12, kFiller);
  EXPECT_TRUE(WriteElementary(value.get(), type, bytes.data(), size));
  EXPECT_EQ(Bytes(bytes.begin() + static_cast<std::ptrdiff_t>(shown), bytes.end()),
            Bytes(12 - shown, kFiller))
      << "more than " << shown << " bytes were stored";
  return ToHex(Prefix(bytes, shown));
}

// The code that storing the value raises; the bytes must stay as they were.
HRESULT StoringFails(Variant value, SHORT type) {
  Bytes bytes(12, kFiller);
  HRESULT code = S_OK;
  try {
    static_cast<void>(WriteElementary(value.get(), type, bytes.data(), 0));
  } catch (const Error& error) {
    code = error.code();
  }
  EXPECT_EQ(bytes, Bytes(12, kFiller));
  return code;
}

TEST(ElementaryByteCount, IsTheElementarySizeWithoutADataSize) {
  const int sizes[] = {0, 0, 0, 0, 1, 1, 2, 2, 4, 4, 4, 4, 8, 8, 0, 0, 0, 0, 0};
  for (SHORT type = 0; type < 19; ++type) EXPECT_EQ(ElementaryByteCount(type, 0), sizes[type]) << type;
  EXPECT_EQ(ElementaryByteCount(-1, 0), 0);
}

TEST(ElementaryByteCount, IsTheDataSizeOfTheDefinitionForEveryType) {
  for (const SHORT type : {kInvalid, kFixedString, kByteArray, kChar, kLong, kReal, kStructure}) {
    EXPECT_EQ(ElementaryByteCount(type, 10), 10) << type;
    EXPECT_EQ(ElementaryByteCount(type, 65535), 65535) << type;
  }
}

TEST(ReadElementary, EachTypeBecomesItsVariantType) {
  EXPECT_EQ(Read(kChar, "FF"), "UI1 255");
  EXPECT_EQ(Read(kByte, "FF"), "UI1 255");
  EXPECT_EQ(Read(kShort, "2C 01"), "I2 300");
  EXPECT_EQ(Read(kWord, "FF FF"), "I2 -1");
  EXPECT_EQ(Read(kLong, "FF FF FF 7F"), "I4 2147483647");
  EXPECT_EQ(Read(kDWord, "FF FF FF FF"), "I4 -1");
  EXPECT_EQ(Read(kInt64, "07 00 00 00"), "I4 7");
  EXPECT_EQ(Read(kShortReal, "00 00 C0 3F"), "R4 1.5");
  EXPECT_EQ(Read(kReal, "00 00 00 00 00 00 F8 3F"), "R8 1.5");
  EXPECT_EQ(Read(kDate, "6C 07 01 01 00 00 00 00"), "DATE 2");
  EXPECT_EQ(Read(kFixedString, "41 42 00 43"), "BSTR AB");
}

TEST(ReadElementary, ByteOf0xFFIs255) { EXPECT_EQ(Read(kByte, "FF"), "UI1 255"); }

TEST(ReadElementary, WordOf0xFFFFIsMinusOne) { EXPECT_EQ(Read(kWord, "FF FF"), "I2 -1"); }

TEST(ReadElementary, Int64LooksAtItsFirstFourBytesOnly) {
  EXPECT_EQ(Read(kInt64, "FE FF FF FF FF FF FF FF"), "I4 -2");
  EXPECT_EQ(Read(kInt64, "05 00 00 00 01 00 00 00"), "I4 5");
}

TEST(ReadElementary, WholeNumbersKeepABooleanOne) {
  EXPECT_EQ(ReadInto(Variant::FromBool(false), kShort, "02 00"), "BOOL -1");
  EXPECT_EQ(ReadInto(Variant::FromBool(true), kShort, "00 00"), "BOOL 0");
  EXPECT_EQ(ReadInto(Variant::FromBool(false), kWord, "00 80"), "BOOL -1");
  EXPECT_EQ(ReadInto(Variant::FromBool(false), kLong, "00 00 01 00"), "BOOL -1");
  EXPECT_EQ(ReadInto(Variant::FromBool(true), kDWord, "00 00 00 00"), "BOOL 0");
  EXPECT_EQ(ReadInto(Variant::FromBool(false), kInt64, "00 00 00 80"), "BOOL -1");
}

TEST(ReadElementary, ByteReplacesABoolean) {
  EXPECT_EQ(ReadInto(Variant::FromBool(true), kByte, "02"), "UI1 2");
  EXPECT_EQ(ReadInto(Variant::FromBool(true), kChar, "02"), "UI1 2");
}

TEST(ReadElementary, FourBytesKeepAnErrorCode) {
  EXPECT_EQ(ReadInto(Tagged(VT_ERROR), kLong, "07 00 00 00"), "ERROR 7");
  EXPECT_EQ(ReadInto(Tagged(VT_ERROR), kDWord, "08 00 00 00"), "ERROR 8");
  EXPECT_EQ(ReadInto(Tagged(VT_ERROR), kInt64, "09 00 00 00"), "ERROR 9");
  EXPECT_EQ(ReadInto(Tagged(VT_ERROR), kShort, "07 00"), "I2 7");
}

TEST(ReadElementary, RealKeepsADate) {
  EXPECT_EQ(ReadInto(Date(0), kReal, "00 00 00 00 00 00 F8 3F"), "DATE 1.5");
  EXPECT_EQ(ReadInto(Date(0), kShortReal, "00 00 C0 3F"), "R4 1.5");
}

TEST(ReadElementary, ReplacesWhateverElseWasHeld) {
  EXPECT_EQ(ReadInto(Text(OLESTR("old")), kShort, "07 00"), "I2 7");
  EXPECT_EQ(ReadInto(Text(OLESTR("old")), kLong, "07 00 00 00"), "I4 7");
  EXPECT_EQ(ReadInto(Text(OLESTR("old")), kReal, "00 00 00 00 00 00 F8 3F"), "R8 1.5");
  EXPECT_EQ(ReadInto(Text(OLESTR("old")), kFixedString, "6E 65 77 00"), "BSTR new");
  EXPECT_EQ(ReadInto(I4(1), kShort, "07 00"), "I2 7");
  EXPECT_EQ(ReadInto(I2(1), kLong, "07 00 00 00"), "I4 7");
  EXPECT_EQ(ReadInto(I4(1), kDate, "6C 07 01 01 00 00 00 00"), "DATE 2");
}

TEST(ReadElementary, FixedStringEndsWithTheBytesThatItMayRead) {
  EXPECT_EQ(Read(kFixedString, "41 42 43 44"), "BSTR ABCD");
  EXPECT_EQ(Read(kFixedString, "00 42"), "BSTR ");
  EXPECT_EQ(Read(kFixedString, ""), "BSTR ");
}

TEST(ReadElementary, TypesWithoutConversionTouchNothing) {
  const Bytes bytes = Hex("01 02 03 04 05 06 07 08");
  for (const SHORT type : kTypesWithoutConversion) {
    Variant held = Text(OLESTR("kept"));
    EXPECT_FALSE(ReadElementary(bytes, type, held.get())) << type;
    EXPECT_EQ(Describe(held), "BSTR kept") << type;
  }
}

TEST(WriteElementary, EachTypeIsStoredInItsWidth) {
  EXPECT_EQ(Stored(Ui1(200), kChar, 1), "C8");
  EXPECT_EQ(Stored(Ui1(255), kByte, 1), "FF");
  EXPECT_EQ(Stored(I2(300), kShort, 2), "2C 01");
  EXPECT_EQ(Stored(I2(-1), kWord, 2), "FF FF");
  EXPECT_EQ(Stored(I4(-5), kLong, 4), "FB FF FF FF");
  EXPECT_EQ(Stored(I4(-1), kDWord, 4), "FF FF FF FF");
  EXPECT_EQ(Stored(R4(1.5F), kShortReal, 4), "00 00 C0 3F");
  EXPECT_EQ(Stored(R8(1.5), kReal, 8), "00 00 00 00 00 00 F8 3F");
  EXPECT_EQ(Stored(Date(2), kDate, 8), "6C 07 01 01 00 00 00 00");
}

TEST(WriteElementary, Int64IsStoredSignExtendedToEightBytes) {
  EXPECT_EQ(Stored(I4(-2), kInt64, 8), "FE FF FF FF FF FF FF FF");
  EXPECT_EQ(Stored(I4(2), kInt64, 8), "02 00 00 00 00 00 00 00");
  EXPECT_EQ(ElementaryByteCount(kInt64, 0), 4);
}

TEST(WriteElementary, ConvertsToTheTypeFirst) {
  EXPECT_EQ(Stored(Text(OLESTR("12")), kShort, 2), "0C 00");
  EXPECT_EQ(Stored(R8(2.5), kLong, 4), "02 00 00 00");
  EXPECT_EQ(Stored(Variant::FromBool(true), kShort, 2), "FF FF");
  EXPECT_EQ(Stored(I4(2), kReal, 8), "00 00 00 00 00 00 00 40");
  EXPECT_EQ(Stored(Variant(), kLong, 4), "00 00 00 00");
  EXPECT_EQ(Stored(I4(12), kFixedString, 4, 4), "31 32 00 00");
}

TEST(WriteElementary, ConvertsACopyOfNumbers) {
  const Variant digits = Text(OLESTR("12"));
  Variant value = Variant::CopyOf(digits.get());
  Bytes bytes(8);
  EXPECT_TRUE(WriteElementary(value.get(), kShort, bytes.data(), 0));
  EXPECT_EQ(Describe(value), "BSTR 12");
}

TEST(WriteElementary, DateConvertsTheVariantItself) {
  Variant value = R8(2.0);
  Bytes bytes(8);
  EXPECT_TRUE(WriteElementary(value.get(), kDate, bytes.data(), 0));
  EXPECT_EQ(Describe(value), "DATE 2");
  EXPECT_EQ(ToHex(bytes), "6C 07 01 01 00 00 00 00");
}

TEST(WriteElementary, LettersInANumberAreATypeMismatch) {
  EXPECT_EQ(StoringFails(Text(OLESTR("abc")), kShort), DISP_E_TYPEMISMATCH);
}

TEST(WriteElementary, FailedConversionsAreRaisedAndStoreNothing) {
  EXPECT_EQ(StoringFails(I4(70000), kShort), DISP_E_OVERFLOW);
  EXPECT_EQ(StoringFails(I4(65535), kWord), DISP_E_OVERFLOW);
  EXPECT_EQ(StoringFails(I2(-1), kByte), DISP_E_OVERFLOW);
  EXPECT_EQ(StoringFails(I2(256), kChar), DISP_E_OVERFLOW);
  EXPECT_EQ(StoringFails(R8(3e9), kDWord), DISP_E_OVERFLOW);
  EXPECT_EQ(StoringFails(R8(3e9), kInt64), DISP_E_OVERFLOW);
  EXPECT_EQ(StoringFails(R8(1e300), kShortReal), DISP_E_OVERFLOW);
  EXPECT_EQ(StoringFails(Variant::Null(), kLong), DISP_E_TYPEMISMATCH);
  EXPECT_EQ(StoringFails(Text(OLESTR("abc")), kDate), DISP_E_TYPEMISMATCH);
}

TEST(WriteElementary, LongTextFillsAFixedStringWithoutATerminator) {
  EXPECT_EQ(Stored(Text(OLESTR("ABCDEF")), kFixedString, 4, 4), "41 42 43 44");
  EXPECT_EQ(Stored(Text(OLESTR("ABCD")), kFixedString, 4, 4), "41 42 43 44");
}

TEST(WriteElementary, ShortTextIsFilledUpWithZeros) {
  EXPECT_EQ(Stored(Text(OLESTR("AB")), kFixedString, 4, 4), "41 42 00 00");
  EXPECT_EQ(Stored(Text(OLESTR("")), kFixedString, 4, 4), "00 00 00 00");
}

TEST(WriteElementary, TextBehindAZeroIsNotCopied) {
  const OLECHAR text[] = {'A', 0, 'B'};
  EXPECT_EQ(Stored(Variant(WideView(text, 3)), kFixedString, 4, 4), "41 00 00 00");
}

TEST(WriteElementary, TypesWithoutConversionStoreNothing) {
  for (const SHORT type : kTypesWithoutConversion) {
    Bytes bytes(12, kFiller);
    Variant value = I4(7);
    EXPECT_FALSE(WriteElementary(value.get(), type, bytes.data(), 4)) << type;
    EXPECT_EQ(bytes, Bytes(12, kFiller)) << type;
    EXPECT_EQ(Describe(value), "I4 7") << type;
  }
}

TEST(VariantTypeOf, IsWhatEachTypeIsConvertedTo) {
  const VARTYPE types[] = {VT_EMPTY, VT_BSTR, VT_BSTR, VT_EMPTY, VT_UI1, VT_UI1, VT_I2,
                           VT_I2,    VT_I4,   VT_I4,   VT_I4,    VT_R4,  VT_R8,  VT_DATE};
  for (SHORT type = 0; type <= kLastElementaryType; ++type)
    EXPECT_EQ(VariantTypeOf(type), types[type]) << type;
  for (const SHORT type : {SHORT{-1}, SHORT{14}, SHORT{18}}) EXPECT_EQ(VariantTypeOf(type), VT_EMPTY) << type;
}

}  // namespace
}  // namespace halyard::test
