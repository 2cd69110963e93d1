#include "tests/recorder/decimal_text.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include "tests/recorder/value_text.h"

namespace halyard::recorder {
namespace {

constexpr int kMaxScale = 28;

// 0.DIGITS times ten to the power of point, without zeros at the end.
struct Digits {
  bool negative;
  std::string digits;
  int point;
};

Digits RoundTo(double value, int count) {
  char text[64];
  std::snprintf(text, sizeof(text), "%.*e", count - 1, std::fabs(value));
  const std::string scientific = text;
  const std::size_t mark = scientific.find('e');
  Digits result{value < 0, scientific.substr(0, 1), std::atoi(scientific.c_str() + mark + 1) + 1};
  if (count > 1) result.digits += scientific.substr(2, mark - 2);
  result.digits.erase(result.digits.find_last_not_of('0') + 1);
  return result;
}

// 96 bits, least significant limb first.
using Limbs = std::array<std::uint32_t, 3>;

void TimesTenPlus(Limbs* limbs, unsigned digit) {
  std::uint64_t carry = digit;
  for (std::uint32_t& limb : *limbs) {
    carry += std::uint64_t{limb} * 10;
    limb = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
}

std::string DecimalNotation(bool negative, int scale, const Limbs& limbs) {
  return std::string("DECIMAL:") + (negative ? "80" : "00") + '.' +
         FormatHex(static_cast<unsigned>(scale), 2) + '.' + FormatHex(limbs[2], 8) + '.' +
         FormatHex(std::uint64_t{limbs[1]} << 32 | limbs[0], 16);
}

// Leaves out the digits behind the 28th decimal place, rounding half to even.
void CutToScale(Digits* number) {
  const int kept = number->point + kMaxScale;
  if (static_cast<int>(number->digits.size()) <= kept) return;
  if (kept < 0) {
    number->digits.clear();
    return;
  }
  const auto count = static_cast<std::size_t>(kept);
  const std::string cut = number->digits.substr(count);
  number->digits.resize(count);
  const bool odd = count > 0 && (number->digits.back() - '0') % 2 == 1;
  if (cut < "5" || (cut == "5" && !odd)) return;
  std::size_t i = count;
  while (i > 0 && number->digits[i - 1] == '9') number->digits[--i] = '0';
  if (i > 0) {
    ++number->digits[i - 1];
  } else {
    number->digits.insert(0, 1, '1');
    ++number->point;
  }
}

}  // namespace

std::string WidthLimitedText(double value, int digits) {
  const Digits number = RoundTo(value, digits);
  if (number.digits.empty()) return "0";
  const int count = static_cast<int>(number.digits.size());
  std::string text = number.negative ? "-" : "";
  if (number.point > digits || count - number.point > digits) {
    char exponent[16];
    std::snprintf(exponent, sizeof(exponent), "E%+03d", number.point - 1);
    text += number.digits.substr(0, 1);
    if (count > 1) text += '.' + number.digits.substr(1);
    return text + exponent;
  }
  if (number.point <= 0)
    return text + "0." + std::string(static_cast<std::size_t>(-number.point), '0') + number.digits;
  const auto whole = static_cast<std::size_t>(number.point);
  if (count <= number.point) return text + number.digits + std::string(whole - number.digits.size(), '0');
  return text + number.digits.substr(0, whole) + '.' + number.digits.substr(whole);
}

std::string DecimalOfReal(double value, int digits) {
  Digits number = RoundTo(value, digits);
  if (number.digits.empty()) return DecimalNotation(false, 0, {});
  CutToScale(&number);
  const std::size_t last = number.digits.find_last_not_of('0');
  number.digits.erase(last == std::string::npos ? 0 : last + 1);
  if (number.digits.empty()) return DecimalNotation(number.negative, 0, {});
  Limbs limbs{};
  for (const char digit : number.digits) TimesTenPlus(&limbs, static_cast<unsigned>(digit - '0'));
  int scale = static_cast<int>(number.digits.size()) - number.point;
  for (; scale < 0; ++scale) TimesTenPlus(&limbs, 0);
  return DecimalNotation(number.negative, scale, limbs);
}

std::string DecimalOfWhole(int value) {
  return DecimalNotation(value < 0, 0, {static_cast<std::uint32_t>(std::abs(value)), 0, 0});
}

}  // namespace halyard::recorder
