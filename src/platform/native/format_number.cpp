#include "platform/native/format_number.h"

#include <bit>
#include <charconv>
#include <cmath>
#include <limits>

namespace halyard {
namespace {

template <class Real>
constexpr int kSignificantDigits = std::numeric_limits<Real>::digits10 + (sizeof(Real) == 4 ? 1 : 0);

// The Windows C library's words for what is no number.
std::string_view SpecialName(double value) noexcept {
  constexpr std::uint64_t kQuiet = 0x0008000000000000u;
  constexpr std::uint64_t kFraction = 0x000FFFFFFFFFFFFFu;
  const bool negative = std::signbit(value);
  if (std::isinf(value)) return negative ? "-1.#INF" : "1.#INF";
  const std::uint64_t fraction = std::bit_cast<std::uint64_t>(value) & kFraction;
  if (negative && fraction == kQuiet) return "-1.#IND";
  if ((fraction & kQuiet) != 0) return negative ? "-1.#QNAN" : "1.#QNAN";
  return negative ? "-1.#SNAN" : "1.#SNAN";
}

void AppendDigits(ShortText& text, const DecimalDigits& number, int from, int to) noexcept {
  for (int i = from; i < to; ++i) text.Append(static_cast<char>('0' + number[i]));
}

void AppendScientific(ShortText& text, const DecimalDigits& number) noexcept {
  AppendDigits(text, number, 0, 1);
  if (number.count() > 1) {
    text.Append('.');
    AppendDigits(text, number, 1, number.count());
  }
  const int exponent = number.point - 1;
  text.Append('E');
  text.Append(exponent < 0 ? '-' : '+');
  text.AppendNumber(exponent < 0 ? -exponent : exponent, 2);
}

void AppendPlain(ShortText& text, const DecimalDigits& number) noexcept {
  if (number.point > 0) {
    AppendDigits(text, number, 0, number.point);
  } else {
    text.Append('0');
  }
  if (number.count() > number.point) {
    text.Append('.');
    if (number.point < 0) text.Append(static_cast<std::size_t>(-number.point), '0');
    AppendDigits(text, number, number.point > 0 ? number.point : 0, number.count());
  }
}

template <class Real>
ShortText Format(Real value) noexcept {
  ShortText text;
  if (!std::isfinite(value)) {
    text.Append(SpecialName(static_cast<double>(value)));
    return text;
  }
  constexpr int kDigits = kSignificantDigits<Real>;
  const DecimalDigits number = DecimalDigits::Of(value, kDigits);
  if (number.negative) text.Append('-');
  if (number.count() == 0) {
    text.Append('0');
  } else if (number.point > kDigits || number.count() - number.point > kDigits) {
    AppendScientific(text, number);
  } else {
    AppendPlain(text, number);
  }
  return text;
}

}  // namespace

void ShortText::AppendNumber(int value, int width) noexcept {
  char digits[16];
  const char* end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
  const auto count = static_cast<int>(end - digits);
  if (count < width) Append(static_cast<std::size_t>(width - count), '0');
  Append(std::string_view(digits, static_cast<std::size_t>(count)));
}

ShortText FormatReal(double value) noexcept { return Format(value); }
ShortText FormatReal(float value) noexcept { return Format(value); }

ShortText FormatPlain(const DecimalDigits& number) noexcept {
  ShortText text;
  if (number.negative) text.Append('-');
  AppendPlain(text, number);
  return text;
}

}  // namespace halyard
