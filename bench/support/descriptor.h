// Descriptor: the owner of an open file of the operating system, for code that moves
// bytes with nothing between itself and the system.
#pragma once

#include <cstddef>
#include <string>

namespace bench {

class Descriptor {
 public:
  // Opens an existing file for reading, or makes a new or empty one for writing. Throws
  // where that fails.
  static Descriptor ForReading(const std::string& path);
  static Descriptor ForWriting(const std::string& path);

  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor();

  // The number by which the system knows the file; it stays owned here.
  int number() const { return number_; }

  // One system call for `size` bytes. Throws where it moves fewer.
  void Write(const void* bytes, std::size_t size) const;

  // One system call; the number of bytes that came, 0 at the end. Throws on failure.
  std::size_t Read(void* bytes, std::size_t size) const;

 private:
  explicit Descriptor(int number) : number_(number) {}

  int number_;
};

}  // namespace bench
