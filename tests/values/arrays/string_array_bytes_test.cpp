// The bytes of the array of texts.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"
#include "tests/support/memory.h"

namespace halyard::test {
namespace {

Ptr<IArray> New(LONG count = 0) { return NewArray(SimpleArrayDefinition(kString, count)); }

Ptr<IArray> Texts(std::initializer_list<const OLECHAR*> texts) {
  const auto array = New();
  for (const OLECHAR* text : texts) Add(array, Text(text));
  return array;
}

// What the array writes, whatever it says its size is.
std::string Bytes64(const Ptr<IArray>& array) {
  const Written written = WriteTo(array, 64);
  EXPECT_EQ(written.outcome.result, VARIANT_TRUE);
  return ToHex(Prefix(written.bytes, written.outcome.count));
}

constexpr const char* kAbAndEmpty = "02 00 00 00 03 00 61 62 00 01 00 00";

TEST(StringArrayBytes, CountAndTextsWithTheirZeros) {
  const auto array = Texts({OLESTR("ab"), OLESTR("")});
  const Written written = WriteTo(array, 64);
  EXPECT_EQ(written.outcome, Moved(12));
  EXPECT_EQ(ToHex(Prefix(written.bytes, 12)), kAbAndEmpty);
}

TEST(StringArrayBytes, PacketSizeOfAVariableArrayIsFourMoreThanItsBytes) {
  EXPECT_EQ(PacketSize(Texts({OLESTR("ab"), OLESTR("")})), 16u);
  EXPECT_EQ(PacketSize(New()), 8u);
  EXPECT_EQ(WriteTo(New(), 8).outcome, Moved(4));
}

TEST(StringArrayBytes, FixedArrayCarriesItsCountToo) {
  const auto array = New(2);
  PutItem(array, 0, Text(OLESTR("ab")));
  EXPECT_EQ(PacketSize(array), 12u);
  EXPECT_EQ(Encoded(array), kAbAndEmpty);
}

TEST(StringArrayBytes, PacketSizeOfAFixedArrayCountsItsFirstTexts) {
  const auto array = New(1);
  EXPECT_EQ(ReadFrom(array, kAbAndEmpty), Moved(12));
  EXPECT_EQ(Count(array), 2);
  EXPECT_EQ(PacketSize(array), 9u);
  EXPECT_EQ(Bytes64(array), kAbAndEmpty);
}

TEST(StringArrayBytes, FixedArrayOfFewerTextsThanItsDefinitionSays) {
  const auto array = New(3);
  EXPECT_EQ(ReadFrom(array, "01 00 00 00 02 00 61 00"), Moved(8));
  EXPECT_EQ(Count(array), 1);
  EXPECT_EQ(Bytes64(array), "01 00 00 00 02 00 61 00");
  ULONG size = 0;
  EXPECT_EQ(array->get_PacketSize(&size), S_OK);
}

TEST(StringArrayBytes, ReadingAndWritingAgainIsExact) {
  const auto array = New();
  EXPECT_EQ(ReadFrom(array, kAbAndEmpty), Moved(12));
  EXPECT_EQ(Items(array), "BSTR ab, BSTR ");
  EXPECT_EQ(Bytes64(array), kAbAndEmpty);
  EXPECT_EQ(PacketSize(array), 16u);
}

TEST(StringArrayBytes, TextWithoutItsZeroIsReadAndGetsOne) {
  const auto array = New();
  EXPECT_EQ(ReadFrom(array, "02 00 00 00 02 00 61 62 00 00"), Moved(10));
  EXPECT_EQ(Items(array), "BSTR ab, BSTR ");
  EXPECT_EQ(Bytes64(array), kAbAndEmpty);
}

TEST(StringArrayBytes, TextEndsAtItsFirstZero) {
  const auto array = New();
  EXPECT_EQ(ReadFrom(array, "01 00 00 00 04 00 61 00 62 00"), Moved(10));
  EXPECT_EQ(Items(array), "BSTR a");
  EXPECT_EQ(Bytes64(array), "01 00 00 00 02 00 61 00");
}

TEST(StringArrayBytes, LengthOfALongTextIsCutToSixteenBits) {
  constexpr struct {
    std::size_t length;
    std::size_t kept;
  } kRows[] = {{65534, 65535}, {65535, 0}, {65536, 1}, {65540, 5}};
  for (const auto& row : kRows) {
    const auto array = New();
    Add(array, Variant(WideView(WideString(row.length, 't'))));
    EXPECT_EQ(PacketSize(array), 8u + 2 + row.kept);
    const Written written = WriteTo(array, 70000);
    EXPECT_EQ(written.outcome, Moved(static_cast<ULONG>(4 + 2 + row.kept))) << row.length;
    Bytes expected = Join({Hex("01 00 00 00"), LittleEndian(row.kept, 2), Bytes(row.kept, 't')});
    if (row.length < 65535) expected.back() = 0;
    EXPECT_EQ(Prefix(written.bytes, expected.size()), expected) << row.length;
  }
}

TEST(StringArrayBytes, EveryRoomThatIsTooSmallReportsIt) {
  ExpectShortWrites(Texts({OLESTR("ab"), OLESTR("")}), kAbAndEmpty, {4, 2, 3, 2, 1});
  const auto fixed = New(1);
  PutItem(fixed, 0, Text(OLESTR("a")));
  ExpectShortWrites(fixed, "01 00 00 00 02 00 61 00", {4, 2, 2});
}

TEST(StringArrayBytes, CutPrefixesReportAShortBuffer) {
  for (const std::size_t size : {0, 1, 2, 3, 4, 5, 9, 10}) {
    EXPECT_EQ(ReadFrom(New(), Prefix(Hex(kAbAndEmpty), size)), TooShort()) << size;
    EXPECT_EQ(ReadFrom(New(2), Prefix(Hex(kAbAndEmpty), size)), TooShort()) << size;
  }
}

TEST(StringArrayBytes, CutTextsAreNeverReadBeyondTheBuffer) {
  for (const std::size_t size : {6, 7, 8, 11}) {
    EXPECT_EQ(ReadFrom(New(), Prefix(Hex(kAbAndEmpty), size)), TooShort()) << size;
  }
  const auto array = New();
  EXPECT_EQ(ReadFrom(array, "01 00 00 00 FF FF 61 62"), TooShort());
  EXPECT_EQ(Items(array), "BSTR ");
}

TEST(StringArrayBytes, CutTextKeepsWhatItHeld) {
  const auto array = Texts({OLESTR("x")});
  EXPECT_EQ(ReadFrom(array, "01 00 00 00 03 00 61 62"), TooShort());
  EXPECT_EQ(Items(array), "BSTR x");
}

TEST(StringArrayBytes, CutReadingKeepsTheCountAndWhatArrived) {
  const auto array = Texts({OLESTR("x"), OLESTR("y"), OLESTR("z")});
  EXPECT_EQ(ReadFrom(array, "02 00 00 00 02 00 61 00 02"), TooShort());
  EXPECT_EQ(Items(array), "BSTR a, BSTR y");
}

TEST(StringArrayBytes, ReadingLessThanACountChangesNothing) {
  const auto array = Texts({OLESTR("x")});
  for (std::size_t size = 0; size < 4; ++size) EXPECT_EQ(ReadFrom(array, Bytes(size, 0)), TooShort());
  EXPECT_EQ(Items(array), "BSTR x");
}

TEST(StringArrayBytes, CountOfFourThousandMillionIsKeptWithoutItsMemory) {
  const MemoryLimit limit;
  const auto array = New();
  EXPECT_EQ(ReadFrom(array, "00 28 6B EE 02 00 61 00 01 00 00 05"), TooShort());
  EXPECT_EQ(static_cast<ULONG>(Count(array)), 4000000000u);
  EXPECT_EQ(Item(array, 0), "BSTR a");
  EXPECT_EQ(Item(array, 1000000000), "BSTR ");
  EXPECT_EQ(WriteTo(array, 64).outcome, TooShort());
  EXPECT_EQ(array->RemoveAll(), S_OK);
  EXPECT_EQ(Count(array), 0);
  EXPECT_TRUE(limit.Kept());
}

}  // namespace
}  // namespace halyard::test
