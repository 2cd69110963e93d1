// Bytes of encodings, written in tests as hexadecimal text: Hex("06 00 02 00").
#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace halyard::test {

using Bytes = std::vector<unsigned char>;

// The bytes of pairs of hexadecimal digits; blanks between pairs are ignored. Anything
// else in the text ends the test program.
Bytes Hex(std::string_view text);

// Pairs of upper-case digits, one blank between them: the form that tests compare.
std::string ToHex(const Bytes& bytes);

// The parts one after another.
Bytes Join(std::initializer_list<Bytes> parts);

// The first `size` bytes; all of them when there are fewer.
Bytes Prefix(const Bytes& bytes, std::size_t size);

// `value` as `width` bytes, little-endian.
Bytes LittleEndian(unsigned long long value, std::size_t width);

}  // namespace halyard::test
