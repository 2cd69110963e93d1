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

DecimalDigits OfInteger(Integer value) noexcept {
  if (value.type->is_signed) return OfSigned(static_cast<std::int64_t>(value.bits), 0);
  return DecimalDigits::Of(Whole96(value.bits), 0, false);
}

template <class Real>
HRESULT OfReal(Real value, int significant, DecimalDigits* digits) noexcept {
  if (!std::isfinite(value)) return DISP_E_OVERFLOW;
  *digits = DecimalDigits::Of(value, significant);
  return S_OK;
}

// Zero has no sign.
DecimalDigits OfDecimal(const DECIMAL& value) noexcept {
  const Whole96 magnitude = Whole96::Of(value);
  return DecimalDigits::Of(magnitude, value.scale, value.sign == DECIMAL_NEG && !magnitude.IsZero());
}

HRESULT OfBits(std::uint64_t bits, Reading reading, DecimalDigits* digits) noexcept {
  const int unused = 64 - reading.text_bits;
  if (reading.text_bits == 0 || bits > ~std::uint64_t{0} >> unused) return DISP_E_OVERFLOW;
  *digits = reading.text_bits_signed ? OfSigned(static_cast<std::int64_t>(bits << unused) >> unused, 0)
                                     : DecimalDigits::Of(Whole96(bits), 0, false);
  return S_OK;
}

HRESULT OfText(WideView text, Reading reading, DecimalDigits* digits) noexcept {
  ParsedNumber number;
  const HRESULT hr = ParseNumber(text, &number);
  if (FAILED(hr)) return hr;
  if (number.is_bits) return OfBits(number.bits, reading, digits);
  *digits = number.digits;
  return S_OK;
}

}  // namespace

HRESULT ExactDigits(const Scalar& source, DecimalDigits* digits, Reading reading) noexcept {
  const auto done = [digits](const DecimalDigits& value) {
    *digits = value;
    return S_OK;
  };
  return std::visit(Overloads{
                        [&](Nothing) { return done({}); },
                        [&](Integer value) { return done(OfInteger(value)); },
                        [&](float value) { return OfReal(value, reading.float_digits, digits); },
                        [&](double value) { return OfReal(value, reading.double_digits, digits); },
                        [&](Money value) { return done(OfSigned(value.ten_thousandths, kMoneyScale)); },
                        [&](Moment value) { return OfReal(value.days, reading.double_digits, digits); },
                        [&](const DECIMAL& value) { return done(OfDecimal(value)); },
                        [&](Flag value) { return done(OfSigned(value.value, 0)); },
                        [&](WideView text) { return OfText(text, reading, digits); },
                    },
                    source);
}

}  // namespace halyard
