#include "time_zones/hex_notes.h"

#include <algorithm>
#include <bit>
#include <iomanip>
#include <sstream>
#include <stdexcept>

namespace time_zones {
namespace {

constexpr std::size_t kBytesInALine = 12;

constexpr std::size_t kOffsetDigits = 4;

// The lowest digits of a number in hexadecimal.
std::string HexDigits(std::size_t number, std::size_t digits) {
  std::string text(digits, '0');
  for (auto digit = text.rbegin(); digit != text.rend(); ++digit, number /= 16)
    *digit = "0123456789ABCDEF"[number % 16];
  return text;
}

// Bytes with a blank between them.
std::string HexOf(std::span<const unsigned char> bytes) {
  std::string text;
  for (const unsigned char byte : bytes) text += (text.empty() ? "" : " ") + HexDigits(byte, 2);
  return text;
}

// The text with blanks up to a column.
std::string Padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

std::uint64_t LittleEndian(std::span<const unsigned char> bytes) {
  std::uint64_t number = 0;
  for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | bytes[i];
  return number;
}

}  // namespace

void HexNotes::Heading(const std::string& text) { out_ << text << "\n"; }

std::uint32_t HexNotes::Peek(std::size_t width) const {
  return static_cast<std::uint32_t>(LittleEndian(Next(width)));
}

std::uint32_t HexNotes::Number(std::size_t width, const std::string& what, const std::string& meaning) {
  const std::uint32_t number = Peek(width);
  Note(width, what + " " + (meaning.empty() ? std::to_string(number) : meaning));
  return number;
}

void HexNotes::Real(std::size_t width, const std::string& what) {
  const std::uint64_t bits = LittleEndian(Next(width));
  std::ostringstream note;
  note << what << " " << std::setprecision(10);
  if (width == sizeof(float)) {
    note << std::bit_cast<float>(static_cast<std::uint32_t>(bits));
  } else {
    note << std::bit_cast<double>(bits);
  }
  Note(width, note.str());
}

std::string HexNotes::Text(const std::string& what) {
  const std::uint32_t length = Peek(2);
  if (length == 0) {
    Note(2, what + " is empty");
    return {};
  }
  Note(2, what + " has " + std::to_string(length) + " characters");
  return Characters(length, what);
}

std::string HexNotes::Characters(std::size_t count, const std::string& what) {
  const auto field = Next(count);
  const std::string text(field.begin(), field.end());
  Note(count, what + " \"" + text + "\"");
  return text;
}

std::span<const unsigned char> HexNotes::Next(std::size_t count) const {
  if (bytes_.size() - position_ < count) throw std::runtime_error("the bytes end inside a field");
  return bytes_.subspan(position_, count);
}

void HexNotes::Note(std::size_t count, const std::string& note) {
  auto field = Next(count);
  std::string beside = std::string(2 * depth_, ' ') + note;
  do {
    const auto line = field.first(std::min(field.size(), kBytesInALine));
    const std::string hex = HexOf(line);
    out_ << "  " << HexDigits(position_, kOffsetDigits) << "  "
         << (beside.empty() ? hex : Padded(hex, 3 * kBytesInALine) + beside) << "\n";
    position_ += line.size();
    field = field.subspan(line.size());
    beside.clear();
  } while (!field.empty());
}

}  // namespace time_zones
