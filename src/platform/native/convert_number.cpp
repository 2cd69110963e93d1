// Conversions of scalars to the number types.
#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/native/calendar.h"
#include "platform/native/convert.h"
#include "platform/native/exact_digits.h"
#include "platform/native/parse_date.h"
#include "platform/native/variant_type.h"
#include "platform/native/visit.h"

namespace halyard {
namespace {

constexpr int kMoneyScale = 4;
constexpr std::int64_t kMoneyUnit = 10'000;

// The two's complement of a sign and magnitude that the type has room for.
HRESULT Fit(Whole96 magnitude, bool negative, const IntegerType& type, std::uint64_t* bits) noexcept {
  const std::uint64_t limit = negative ? type.min_magnitude() : type.max();
  if (magnitude.High32() != 0 || magnitude.Low64() > limit) return DISP_E_OVERFLOW;
  *bits = negative ? ~magnitude.Low64() + 1 : magnitude.Low64();
  return S_OK;
}

// An amount below zero in whole currency units as 64 bits: cut off, and one less. That is
// no rounding, but what automation answers.
std::uint64_t WholeDebt(Money money) noexcept {
  return static_cast<std::uint64_t>(money.ten_thousandths / kMoneyUnit - 1);
}

HRESULT RoundToInteger(const Scalar& source, const IntegerType& type, std::uint64_t* bits) noexcept {
  Reading reading;
  reading.text_bits = 8 * type.bytes;
  reading.text_bits_signed = type.is_signed;
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits, reading);
  if (FAILED(hr)) return hr;
  Whole96 magnitude;
  if (!digits.Scaled(0, &magnitude)) return DISP_E_OVERFLOW;
  return Fit(magnitude, digits.negative, type, bits);
}

// One division of two doubles, as automation does it: powers of ten above 22 are inexact.
double DivideByScale(const DECIMAL& value) noexcept {
  constexpr double kTwoTo64 = 18446744073709551616.0;
  constexpr double kPowersOfTen[kMaxDecimalScale + 1] = {
      1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14,
      1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22, 1e23, 1e24, 1e25, 1e26, 1e27, 1e28};
  const double magnitude = static_cast<double>(value.Lo64) + value.Hi32 * kTwoTo64;
  const double scaled = magnitude / kPowersOfTen[value.scale];
  return value.sign == DECIMAL_NEG && scaled != 0 ? -scaled : scaled;
}

// Takes zeros behind the last decimal place away; the value stays.
void DropZeros(Whole96* magnitude, int* scale) noexcept {
  for (Whole96 tenth = *magnitude; *scale > 0 && !magnitude->IsZero(); --*scale) {
    if (tenth.Divide(10) != 0) return;
    *magnitude = tenth;
  }
}

// Texts, currency and whole numbers: the nearest number.
template <class Real>
HRESULT Nearest(const Scalar& source, Real (DecimalDigits::*nearest)() const noexcept, Real* value) noexcept {
  Reading reading;
  reading.text_bits = 32;
  reading.text_bits_signed = true;
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits, reading);
  if (FAILED(hr)) return hr;
  const Real result = (digits.*nearest)();
  if (std::isinf(result)) return DISP_E_OVERFLOW;
  *value = result;
  return S_OK;
}

HRESULT Narrow(double wide, float* value) noexcept {
  if (std::fabs(wide) > double{std::numeric_limits<float>::max()}) return DISP_E_OVERFLOW;
  *value = static_cast<float>(wide);
  return S_OK;
}

}  // namespace

HRESULT ToInteger(const Scalar& source, const IntegerType& type, std::uint64_t* bits) noexcept {
  if (const Flag* flag = std::get_if<Flag>(&source)) {
    *bits = static_cast<std::uint64_t>(std::int64_t{flag->value});
    return S_OK;
  }
  // Among integers of one size the bits stay, without a look at the sign.
  const Integer* integer = std::get_if<Integer>(&source);
  if (integer != nullptr && integer->type->bytes == type.bytes) {
    *bits = integer->bits;
    return S_OK;
  }
  const Money* money = std::get_if<Money>(&source);
  if (money != nullptr && money->ten_thousandths < 0 && type.type == VT_I8) {
    *bits = WholeDebt(*money);
    return S_OK;
  }
  return RoundToInteger(source, type, bits);
}

HRESULT ToDouble(const Scalar& source, double* value) noexcept {
  const auto done = [value](double result) {
    *value = result;
    return S_OK;
  };
  return std::visit(Overloads{
                        [&](float number) { return done(double{number}); },
                        [&](double number) { return done(number); },
                        [&](Moment moment) { return done(moment.days); },
                        [&](const DECIMAL& decimal) { return done(DivideByScale(decimal)); },
                        [&](const auto&) { return Nearest(source, &DecimalDigits::ToDouble, value); },
                    },
                    source);
}

HRESULT ToFloat(const Scalar& source, float* value) noexcept {
  if (const float* same = std::get_if<float>(&source)) {
    *value = *same;
    return S_OK;
  }
  if (std::holds_alternative<WideView>(source)) return Nearest(source, &DecimalDigits::ToFloat, value);
  double wide = 0;
  const HRESULT hr = ToDouble(source, &wide);
  return FAILED(hr) ? hr : Narrow(wide, value);
}

HRESULT ToDate(const Scalar& source, DATE* value) noexcept {
  if (const WideView* text = std::get_if<WideView>(&source)) return ParseDate(*text, value);
  DATE days = 0;
  const HRESULT hr = ToDouble(source, &days);
  if (FAILED(hr)) return hr;
  if (!IsDate(days)) return DISP_E_OVERFLOW;
  *value = days;
  return S_OK;
}

HRESULT ToCurrency(const Scalar& source, CY* value) noexcept {
  constexpr IntegerType kTenThousandths = {VT_CY, 8, true};
  Reading reading;
  reading.text_bits = 0;
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits, reading);
  if (FAILED(hr)) return hr;
  Whole96 magnitude;
  if (!digits.Scaled(kMoneyScale, &magnitude)) return DISP_E_OVERFLOW;
  std::uint64_t bits = 0;
  const HRESULT fits = Fit(magnitude, digits.negative, kTenThousandths, &bits);
  if (SUCCEEDED(fits)) value->int64 = static_cast<LONGLONG>(bits);
  return fits;
}

HRESULT ToDecimal(const Scalar& source, DECIMAL* value) noexcept {
  Reading reading;
  reading.float_digits = 7;
  reading.double_digits = 15;
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits, reading);
  if (FAILED(hr)) return hr;
  int scale = std::clamp(digits.count() - digits.point, 0, int{kMaxDecimalScale});
  Whole96 magnitude;
  while (!digits.Scaled(scale, &magnitude)) {
    if (scale-- == 0) return DISP_E_OVERFLOW;
  }
  // Currency keeps its four places.
  if (!std::holds_alternative<Money>(source)) DropZeros(&magnitude, &scale);
  if (magnitude.IsZero() && digits.count() != 0) scale = 0;
  const bool negative = digits.negative && digits.count() != 0;
  *value = {0, static_cast<BYTE>(scale), negative ? DECIMAL_NEG : BYTE{0}, magnitude.High32(),
            magnitude.Low64()};
  return S_OK;
}

}  // namespace halyard
