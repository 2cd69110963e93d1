// Conversions of scalars to the number types.
#include <cmath>
#include <limits>

#include "platform/native/calendar.h"
#include "platform/native/convert.h"
#include "platform/native/exact_digits.h"
#include "platform/native/parse_date.h"

namespace halyard {
namespace {

constexpr int kMoneyScale = 4;
constexpr int kMaxDecimalScale = 28;
constexpr RealDigits kDecimalRealDigits = {7, 15};

// The two's complement of a sign and magnitude that the type has room for.
HRESULT Fit(Whole96 magnitude, bool negative, const IntegerType& type, std::uint64_t* bits) noexcept {
  const std::uint64_t limit = negative ? type.min_magnitude() : type.max();
  if (magnitude.High32() != 0 || magnitude.Low64() > limit) return DISP_E_OVERFLOW;
  *bits = negative ? ~magnitude.Low64() + 1 : magnitude.Low64();
  return S_OK;
}

HRESULT RoundToInteger(const Scalar& source, const IntegerType& type, std::uint64_t* bits) noexcept {
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits);
  if (FAILED(hr)) return hr;
  Whole96 magnitude;
  if (!digits.Scaled(0, &magnitude)) return DISP_E_OVERFLOW;
  return Fit(magnitude, digits.negative, type, bits);
}

}  // namespace

HRESULT ToInteger(const Scalar& source, const IntegerType& type, std::uint64_t* bits) noexcept {
  if (const Flag* flag = std::get_if<Flag>(&source)) {
    *bits = flag->is_true ? ~std::uint64_t{0} : 0;
    return S_OK;
  }
  return RoundToInteger(source, type, bits);
}

HRESULT ToDouble(const Scalar& source, double* value) noexcept {
  if (const double* same = std::get_if<double>(&source)) {
    *value = *same;
    return S_OK;
  }
  if (const float* narrow = std::get_if<float>(&source)) {
    *value = static_cast<double>(*narrow);
    return S_OK;
  }
  if (const Moment* moment = std::get_if<Moment>(&source)) {
    *value = moment->days;
    return S_OK;
  }
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits);
  if (FAILED(hr)) return hr;
  const double nearest = digits.ToDouble();
  if (std::isinf(nearest)) return DISP_E_OVERFLOW;
  *value = nearest;
  return S_OK;
}

HRESULT ToFloat(const Scalar& source, float* value) noexcept {
  if (const float* same = std::get_if<float>(&source)) {
    *value = *same;
    return S_OK;
  }
  double wide = 0;
  const HRESULT hr = ToDouble(source, &wide);
  if (FAILED(hr)) return hr;
  if (std::fabs(wide) > double{std::numeric_limits<float>::max()}) return DISP_E_OVERFLOW;
  *value = static_cast<float>(wide);
  return S_OK;
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
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits);
  if (FAILED(hr)) return hr;
  Whole96 magnitude;
  if (!digits.Scaled(kMoneyScale, &magnitude)) return DISP_E_OVERFLOW;
  std::uint64_t bits = 0;
  const HRESULT fits = Fit(magnitude, digits.negative, kTenThousandths, &bits);
  if (SUCCEEDED(fits)) value->int64 = static_cast<LONGLONG>(bits);
  return fits;
}

HRESULT ToDecimal(const Scalar& source, DECIMAL* value) noexcept {
  DecimalDigits digits;
  const HRESULT hr = ExactDigits(source, &digits, kDecimalRealDigits);
  if (FAILED(hr)) return hr;
  int scale = digits.count() - digits.point;
  scale = scale < 0 ? 0 : scale > kMaxDecimalScale ? kMaxDecimalScale : scale;
  Whole96 magnitude;
  while (!digits.Scaled(scale, &magnitude)) {
    if (scale-- == 0) return DISP_E_OVERFLOW;
  }
  *value = {0, static_cast<BYTE>(scale), digits.negative ? DECIMAL_NEG : BYTE{0}, magnitude.High32(),
            magnitude.Low64()};
  return S_OK;
}

}  // namespace halyard
