#include "platform/native/whole96.h"

#include <gtest/gtest.h>

namespace halyard {
namespace {

constexpr std::uint32_t kAllBits = 0xFFFFFFFFu;

TEST(Whole96, MultipliesAndDividesBack) {
  Whole96 value(12345);
  for (int i = 0; i < 20; ++i) ASSERT_TRUE(value.MultiplyAdd(10, static_cast<std::uint32_t>(i % 10)));
  for (int i = 20; i-- > 0;) EXPECT_EQ(value.Divide(10), static_cast<std::uint32_t>(i % 10));
  EXPECT_EQ(value, Whole96(12345));
}

TEST(Whole96, StaysAsItIsWhereTheProductDoesNotFit) {
  Whole96 value = Whole96::Of(DECIMAL{0, 0, 0, kAllBits, ~0ull});
  EXPECT_FALSE(value.MultiplyAdd(1, 1));
  EXPECT_FALSE(value.MultiplyAdd(2, 0));
  EXPECT_EQ(value.High32(), kAllBits);
  EXPECT_EQ(value.Low64(), ~0ull);
  EXPECT_TRUE(value.MultiplyAdd(1, 0));
}

TEST(Whole96, CarriesThroughAllLimbs) {
  Whole96 value(~0ull);
  ASSERT_TRUE(value.MultiplyAdd(1, 1));
  EXPECT_EQ(value.High32(), 1u);
  EXPECT_EQ(value.Low64(), 0u);
  EXPECT_EQ(value.Divide(3), 1u);  // 2 to the power 64 is one more than a multiple of 3
  EXPECT_EQ(value.Low64(), 6148914691236517205u);
}

TEST(Whole96, KnowsZero) {
  Whole96 value(7);
  EXPECT_FALSE(value.IsZero());
  EXPECT_EQ(value.Divide(8), 7u);
  EXPECT_TRUE(value.IsZero());
}

}  // namespace
}  // namespace halyard
