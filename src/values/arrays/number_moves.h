// The conversion of runs of numbers from one number type to another, as C++ converts
// numbers: whole numbers keep their low bits, reals are cut toward zero.
#pragma once

#include <cstddef>

#include "halyard/platform/automation.h"

namespace halyard {

// Numbers in memory: the first one, and the bytes from each to the next. A stride of 0
// is one number again and again.
template <class Byte>
struct NumberRun {
  Byte* first = nullptr;
  std::size_t stride = 0;
};

// Converts `count` numbers; source and target must not overlap. Numbers need no
// alignment.
using NumberMove = void (*)(NumberRun<const unsigned char> from, NumberRun<unsigned char> to,
                            std::size_t count) noexcept;

// The move from one number type to another; null unless both are Char, Byte, Short,
// Word, Long, DWord, ShortReal or Real. Char is signed here.
NumberMove FindNumberMove(SHORT from_type, SHORT to_type) noexcept;

// The bytes of a number; 0 for a type that is no number type.
std::size_t NumberWidth(SHORT type) noexcept;

}  // namespace halyard
