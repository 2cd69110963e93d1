// Files of units put together byte by byte, sound ones and others.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

namespace halyard::test {

// Bytes at the end of bytes.
class UnitBytes {
 public:
  UnitBytes& U8(unsigned value) { return Number(value, 1); }
  UnitBytes& U16(unsigned value) { return Number(value, 2); }
  UnitBytes& U32(std::uint64_t value) { return Number(value, 4); }
  UnitBytes& Text(const std::string& text) {
    U16(static_cast<unsigned>(text.size()));
    bytes_ += text;
    return *this;
  }
  UnitBytes& Raw(const std::string& bytes) {
    bytes_ += bytes;
    return *this;
  }
  [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }

 private:
  UnitBytes& Number(std::uint64_t value, int width) {
    for (int i = 0; i < width; ++i) bytes_ += static_cast<char>(value >> (8 * i) & 0xFF);
    return *this;
  }
  std::string bytes_;
};

// The header of a file, and a unit with its length before it.
std::string Header();
std::string Record(const std::string& unit);

// A unit with the definition "Station" (or another name), id 3 (or another): Depth (Long),
// Label (String, may be null), Salt (ShortReal). The shape of a second one differs.
std::string StationDefinition(unsigned id = 3, const std::string& name = "Station");
std::string OtherDefinition(unsigned id = 3);

// A unit with a value of it.
std::string StationValue(unsigned depth, const std::string& label, unsigned id = 3);
std::string StationWithoutLabel(unsigned depth, unsigned id = 3);

// A file with the definition and values of the depths 5, 6 and so on.
std::string StationFile(unsigned values);

}  // namespace halyard::test
