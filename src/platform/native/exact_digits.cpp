#include "platform/native/exact_digits.h"

#include <cmath>

#include "platform/native/parse_number.h"
#include "platform/native/visit.h"

namespace halyard {
namespace {

constexpr int kMoneyScale = 4;

DecimalDigits OfSigned(std::int64_t value, int scale) noexcept {
  const auto bits = static_cast<std::uint64_t>(value);
  return DecimalDigits::Of(Whole96(value < 0 ? ~bits + 1 : bits), scale, value < 0);
}

template <class Real>
HRESULT OfReal(Real value, int significant, DecimalDigits* digits) noexcept {
  if (!std::isfinite(value)) return DISP_E_OVERFLOW;
  *digits = DecimalDigits::Of(value, significant);
  return S_OK;
}

HRESULT OfText(WideView text, DecimalDigits* digits) noexcept {
  ParsedNumber number;
  const HRESULT hr = ParseNumber(text, &number);
  if (FAILED(hr)) return hr;
  *digits = number.is_bits ? DecimalDigits::Of(Whole96(number.bits), 0, false) : number.digits;
  return S_OK;
}

}  // namespace

HRESULT ExactDigits(const Scalar& source, DecimalDigits* digits, RealDigits real) noexcept {
  const auto done = [digits](const DecimalDigits& value) {
    *digits = value;
    return S_OK;
  };
  return std::visit(
      Overloads{
          [&](Nothing) { return done({}); },
          [&](std::int64_t value) { return done(OfSigned(value, 0)); },
          [&](std::uint64_t value) { return done(DecimalDigits::Of(Whole96(value), 0, false)); },
          [&](float value) { return OfReal(value, real.of_float, digits); },
          [&](double value) { return OfReal(value, real.of_double, digits); },
          [&](Money value) { return done(OfSigned(value.ten_thousandths, kMoneyScale)); },
          [&](Moment value) { return OfReal(value.days, real.of_double, digits); },
          [&](const DECIMAL& value) {
            return done(DecimalDigits::Of(Whole96::Of(value), value.scale, value.sign == DECIMAL_NEG));
          },
          [&](Flag value) { return done(OfSigned(value.is_true ? -1 : 0, 0)); },
          [&](WideView text) { return OfText(text, digits); },
      },
      source);
}

}  // namespace halyard
