#include "platform/native/whole96.h"

#include <cstddef>

namespace halyard {

Whole96 Whole96::Of(const DECIMAL& value) noexcept {
  Whole96 result(value.Lo64);
  result.limbs_[2] = value.Hi32;
  return result;
}

bool Whole96::MultiplyAdd(std::uint32_t factor, std::uint32_t addend) noexcept {
  std::array<std::uint32_t, 3> product{};
  std::uint64_t carry = addend;
  for (std::size_t i = 0; i < limbs_.size(); ++i) {
    carry += std::uint64_t{limbs_[i]} * factor;
    product[i] = static_cast<std::uint32_t>(carry);
    carry >>= 32;
  }
  if (carry != 0) return false;
  limbs_ = product;
  return true;
}

std::uint32_t Whole96::Divide(std::uint32_t divisor) noexcept {
  std::uint64_t remainder = 0;
  for (std::size_t i = limbs_.size(); i-- > 0;) {
    remainder = remainder << 32 | limbs_[i];
    limbs_[i] = static_cast<std::uint32_t>(remainder / divisor);
    remainder %= divisor;
  }
  return static_cast<std::uint32_t>(remainder);
}

}  // namespace halyard
