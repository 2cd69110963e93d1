#include "platform/native/decimal_digits.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace halyard {
namespace {

constexpr std::uint32_t kTen = 10;

// Texts with larger exponents are infinite or zero in every type.
constexpr int kMaxExponent = 100000;

template <class Real>
DecimalDigits Round(Real value, int significant) noexcept {
  DecimalDigits result;
  result.negative = value < 0;
  if (value == 0) return result;
  // "-d.ddde-xxx"
  char text[DecimalDigits::kCapacity + 16];
  const auto [end, error] =
      std::to_chars(text, text + sizeof(text), value, std::chars_format::scientific, significant - 1);
  const char* exponent_mark = std::find(text, end, 'e');
  for (const char* c = text; c != exponent_mark; ++c) {
    if (*c >= '0' && *c <= '9') result.Append(*c);
  }
  const char* exponent = exponent_mark + (exponent_mark[1] == '+' ? 2 : 1);
  std::from_chars(exponent, end, result.point);
  ++result.point;
  result.TrimZeros();
  return result;
}

template <class Real>
Real Nearest(const DecimalDigits& number) noexcept {
  if (number.count() == 0) return number.negative ? -Real{0} : Real{0};
  // ".DDDDe-xxxxxx"
  std::array<char, DecimalDigits::kCapacity + 16> text;
  char* end = text.data();
  *end++ = '.';
  end = std::copy(number.data(), number.data() + number.count(), end);
  *end++ = 'e';
  const int exponent = std::clamp(number.point, -kMaxExponent, kMaxExponent);
  end = std::to_chars(end, text.data() + text.size(), exponent).ptr;
  Real value = 0;
  const auto parsed = std::from_chars(text.data(), end, value);
  if (parsed.ec == std::errc::result_out_of_range) {
    value = number.point > 0 ? std::numeric_limits<Real>::infinity() : 0;
  }
  return number.negative ? -value : value;
}

}  // namespace

void DecimalDigits::Append(char digit) noexcept {
  if (count_ < kCapacity) {
    digits_[static_cast<std::size_t>(count_++)] = digit;
  } else if (digit != '0' && digits_.back() == '0') {
    digits_.back() = '1';
  }
}

void DecimalDigits::TrimZeros() noexcept {
  while (count_ > 0 && digits_[static_cast<std::size_t>(count_ - 1)] == '0') --count_;
}

DecimalDigits DecimalDigits::Of(Whole96 whole, int scale, bool negative) noexcept {
  char reversed[32];
  int count = 0;
  for (; !whole.IsZero(); ++count) reversed[count] = static_cast<char>('0' + whole.Divide(kTen));
  DecimalDigits result;
  result.negative = negative;
  result.point = count - scale;
  while (count > 0) result.Append(reversed[--count]);
  return result;
}

DecimalDigits DecimalDigits::Of(double value, int significant) noexcept { return Round(value, significant); }
DecimalDigits DecimalDigits::Of(float value, int significant) noexcept { return Round(value, significant); }

bool DecimalDigits::Scaled(int scale, Whole96* whole) const noexcept {
  *whole = Whole96();
  const int places = point + scale;
  if (places < 0) return true;
  for (int i = 0; i < places; ++i) {
    if (i >= count_ && whole->IsZero()) return true;
    if (!whole->MultiplyAdd(kTen, static_cast<std::uint32_t>((*this)[i]))) return false;
  }
  const int next = (*this)[places];
  const bool more = std::any_of(digits_.begin() + std::min(places + 1, count_), digits_.begin() + count_,
                                [](char digit) { return digit != '0'; });
  const bool odd = (whole->Low64() & 1) != 0;
  if (next > 5 || (next == 5 && (more || odd))) return whole->MultiplyAdd(1, 1);
  return true;
}

double DecimalDigits::ToDouble() const noexcept { return Nearest<double>(*this); }
float DecimalDigits::ToFloat() const noexcept { return Nearest<float>(*this); }

}  // namespace halyard
