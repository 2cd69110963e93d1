#include "platform/native/parse_number.h"

#include "platform/native/text_cursor.h"

namespace halyard {
namespace {

// No number of digits in a text makes up for larger exponents.
constexpr int kMaxExponent = 1'000'000'000;

class NumberParser {
 public:
  NumberParser(WideView text, ParsedNumber* number) noexcept : text_(text), number_(*number) {}

  HRESULT Run() noexcept {
    while (TakeBefore()) {
    }
    const HRESULT hr = text_.Take(u'&') ? Bits() : Decimal();
    if (FAILED(hr)) return hr;
    while (TakeBehind()) {
    }
    if (!text_.AtEnd() || (opened_ && !closed_)) return DISP_E_TYPEMISMATCH;
    number_.digits.negative = minus_ || trailing_minus_ || opened_;
    return S_OK;
  }

 private:
  bool TakeBlank() noexcept {
    if (!IsBlank(text_.Next())) return false;
    text_.Skip();
    return true;
  }

  // A character of which there may be one.
  bool TakeOnce(OLECHAR c, bool* seen) noexcept {
    if (*seen || !text_.Take(c)) return false;
    *seen = true;
    return true;
  }

  bool TakeBefore() noexcept {
    return TakeBlank() || TakeOnce(u'+', &plus_) || TakeOnce(u'-', &minus_) || TakeOnce(u'(', &opened_) ||
           TakeOnce(u'$', &currency_);
  }

  // Behind the digits everything may be repeated, but a sign not repeat one in front.
  bool TakeBehind() noexcept {
    if (!minus_ && text_.Take(u'-')) return trailing_minus_ = true;
    if (opened_ && text_.Take(u')')) return closed_ = true;
    return TakeBlank() || (!plus_ && text_.Take(u'+')) || text_.Take(u'$');
  }

  HRESULT Decimal() noexcept {
    bool any = false;
    bool fraction = false;
    for (;; text_.Skip()) {
      const OLECHAR c = text_.Next();
      if (IsDigit(c)) {
        any = true;
        Append(static_cast<char>(c), fraction);
      } else if (c == u'.' && !fraction) {
        fraction = true;
      } else if (c != u',' || !any) {
        break;
      }
    }
    if (!any) return DISP_E_TYPEMISMATCH;
    return ToLower(text_.Next()) == u'e' ? Exponent() : S_OK;
  }

  // Zeros in front are no digits of the value.
  void Append(char digit, bool fraction) noexcept {
    DecimalDigits& digits = number_.digits;
    if (digits.count() == 0 && digit == '0') {
      if (fraction) --digits.point;
      return;
    }
    digits.Append(digit);
    if (!fraction) ++digits.point;
  }

  HRESULT Exponent() noexcept {
    text_.Skip();
    const bool negative = text_.Take(u'-');
    if (!negative) text_.Take(u'+');
    if (!IsDigit(text_.Next())) return DISP_E_TYPEMISMATCH;
    int exponent = 0;
    for (; IsDigit(text_.Next()); text_.Skip()) {
      if (exponent < kMaxExponent / 10) exponent = exponent * 10 + (text_.Next() - u'0');
    }
    number_.digits.point += negative ? -exponent : exponent;
    return S_OK;
  }

  HRESULT Bits() noexcept {
    const OLECHAR form = ToLower(text_.Next());
    if (form != u'h' && form != u'o') return DISP_E_TYPEMISMATCH;
    text_.Skip();
    const int shift = form == u'h' ? 4 : 3;
    number_.is_bits = true;
    if (BitDigit(shift) < 0) return DISP_E_TYPEMISMATCH;
    for (int digit = BitDigit(shift); digit >= 0; digit = BitDigit(shift)) {
      if (number_.bits >> (64 - shift) != 0) return DISP_E_OVERFLOW;
      number_.bits = number_.bits << shift | static_cast<unsigned>(digit);
      text_.Skip();
    }
    return S_OK;
  }

  // The value of the next digit of `shift` bits; negative where there is none.
  [[nodiscard]] int BitDigit(int shift) const noexcept {
    const OLECHAR c = ToLower(text_.Next());
    const int digit = IsDigit(c) ? c - u'0' : c >= u'a' && c <= u'f' ? c - u'a' + 10 : -1;
    return digit < 1 << shift ? digit : -1;
  }

  TextCursor text_;
  ParsedNumber& number_;
  bool plus_ = false;
  bool minus_ = false;
  bool trailing_minus_ = false;
  bool opened_ = false;
  bool closed_ = false;
  bool currency_ = false;
};

}  // namespace

HRESULT ParseNumber(WideView text, ParsedNumber* number) noexcept { return NumberParser(text, number).Run(); }

}  // namespace halyard
