// The bytes of an enumeration value.
#include <gtest/gtest.h>

#include "tests/support/composites.h"
#include "tests/support/encoding.h"

namespace halyard::test {
namespace {

Ptr<IValueBase> Number(SHORT stored_type, LONG number) {
  const auto value = NewValue(EnumerationDefinition(stored_type, {{OLESTR("Red"), 5}}));
  PutValue(value, I4(number));
  return value;
}

constexpr struct {
  SHORT type;
  LONG number;
  const char* bytes;
  const char* read_back;
} kRows[] = {
    {kChar, 5, "05", "I4 5"},          {kChar, 1000, "E8", "I4 -24"},
    {kChar, 255, "FF", "I4 -1"},       {kChar, -128, "80", "I4 -128"},
    {kShort, 5, "05 00", "I4 5"},      {kShort, 70000, "70 11", "I4 4464"},
    {kShort, 65535, "FF FF", "I4 -1"}, {kShort, -32768, "00 80", "I4 -32768"},
    {kLong, 5, "05 00 00 00", "I4 5"}, {kLong, -2147483647 - 1, "00 00 00 80", "I4 -2147483648"},
};

TEST(EnumerationBytes, WidthFollowsTheStoredType) {
  for (const auto& row : kRows) {
    const auto value = Number(row.type, row.number);
    EXPECT_EQ(Encoded(value), row.bytes);
    EXPECT_EQ(ValueOf(value), "I4 " + std::to_string(row.number)) << "writing must not change the number";
  }
}

TEST(EnumerationBytes, NumbersAreReadWithTheirSign) {
  for (const auto& row : kRows) {
    const auto value = Number(row.type, 77);
    EXPECT_EQ(ReadFrom(value, row.bytes), Moved(static_cast<ULONG>(Hex(row.bytes).size())));
    EXPECT_EQ(ValueOf(value), row.read_back);
  }
}

TEST(EnumerationBytes, BytesBehindTheNumberAreLeft) {
  const auto value = Number(kShort, 0);
  EXPECT_EQ(ReadFrom(value, "01 00 FF FF"), Moved(2));
  EXPECT_EQ(ValueOf(value), "I4 1");
  const Written written = WriteTo(value, 4);
  EXPECT_EQ(written.outcome, Moved(2));
  EXPECT_EQ(ToHex(written.bytes), "01 00 EE EE");
}

TEST(EnumerationBytes, TooFewBytesReportIt) {
  for (const auto& row : kRows) {
    const std::size_t width = Hex(row.bytes).size();
    for (std::size_t size = 0; size < width; ++size) {
      const auto value = Number(row.type, 77);
      EXPECT_EQ(ReadFrom(value, Bytes(size, 1)), TooShort());
      EXPECT_EQ(ValueOf(value), "I4 77");
      const Written written = WriteTo(value, size);
      EXPECT_EQ(written.outcome, TooShort());
      EXPECT_EQ(written.bytes, Bytes(size, GuardedBuffer::kFiller));
    }
  }
}

TEST(EnumerationBytes, OtherStoredTypesHaveASizeButCannotBeWrittenOrRead) {
  constexpr struct {
    SHORT type;
    ULONG size;
  } kOthers[] = {{0, 0},     {kString, 0},    {kFixedString, 0}, {kByteArray, 0}, {kByte, 1},
                 {kWord, 2}, {kDWord, 4},     {kInt64, 4},       {kShortReal, 4}, {kReal, 8},
                 {kDate, 8}, {kStructure, 0}, {kArray, 0},       {99, 0},         {-1, 0}};
  for (const auto& row : kOthers) {
    const auto value = NewValue(EnumerationOver(row.type, 1));
    PutValue(value, I4(3));
    EXPECT_EQ(PacketSize(value), row.size) << row.type;
    const Written written = WriteTo(value, 16);
    EXPECT_EQ(written.outcome, TooShort()) << row.type;
    EXPECT_EQ(written.bytes, Bytes(16, GuardedBuffer::kFiller)) << row.type;
    EXPECT_EQ(ReadFrom(value, Bytes(16, 1)), TooShort()) << row.type;
    EXPECT_EQ(ValueOf(value), "I4 3") << row.type;
  }
}

TEST(EnumerationBytes, StoredTypeIsAskedAtEachCall) {
  const auto definition = EnumerationDefinition(kChar, {{OLESTR("Red"), 5}});
  const auto value = NewValue(definition);
  EXPECT_EQ(definition->put_DataType(kLong), S_OK);
  EXPECT_EQ(Encoded(value), "05 00 00 00");
}

}  // namespace
}  // namespace halyard::test
