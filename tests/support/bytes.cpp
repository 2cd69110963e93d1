#include "tests/support/bytes.h"

#include <algorithm>
#include <cstdlib>

namespace halyard::test {
namespace {

constexpr std::string_view kDigits = "0123456789ABCDEF";

unsigned DigitValue(char digit) {
  const std::size_t value = kDigits.find(digit);
  if (value == std::string_view::npos) std::abort();
  return static_cast<unsigned>(value);
}

}  // namespace

Bytes Hex(std::string_view text) {
  std::string digits(text);
  std::erase(digits, ' ');
  if (digits.size() % 2 != 0) std::abort();
  Bytes result;
  for (std::size_t i = 0; i < digits.size(); i += 2) {
    result.push_back(static_cast<unsigned char>(DigitValue(digits[i]) * 16 + DigitValue(digits[i + 1])));
  }
  return result;
}

std::string ToHex(const Bytes& bytes) {
  std::string result;
  for (const unsigned char byte : bytes) {
    if (!result.empty()) result += ' ';
    result += kDigits[byte / 16];
    result += kDigits[byte % 16];
  }
  return result;
}

Bytes Join(std::initializer_list<Bytes> parts) {
  Bytes result;
  for (const Bytes& part : parts) result.insert(result.end(), part.begin(), part.end());
  return result;
}

Bytes Prefix(const Bytes& bytes, std::size_t size) {
  return Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(std::min(size, bytes.size())));
}

Bytes LittleEndian(unsigned long long value, std::size_t width) {
  Bytes result;
  for (std::size_t i = 0; i < width; ++i) result.push_back(static_cast<unsigned char>(value >> (8 * i)));
  return result;
}

}  // namespace halyard::test
