#include "values/arrays/simple_elements.h"

#include <algorithm>
#include <cstring>

namespace halyard {
namespace {

constexpr std::array<unsigned char, kWidestElementary> kZeros{};

}  // namespace

Variant ReadElement(const unsigned char* slot, SHORT type, std::uint8_t width) {
  Variant value;
  if (slot == nullptr) slot = kZeros.data();
  if (!ReadElementary({slot, width}, type, value.get())) return Variant(WideView());
  return value;
}

ConvertedElement::ConvertedElement(const VARIANT& value, SHORT type, std::uint8_t width) {
  Variant copy = Variant::CopyOf(value);
  if (WriteElementary(copy.get(), type, bytes_.data(), width)) size_ = type == kInt64 ? bytes_.size() : width;
}

void ConvertedElement::StoreAt(unsigned char* slot, std::uint64_t room) const noexcept {
  const auto stored = static_cast<std::size_t>(std::min<std::uint64_t>(size_, room));
  if (stored != 0) std::memcpy(slot, bytes_.data(), stored);
}

}  // namespace halyard
