#include "platform/native/parse_number.h"

namespace halyard {
namespace {

constexpr bool IsDigit(OLECHAR c) noexcept { return c >= u'0' && c <= u'9'; }
constexpr bool IsBlank(OLECHAR c) noexcept { return c == u' ' || (c >= u'\t' && c <= u'\r'); }

constexpr int kMaxExponent = 1000;

class NumberParser {
 public:
  NumberParser(WideView text, ParsedNumber* number) noexcept : text_(text), number_(*number) {}

  HRESULT Run() noexcept {
    Before();
    if (Next() == u'&') return Bits();
    if (!Digits()) return DISP_E_TYPEMISMATCH;
    const HRESULT hr = Exponent();
    if (FAILED(hr)) return hr;
    Behind();
    if (at_ != text_.size() || open_) return DISP_E_TYPEMISMATCH;
    number_.digits.negative = negative_;
    return S_OK;
  }

 private:
  [[nodiscard]] OLECHAR Next() const noexcept { return at_ < text_.size() ? text_[at_] : u'\0'; }

  bool Take(bool possible) noexcept {
    if (possible) ++at_;
    return possible;
  }

  bool TakeSign() noexcept {
    if (signed_ || (Next() != u'-' && Next() != u'+')) return false;
    signed_ = true;
    negative_ = Next() == u'-';
    return Take(true);
  }

  bool TakeCurrency() noexcept {
    if (currency_ || Next() != u'$') return false;
    currency_ = true;
    return Take(true);
  }

  bool TakeOpening() noexcept {
    if (signed_ || Next() != u'(') return false;
    signed_ = open_ = negative_ = true;
    return Take(true);
  }

  bool TakeClosing() noexcept {
    if (!open_ || Next() != u')') return false;
    open_ = false;
    return Take(true);
  }

  void Before() noexcept {
    while (Take(IsBlank(Next())) || TakeSign() || TakeCurrency() || TakeOpening()) {
    }
  }

  void Behind() noexcept {
    while (Take(IsBlank(Next())) || TakeSign() || TakeCurrency() || TakeClosing()) {
    }
  }

  bool Digits() noexcept {
    bool any = false;
    for (; IsDigit(Next()) || (any && Next() == u','); ++at_) {
      if (Next() == u',') continue;
      any = true;
      AppendWhole(static_cast<char>(Next()));
    }
    if (Next() != u'.') return any;
    for (++at_; IsDigit(Next()); ++at_) {
      any = true;
      AppendFraction(static_cast<char>(Next()));
    }
    return any;
  }

  void AppendWhole(char digit) noexcept {
    if (number_.digits.count() == 0 && digit == '0') return;
    number_.digits.Append(digit);
    ++number_.digits.point;
  }

  void AppendFraction(char digit) noexcept {
    if (number_.digits.count() == 0 && digit == '0') {
      --number_.digits.point;
    } else {
      number_.digits.Append(digit);
    }
  }

  HRESULT Exponent() noexcept {
    if (Next() != u'e' && Next() != u'E') return S_OK;
    ++at_;
    const bool negative = Next() == u'-';
    Take(negative || Next() == u'+');
    if (!IsDigit(Next())) return DISP_E_TYPEMISMATCH;
    int exponent = 0;
    for (; IsDigit(Next()); ++at_) {
      exponent = exponent * 10 + (Next() - u'0');
      if (exponent > kMaxExponent) exponent = kMaxExponent;
    }
    number_.digits.point += negative ? -exponent : exponent;
    return S_OK;
  }

  HRESULT Bits() noexcept {
    ++at_;
    const OLECHAR form = Next();
    const bool hex = form == u'H' || form == u'h';
    if (!hex && form != u'O' && form != u'o') return DISP_E_TYPEMISMATCH;
    ++at_;
    number_.is_bits = true;
    const int shift = hex ? 4 : 3;
    bool any = false;
    for (int digit = BitDigit(hex); digit >= 0; digit = BitDigit(hex)) {
      if (number_.bits >> (64 - shift) != 0) return DISP_E_OVERFLOW;
      number_.bits = number_.bits << shift | static_cast<unsigned>(digit);
      any = true;
      ++at_;
    }
    Behind();
    return any && at_ == text_.size() ? S_OK : DISP_E_TYPEMISMATCH;
  }

  [[nodiscard]] int BitDigit(bool hex) const noexcept {
    const OLECHAR c = Next();
    if (c >= u'0' && c <= (hex ? u'9' : u'7')) return c - u'0';
    if (!hex) return -1;
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    return -1;
  }

  WideView text_;
  ParsedNumber& number_;
  std::size_t at_ = 0;
  bool signed_ = false;
  bool negative_ = false;
  bool open_ = false;
  bool currency_ = false;
};

}  // namespace

HRESULT ParseNumber(WideView text, ParsedNumber* number) noexcept { return NumberParser(text, number).Run(); }

}  // namespace halyard
