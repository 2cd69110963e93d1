// Sounding: the small record of the workloads W1, W3 and W6, seven numbers in 35 bytes,
// and the answers that every participant must give.
#pragma once

#include <cstdint>

namespace bench {

#pragma pack(push, 1)
struct Sounding {
  std::int32_t id;
  double x;
  double y;
  double z;
  float depth;
  std::int16_t flags;
  std::uint8_t kind;
};
#pragma pack(pop)
static_assert(sizeof(Sounding) == 35, "no gaps between the members");

// The record at a position. All numbers are multiples of an eighth, so that their sums
// are exact in any order.
inline Sounding SoundingAt(std::int32_t position) {
  const double p = position;
  return {position,
          p * 0.25,
          p * 0.5 + 1,
          100 - p * 0.125,
          static_cast<float>(position & 1023) * 0.5F,
          static_cast<std::int16_t>(position & 0x7FFF),
          static_cast<std::uint8_t>(position)};
}

// The sum of every member over all records.
struct SoundingSums {
  std::int64_t id = 0;
  double x = 0;
  double y = 0;
  double z = 0;
  double depth = 0;
  std::int64_t flags = 0;
  std::int64_t kind = 0;

  void Add(const Sounding& one) {
    id += one.id;
    x += one.x;
    y += one.y;
    z += one.z;
    depth += one.depth;
    flags += one.flags;
    kind += one.kind;
  }
  friend bool operator==(const SoundingSums&, const SoundingSums&) = default;
};

// The sums over the first `count` records.
inline SoundingSums TrueSums(std::int32_t count) {
  SoundingSums sums;
  for (std::int32_t i = 0; i < count; ++i) sums.Add(SoundingAt(i));
  return sums;
}

}  // namespace bench
