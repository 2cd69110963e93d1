#include "platform/native/decimal_digits.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace halyard {
namespace {

DecimalDigits Digits(const std::string& digits, int point, bool negative = false) {
  DecimalDigits result;
  result.negative = negative;
  result.point = point;
  for (const char digit : digits) result.Append(digit);
  return result;
}

std::string Text(const DecimalDigits& number) {
  return std::string(number.data(), static_cast<std::size_t>(number.count()));
}

std::uint64_t Rounded(const std::string& digits, int point, int scale) {
  Whole96 whole;
  EXPECT_TRUE(Digits(digits, point).Scaled(scale, &whole));
  return whole.Low64();
}

TEST(DecimalDigits, RoundHalfToEven) {
  EXPECT_EQ(Rounded("5", 0, 0), 0u);
  EXPECT_EQ(Rounded("15", 1, 0), 2u);
  EXPECT_EQ(Rounded("25", 1, 0), 2u);
  EXPECT_EQ(Rounded("250000000000000000000001", 1, 0), 3u);
  EXPECT_EQ(Rounded("51", 0, 0), 1u);
  EXPECT_EQ(Rounded("9", -5, 0), 0u);
  EXPECT_EQ(Rounded("123456", 3, 1), 1235u);
  EXPECT_EQ(Rounded("12", 1, 3), 1200u);
}

TEST(DecimalDigits, TellWhatNinetySixBitsCannotHold) {
  Whole96 whole;
  EXPECT_TRUE(Digits("79228162514264337593543950335", 29).Scaled(0, &whole));
  EXPECT_FALSE(Digits("79228162514264337593543950336", 29).Scaled(0, &whole));
  EXPECT_FALSE(Digits("792281625142643375935439503355", 29).Scaled(0, &whole));
  EXPECT_FALSE(Digits("1", 1'000'000'000).Scaled(28, &whole));
  EXPECT_TRUE(Digits("", 1'000'000'000).Scaled(28, &whole));
}

TEST(DecimalDigits, HoldEveryDigitOfADouble) {
  const double smallest = std::numeric_limits<double>::denorm_min();
  EXPECT_EQ(DecimalDigits::Of(smallest, 780).count(), 751);
  for (const double value : {smallest, 0.1, 1.0 / 3, 123456.789, std::numeric_limits<double>::max()}) {
    EXPECT_EQ(DecimalDigits::Of(value, 780).ToDouble(), value);
    EXPECT_EQ(DecimalDigits::Of(-value, 780).ToDouble(), -value);
  }
}

TEST(DecimalDigits, CutADoubleToItsSignificantDigits) {
  const DecimalDigits third = DecimalDigits::Of(1.0 / 3, 15);
  EXPECT_EQ(Text(third), "333333333333333");
  EXPECT_EQ(third.point, 0);
  const DecimalDigits nines = DecimalDigits::Of(0.99999999999999999, 15);
  EXPECT_EQ(Text(nines), "1");
  EXPECT_EQ(nines.point, 1);
}

TEST(DecimalDigits, RememberThatSomethingFollowedTheLastDigit) {
  DecimalDigits half = Digits("5" + std::string(DecimalDigits::kCapacity - 1, '0'), 0);
  half.Append('0');
  Whole96 whole;
  ASSERT_TRUE(half.Scaled(0, &whole));
  EXPECT_TRUE(whole.IsZero());
  half.Append('7');
  ASSERT_TRUE(half.Scaled(0, &whole));
  EXPECT_EQ(whole.Low64(), 1u);
}

TEST(DecimalDigits, BecomeInfiniteOrZeroBeyondTheType) {
  EXPECT_TRUE(std::isinf(Digits("1", 400).ToDouble()));
  EXPECT_TRUE(std::isinf(Digits("1", 40).ToFloat()));
  EXPECT_EQ(Digits("1", -400).ToDouble(), 0.0);
  EXPECT_EQ(Digits("1", 1'000'000'000, true).ToDouble(), -std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::signbit(Digits("", 0, true).ToDouble()));
}

}  // namespace
}  // namespace halyard
