// Helpers that write the notation of value_text.h for values known as C++ numbers.
#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "tests/recorder/value_text.h"

namespace halyard::recorder {

inline std::string HexOf(double value) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof(bits));
  return FormatHex(bits, 16);
}

inline std::string HexOf(float value) {
  std::uint32_t bits = 0;
  std::memcpy(&bits, &value, sizeof(bits));
  return FormatHex(bits, 8);
}

inline std::string Real8(double value) { return "R8:" + HexOf(value); }
inline std::string Real4(float value) { return "R4:" + HexOf(value); }
inline std::string Date(double value) { return "DATE:" + HexOf(value); }

// A text of printable ASCII; other characters as the notation's \uXXXX.
inline std::string Text(std::string_view text) { return "BSTR:\"" + std::string(text) + '"'; }

inline std::string Convert(std::string_view type, const std::string& value) {
  return "convert " + std::string(type) + ' ' + value;
}

}  // namespace halyard::recorder
