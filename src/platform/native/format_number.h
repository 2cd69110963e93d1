// Numbers as texts, in the US English forms of automation.
#pragma once

#include <array>
#include <string_view>

#include "platform/native/decimal_digits.h"

namespace halyard {

// A short text in ASCII that needs no memory of its own.
class ShortText {
 public:
  void Append(std::string_view part) noexcept {
    for (const char c : part) Append(c);
  }
  void Append(char c) noexcept {
    if (size_ < text_.size()) text_[size_++] = c;
  }
  void Append(std::size_t count, char c) noexcept {
    while (count-- > 0) Append(c);
  }

  // A whole number with at least `width` digits, zeros in front.
  void AppendNumber(int value, int width = 1) noexcept;

  [[nodiscard]] std::string_view view() const noexcept { return {text_.data(), size_}; }

 private:
  std::size_t size_ = 0;
  std::array<char, 64> text_;
};

// 15 significant digits for a double, 7 for a float: "0.1", "-1.5E-20", "1E+15". A text
// with more integer digits or more decimal places than that uses an exponent.
ShortText FormatReal(double value) noexcept;
ShortText FormatReal(float value) noexcept;

// All digits, no exponent: "-0.0001".
ShortText FormatPlain(const DecimalDigits& number) noexcept;

}  // namespace halyard
