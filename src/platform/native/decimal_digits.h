// DecimalDigits: a number as its decimal digits, the common form between texts, whole
// numbers, currency, decimals and floating-point numbers. Nothing is lost in it.
#pragma once

#include <array>
#include <cstddef>

#include "platform/native/whole96.h"

namespace halyard {

// The value is 0.D1D2D3... times ten to the power `point`, negated if `negative`.
class DecimalDigits {
 public:
  // Enough to tell any number from the middle between two neighbouring doubles.
  static constexpr int kCapacity = 800;

  bool negative = false;
  int point = 0;

  [[nodiscard]] int count() const noexcept { return count_; }

  // Digit `index` as 0 to 9; zero behind the last one.
  [[nodiscard]] int operator[](int index) const noexcept {
    return index < count_ ? digits_[static_cast<std::size_t>(index)] - '0' : 0;
  }

  [[nodiscard]] const char* data() const noexcept { return digits_.data(); }

  // Appends a digit, '0' to '9'. Behind the capacity only it is noted whether anything
  // but zeros followed.
  void Append(char digit) noexcept;

  // Removes zeros at the end; the value stays.
  void TrimZeros() noexcept;

  // The first `digits` digits of the value of a whole number and its scale.
  static DecimalDigits Of(Whole96 whole, int scale, bool negative) noexcept;

  // A finite number, rounded (half to even) to `significant` digits, without zeros at
  // the end; no digits for zero.
  static DecimalDigits Of(double value, int significant) noexcept;
  static DecimalDigits Of(float value, int significant) noexcept;

  // The magnitude times ten to the power `scale`, rounded half to even to a whole
  // number. False where it needs more than 96 bits.
  bool Scaled(int scale, Whole96* whole) const noexcept;

  // The nearest number; infinite where the value is too large.
  [[nodiscard]] double ToDouble() const noexcept;
  [[nodiscard]] float ToFloat() const noexcept;

 private:
  int count_ = 0;
  std::array<char, kCapacity> digits_;
};

}  // namespace halyard
