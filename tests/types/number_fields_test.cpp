// The quick way must answer what the general one answers, bit for bit, or nothing.
#include "types/number_fields.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

#include "tests/support/bytes.h"
#include "tests/support/variants.h"
#include "types/elementary.h"

namespace halyard::test {
namespace {

constexpr SHORT kFirstCode = -1;
constexpr SHORT kLastCode = 18;
constexpr std::size_t kRoom = 12;
constexpr unsigned char kFiller = 0xEE;

bool IsNumberField(SHORT type) { return (type >= kChar && type <= kReal); }

std::vector<Variant> Values() {
  std::vector<Variant> values;
  for (const LONG whole : {0, 1, -1, 2, 127, 128, 255, 256, -128, -129, 32767, 32768, -32768, -32769,
                           16777216, 16777217, 2147483647, LONG{-2147483647 - 1}}) {
    values.push_back(I4(whole));
    values.push_back(R8(whole));
    values.push_back(R4(static_cast<float>(whole)));
    values.push_back(I2(static_cast<SHORT>(whole)));
    values.push_back(Ui1(static_cast<BYTE>(whole)));
  }
  const double infinite = std::numeric_limits<double>::infinity();
  for (const double real : {0.5, -0.5, 1.5, 2.5, 0.1, -0.0, 1e-310, 1e-45, 3.4e38, 3.5e38, 1e300,
                            2147483647.5, 2147483648.0, -2147483649.0, infinite, -infinite, std::nan("")}) {
    values.push_back(R8(real));
    values.push_back(R4(static_cast<float>(real)));
    values.push_back(Date(real));
  }
  values.push_back(Text(OLESTR("7")));
  values.push_back(Tagged(VT_EMPTY));
  values.push_back(Tagged(VT_NULL));
  values.push_back(Variant::FromBool(true));
  return values;
}

// The bytes that the general way stores, empty where it raises or stores nothing.
Bytes StoredInGeneral(const Variant& value, SHORT type) {
  Bytes bytes(kRoom, kFiller);
  try {
    Variant copy = Variant::CopyOf(value.get());
    if (!WriteElementary(copy.get(), type, bytes.data(), 0)) return {};
  } catch (const Error&) {
    return {};
  }
  return bytes;
}

TEST(StoreNumber, StoresWhatTheGeneralWayStoresOrNothing) {
  int quick = 0;
  for (SHORT type = kFirstCode; type <= kLastCode; ++type) {
    for (const Variant& value : Values()) {
      Bytes bytes(kRoom, kFiller);
      if (StoreNumber(value.get(), type, bytes.data())) {
        EXPECT_EQ(ToHex(bytes), ToHex(StoredInGeneral(value, type))) << type << " " << Describe(value);
        ++quick;
      } else {
        EXPECT_EQ(bytes, Bytes(kRoom, kFiller)) << type << " " << Describe(value);
      }
    }
  }
  EXPECT_GT(quick, 300);
}

TEST(StoreNumber, TakesEveryNumberOfTheFieldsOwnVariantType) {
  unsigned char bytes[kRoom];
  for (SHORT type = kChar; type <= kReal; ++type) {
    for (const Variant& value : Values()) {
      if (value.type() == VariantTypeOf(type)) {
        EXPECT_TRUE(StoreNumber(value.get(), type, bytes)) << type << " " << Describe(value);
      }
    }
  }
}

TEST(StoreNumber, LeavesFractionsAndWhatDoesNotFitToTheGeneralWay) {
  unsigned char bytes[kRoom];
  EXPECT_FALSE(StoreNumber(R8(2.5).get(), kLong, bytes));
  EXPECT_FALSE(StoreNumber(I4(256).get(), kByte, bytes));
  EXPECT_FALSE(StoreNumber(I4(-32769).get(), kShort, bytes));
  EXPECT_FALSE(StoreNumber(R8(2147483648.0).get(), kLong, bytes));
  EXPECT_FALSE(StoreNumber(R8(3.5e38).get(), kShortReal, bytes));
  EXPECT_FALSE(StoreNumber(R8(0.1).get(), kShortReal, bytes));
}

TEST(LoadNumber, AnswersWhatTheGeneralWayAnswersInEveryBit) {
  const Bytes bytes = Hex("81 82 83 84 85 86 87 C8");
  for (SHORT type = kFirstCode; type <= kLastCode; ++type) {
    VARIANT quick{};
    EXPECT_EQ(LoadNumber(bytes.data(), type, quick), IsNumberField(type)) << type;
    if (!IsNumberField(type)) continue;
    VARIANT general{};
    ASSERT_TRUE(ReadElementary(bytes, type, general));
    EXPECT_EQ(std::memcmp(&quick, &general, sizeof quick), 0) << type;
  }
}

TEST(NumberForm, LoadsWhatTheTypeLoadsInEveryBit) {
  const Bytes bytes = Hex("81 82 83 84 85 86 87 C8");
  for (SHORT type = kFirstCode; type <= kLastCode; ++type) {
    VARIANT by_form{};
    VARIANT by_type{};
    EXPECT_EQ(LoadNumberOf(NumberFormOf(type), bytes.data(), by_form), IsNumberField(type)) << type;
    EXPECT_EQ(LoadNumber(bytes.data(), type, by_type), IsNumberField(type)) << type;
    EXPECT_EQ(std::memcmp(&by_form, &by_type, sizeof by_form), 0) << type;
  }
}

TEST(NumberForm, StoresWhatTheGeneralWayStoresOrNothing) {
  for (SHORT type = kFirstCode; type <= kLastCode; ++type) {
    for (const Variant& value : Values()) {
      // An Int64 is stored in more bytes than its number has.
      const bool is_own = IsNumberField(type) && type != kInt64 && value.type() == VariantTypeOf(type);
      Bytes bytes(kRoom, kFiller);
      EXPECT_EQ(StoreNumberOf(NumberFormOf(type), value.get(), bytes.data()), is_own)
          << type << " " << Describe(value);
      EXPECT_EQ(ToHex(bytes), ToHex(is_own ? StoredInGeneral(value, type) : Bytes(kRoom, kFiller)))
          << type << " " << Describe(value);
    }
  }
}

}  // namespace
}  // namespace halyard::test
