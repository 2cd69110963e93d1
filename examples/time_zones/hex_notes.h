// Bytes with notes beside them: takes fields off the front of a buffer and prints each
// with its offset, its bytes in hexadecimal and what it says.
#pragma once

#include <cstdint>
#include <ostream>
#include <span>
#include <string>

namespace time_zones {

class HexNotes {
 public:
  // Neither the bytes nor the stream are copied; both must outlive this object.
  HexNotes(std::span<const unsigned char> bytes, std::ostream& out) : bytes_(bytes), out_(out) {}

  // A line that says what follows.
  void Heading(const std::string& text);

  // The next field as an unsigned little-endian number of 1, 2 or 4 bytes. `what` is
  // printed beside it, followed by the number unless `meaning` says it better.
  std::uint32_t Number(std::size_t width, const std::string& what, const std::string& meaning = {});

  // The number that the next call of Number will take.
  [[nodiscard]] std::uint32_t Peek(std::size_t width) const;

  // The next field as a little-endian IEEE number of 4 or 8 bytes.
  void Real(std::size_t width, const std::string& what);

  // A length of two bytes and that many characters; one line where there are none.
  std::string Text(const std::string& what);

  // A field of characters.
  std::string Characters(std::size_t count, const std::string& what);

  // How far the bytes are taken.
  [[nodiscard]] std::size_t position() const { return position_; }

  // Notes made while it lives stand further to the right.
  class Indented {
   public:
    explicit Indented(HexNotes& notes) : notes_(notes) { ++notes_.depth_; }
    ~Indented() { --notes_.depth_; }
    Indented(const Indented&) = delete;
    Indented& operator=(const Indented&) = delete;

   private:
    HexNotes& notes_;
  };

 private:
  // The next bytes, where there are that many; throws std::runtime_error otherwise.
  [[nodiscard]] std::span<const unsigned char> Next(std::size_t count) const;
  void Note(std::size_t count, const std::string& note);

  std::span<const unsigned char> bytes_;
  std::ostream& out_;
  std::size_t position_ = 0;
  std::size_t depth_ = 0;
};

}  // namespace time_zones
