#include "types/number_fields.h"

#include <cmath>
#include <limits>
#include <optional>

namespace halyard {
namespace {

// The number of a variant that owns nothing, where 64 bits of a real hold it.
std::optional<double> NumberIn(const VARIANT& value) noexcept {
  switch (value.vt) {
    case VT_UI1:
      return value.bVal;
    case VT_I2:
      return value.iVal;
    case VT_I4:
      return value.lVal;
    case VT_R4:
      return double{value.fltVal};
    case VT_R8:
      return value.dblVal;
    default:
      return std::nullopt;
  }
}

// The same number in a whole type; none where it has a fraction or does not fit.
template <class Whole>
std::optional<Whole> WholeOf(double number) noexcept {
  if (!(number >= std::numeric_limits<Whole>::min() && number <= std::numeric_limits<Whole>::max()))
    return std::nullopt;
  const auto whole = static_cast<Whole>(number);
  if (whole != number) return std::nullopt;
  return whole;
}

template <class Whole, class Stored = Whole>
bool StoreWhole(double number, unsigned char* field) noexcept {
  const std::optional<Whole> whole = WholeOf<Whole>(number);
  return whole && detail::StoreField(field, static_cast<Stored>(*whole));
}

bool StoreSingle(double number, unsigned char* field) noexcept {
  if (!(std::fabs(number) <= double{std::numeric_limits<float>::max()})) return false;
  const auto single = static_cast<float>(number);
  return single == number && detail::StoreField(field, single);
}

}  // namespace

bool StoreOtherNumber(const VARIANT& value, SHORT type, unsigned char* field) noexcept {
  const std::optional<double> number = NumberIn(value);
  // What is no number at all takes the long way with all its bits.
  if (!number || *number != *number) return false;
  switch (type) {
    case kChar:
    case kByte:
      return StoreWhole<std::uint8_t>(*number, field);
    case kShort:
    case kWord:
      return StoreWhole<std::int16_t>(*number, field);
    case kLong:
    case kDWord:
      return StoreWhole<std::int32_t>(*number, field);
    case kInt64:
      return StoreWhole<std::int32_t, std::int64_t>(*number, field);
    case kShortReal:
      return StoreSingle(*number, field);
    case kReal:
      return detail::StoreField(field, *number);
    default:
      return false;
  }
}

}  // namespace halyard
