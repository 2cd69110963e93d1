#include "values/arrays/number_moves.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <tuple>
#include <type_traits>
#include <utility>

#include "halyard/types/type_codes.h"

namespace halyard {
namespace {

// The C++ types of the number types, and their codes in the same order.
using Numbers = std::tuple<std::int8_t, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t,
                           std::uint32_t, float, double>;
constexpr SHORT kNumberTypes[] = {kChar, kByte, kShort, kWord, kLong, kDWord, kShortReal, kReal};
constexpr std::size_t kNumberCount = std::tuple_size_v<Numbers>;

// A real cut toward zero, as 64 bits; 0 for what they cannot hold, and for no number.
template <class Real>
std::int64_t Whole(Real number) noexcept {
  constexpr Real kLimit = static_cast<Real>(9223372036854775808.0);  // 2 to the 63rd
  return number >= -kLimit && number < kLimit ? static_cast<std::int64_t>(number) : 0;
}

template <class To, class From>
To Convert(From number) noexcept {
  if constexpr (std::is_floating_point_v<From> && std::is_integral_v<To>) {
    return static_cast<To>(Whole(number));
  } else {
    return static_cast<To>(number);
  }
}

// Converts `kCount` numbers. All are loaded before the first is stored, so that they need
// not wait for one another.
template <class From, class To, std::size_t kCount>
void MoveGroup(const unsigned char* from, std::size_t from_stride, unsigned char* to,
               std::size_t to_stride) noexcept {
  From sources[kCount];
  To targets[kCount];
  for (std::size_t i = 0; i < kCount; ++i) std::memcpy(&sources[i], from + i * from_stride, sizeof(From));
  for (std::size_t i = 0; i < kCount; ++i) targets[i] = Convert<To>(sources[i]);
  for (std::size_t i = 0; i < kCount; ++i) std::memcpy(to + i * to_stride, &targets[i], sizeof(To));
}

template <class From, class To>
void MoveAll(const unsigned char* from, std::size_t from_stride, unsigned char* to, std::size_t to_stride,
             std::size_t count) noexcept {
  constexpr std::size_t kGroup = 8;
  for (; count >= kGroup; count -= kGroup) {
    MoveGroup<From, To, kGroup>(from, from_stride, to, to_stride);
    from += kGroup * from_stride;
    to += kGroup * to_stride;
  }
  for (; count != 0; --count) {
    MoveGroup<From, To, 1>(from, from_stride, to, to_stride);
    from += from_stride;
    to += to_stride;
  }
}

// Where numbers lie side by side, the compiler is told so, for wider loads and stores.
template <class From, class To>
void Move(NumberRun<const unsigned char> from, NumberRun<unsigned char> to, std::size_t count) noexcept {
  if (from.stride == sizeof(From) && to.stride == sizeof(To)) {
    MoveAll<From, To>(from.first, sizeof(From), to.first, sizeof(To), count);
  } else if (to.stride == sizeof(To)) {
    MoveAll<From, To>(from.first, from.stride, to.first, sizeof(To), count);
  } else if (from.stride == sizeof(From)) {
    MoveAll<From, To>(from.first, sizeof(From), to.first, to.stride, count);
  } else {
    MoveAll<From, To>(from.first, from.stride, to.first, to.stride, count);
  }
}

using MoveRow = std::array<NumberMove, kNumberCount>;

template <class From, std::size_t... kTo>
constexpr MoveRow RowOf(std::index_sequence<kTo...>) noexcept {
  return {&Move<From, std::tuple_element_t<kTo, Numbers>>...};
}

template <std::size_t... kFrom>
constexpr std::array<MoveRow, kNumberCount> AllMoves(std::index_sequence<kFrom...> all) noexcept {
  return {RowOf<std::tuple_element_t<kFrom, Numbers>>(all)...};
}

template <std::size_t... kType>
constexpr std::array<std::size_t, kNumberCount> AllWidths(std::index_sequence<kType...>) noexcept {
  return {sizeof(std::tuple_element_t<kType, Numbers>)...};
}

constexpr auto kMoves = AllMoves(std::make_index_sequence<kNumberCount>());
constexpr auto kWidths = AllWidths(std::make_index_sequence<kNumberCount>());

// The place of a number type in the tables; kNumberCount for any other code.
std::size_t PlaceOf(SHORT type) noexcept {
  std::size_t place = 0;
  while (place < kNumberCount && kNumberTypes[place] != type) ++place;
  return place;
}

}  // namespace

NumberMove FindNumberMove(SHORT from_type, SHORT to_type) noexcept {
  const std::size_t from = PlaceOf(from_type);
  const std::size_t to = PlaceOf(to_type);
  return from < kNumberCount && to < kNumberCount ? kMoves[from][to] : nullptr;
}

std::size_t NumberWidth(SHORT type) noexcept {
  const std::size_t place = PlaceOf(type);
  return place < kNumberCount ? kWidths[place] : 0;
}

}  // namespace halyard
