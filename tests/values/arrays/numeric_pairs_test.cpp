// The numeric transfer for every pair of number types, in both directions and for every
// way in which a member is stored.
#include <gtest/gtest.h>

#include "tests/values/arrays/number_conversions.h"
#include "tests/values/arrays/transfer.h"

namespace halyard::test {
namespace {

constexpr std::size_t kNumbers = 3;

class NumericPair : public testing::TestWithParam<ConversionRow> {
 protected:
  static std::size_t Width(const char* bytes) { return Hex(bytes).size() / kNumbers; }
  static Bytes Number(const char* bytes, std::size_t position) {
    const Bytes all = Hex(bytes);
    const std::size_t width = all.size() / kNumbers;
    const auto start = all.begin() + static_cast<std::ptrdiff_t>(position * width);
    return Bytes(start, start + static_cast<std::ptrdiff_t>(width));
  }

  // Build: members of the type `from`, in any storage, become numbers of the type `to`.
  void ExpectBuilt(const Ptr<IArray>& array, const OLECHAR* path) const {
    EXPECT_EQ(Built(array, path, GetParam().to, Hex(GetParam().to_bytes).size()), GetParam().to_bytes);
  }

  // Read: numbers of the type `from` are stored into members of the type `to`.
  void ReadInto(const Ptr<IArray>& array, const OLECHAR* path) const {
    ReadNumbers(array, path, GetParam().from, GetParam().from_bytes);
  }

  static std::string Counted(const char* bytes) { return std::string("03 00 00 00 ") + bytes; }
};

TEST_P(NumericPair, BuildFromAGrowableArray) {
  const auto array = NewArray(SimpleArrayDefinition(GetParam().from));
  ASSERT_EQ(ReadFrom(array, Counted(GetParam().from_bytes)).result, VARIANT_TRUE);
  ExpectBuilt(array, OLESTR(""));
}

TEST_P(NumericPair, ReadIntoAGrowableArray) {
  const auto array = NewArray(SimpleArrayDefinition(GetParam().to));
  AddAll(array, {0, 0, 0});
  ReadInto(array, OLESTR(""));
  EXPECT_EQ(Encoded(array), Counted(GetParam().to_bytes));
}

TEST_P(NumericPair, BuildFromAFixedArray) {
  const auto array = NewArray(SimpleArrayDefinition(GetParam().from, kNumbers));
  ASSERT_EQ(ReadFrom(array, GetParam().from_bytes).result, VARIANT_TRUE);
  ExpectBuilt(array, OLESTR(""));
}

TEST_P(NumericPair, ReadIntoAFixedArray) {
  const auto array = NewArray(SimpleArrayDefinition(GetParam().to, kNumbers));
  ReadInto(array, OLESTR(""));
  EXPECT_EQ(Encoded(array), GetParam().to_bytes);
}

// Structures of a byte, the member m and another byte.
class NumericPairInStructures : public NumericPair {
 protected:
  // Three elements whose m holds these bytes; `tail` is what each encoding ends with.
  static Ptr<IArray> Structures(const Ptr<IStructureDef>& definition, const char* bytes, const char* tail) {
    const auto array = NewArray(ArrayDefinition(definition, kNumbers));
    Bytes encoding;
    for (std::size_t i = 0; i < kNumbers; ++i) {
      encoding = Join({encoding, Hex("5A"), Number(bytes, i), Hex("A5"), Hex(tail)});
    }
    EXPECT_EQ(ReadFrom(array, encoding).result, VARIANT_TRUE);
    return array;
  }

  static Ptr<IStructureDef> Fixed(SHORT type) {
    return StructureDefinition({{OLESTR("a"), kByte}, {OLESTR("m"), type}, {OLESTR("z"), kByte}});
  }
  static Ptr<IStructureDef> WithText(SHORT type) {
    return StructureDefinition(
        {{OLESTR("a"), kByte}, {OLESTR("m"), type}, {OLESTR("z"), kByte}, {OLESTR("s"), kString}});
  }

  // What the elements hold after a transfer: m between the untouched bytes.
  static std::string Holding(const char* bytes, const char* tail) {
    Bytes encoding;
    for (std::size_t i = 0; i < kNumbers; ++i) {
      encoding = Join({encoding, Hex("5A"), Number(bytes, i), Hex("A5"), Hex(tail)});
    }
    return ToHex(encoding);
  }

  static std::string Encoding(const Ptr<IArray>& array) {
    const Written written = WriteTo(array, 256);
    EXPECT_EQ(written.outcome.result, VARIANT_TRUE);
    return ToHex(Prefix(written.bytes, written.outcome.count));
  }

