// The numbers that decide what a random program does: the same on every platform and
// with every standard library.
#pragma once

#include <cstdint>
#include <span>

namespace halyard::differential {

class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  // The next 64 bits (the generator known as SplitMix64).
  std::uint64_t Next() {
    std::uint64_t z = (state_ += 0x9E3779B97F4A7C15u);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
    return z ^ (z >> 31);
  }

  // A number from 0 to bound - 1; bound is not 0.
  std::uint32_t Below(std::uint32_t bound) { return static_cast<std::uint32_t>((Next() >> 32) % bound); }

  // A number from low to high, both included.
  std::int32_t Between(std::int32_t low, std::int32_t high) {
    return low + static_cast<std::int32_t>(Below(static_cast<std::uint32_t>(high - low) + 1));
  }

  // True once in `times` calls on average.
  bool OneIn(std::uint32_t times) { return Below(times) == 0; }

  template <class T, std::size_t n>
  const T& Of(const T (&choices)[n]) {
    return choices[Below(static_cast<std::uint32_t>(n))];
  }

 private:
  std::uint64_t state_;
};

}  // namespace halyard::differential