  static std::string Zeros(SHORT type) {
    return ToHex(Bytes(kNumbers * Get(SimpleDefinition(type), &IValueDefBase::get_DataSize), 0));
  }
};

TEST_P(NumericPairInStructures, BuildFromFixedStructures) {
  ExpectBuilt(Structures(Fixed(GetParam().from), GetParam().from_bytes, ""), OLESTR("m"));
}

TEST_P(NumericPairInStructures, ReadIntoFixedStructures) {
  const auto array = Structures(Fixed(GetParam().to), Zeros(GetParam().to).c_str(), "");
  ReadInto(array, OLESTR("m"));
  EXPECT_EQ(Encoding(array), Holding(GetParam().to_bytes, ""));
}

TEST_P(NumericPairInStructures, BuildFromFixedMembersOfStructuresWithObjects) {
  ExpectBuilt(Structures(WithText(GetParam().from), GetParam().from_bytes, "01 00 78"), OLESTR("m"));
}

TEST_P(NumericPairInStructures, ReadIntoFixedMembersOfStructuresWithObjects) {
  const auto array = Structures(WithText(GetParam().to), Zeros(GetParam().to).c_str(), "01 00 78");
  ReadInto(array, OLESTR("m"));
  EXPECT_EQ(Encoding(array), Holding(GetParam().to_bytes, "01 00 78"));
}

TEST_P(NumericPairInStructures, BuildFromMembersThatAreObjects) {
  const auto definition = StructureDefinition({{OLESTR("m"), GetParam().from, 0, true}});
  const auto array = NewArray(ArrayDefinition(definition, kNumbers));
  Bytes encoding;
  for (std::size_t i = 0; i < kNumbers; ++i) {
    encoding = Join({encoding, Hex("00"), Number(GetParam().from_bytes, i)});
  }
  ASSERT_EQ(ReadFrom(array, encoding).result, VARIANT_TRUE);
  ExpectBuilt(array, OLESTR("m"));
}

TEST_P(NumericPairInStructures, ReadIntoMembersThatAreObjects) {
  const auto definition = StructureDefinition({{OLESTR("m"), GetParam().to, 0, true}});
  const auto array = NewArray(ArrayDefinition(definition, kNumbers));
  ReadInto(array, OLESTR("m"));
  Bytes encoding;
  for (std::size_t i = 0; i < kNumbers; ++i)
    encoding = Join({encoding, Hex("00"), Number(GetParam().to_bytes, i)});
  EXPECT_EQ(Encoding(array), ToHex(encoding));
}

// What members that are objects are given, and what they then show.
TEST(NumericPair, MembersThatAreObjectsTakeTheVariantOfTheirType) {
  constexpr struct {
    SHORT type;
    const char* number;
    const char* item;
    const char* built;
  } kRows[] = {
      {kChar, "C8 00 00 00", "UI1 200", "C8 FF FF FF"},
      {kByte, "C8 00 00 00", "UI1 200", "C8 00 00 00"},
      {kShort, "FF FF 00 00", "I2 -1", "FF FF FF FF"},
      {kWord, "FF FF 00 00", "I2 -1", "FF FF 00 00"},
      {kLong, "FE FF FF FF", "I4 -2", "FE FF FF FF"},
      {kDWord, "FE FF FF FF", "I4 -2", "FE FF FF FF"},
      {kShortReal, "FF FF 00 00", "R4 65535", "FF FF 00 00"},
      {kReal, "FF FF 00 00", "R8 65535", "FF FF 00 00"},
  };
  for (const auto& row : kRows) {
    const auto definition = StructureDefinition({{OLESTR("m"), row.type, 0, true}});
    const auto array = NewArray(ArrayDefinition(definition, 1));
    ReadNumbers(array, OLESTR("m"), kLong, row.number);
    EXPECT_EQ(Item(At(array, 0), OLESTR("m")), row.item) << row.type;
    EXPECT_EQ(Built(array, OLESTR("m"), kLong, 4), row.built) << row.type;
  }
}

std::string RowName(const testing::TestParamInfo<ConversionRow>& row) { return row.param.name; }

INSTANTIATE_TEST_SUITE_P(EveryPair, NumericPair, testing::ValuesIn(kConversions), RowName);
INSTANTIATE_TEST_SUITE_P(EveryPair, NumericPairInStructures, testing::ValuesIn(kConversions), RowName);

}  // namespace
}  // namespace halyard::test
