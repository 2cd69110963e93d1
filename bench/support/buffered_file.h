// BufferedWriter and BufferedReader: bytes through a buffer of 64 KB and plain system
// calls. The limit of the record workloads uses them, and so does every rival that
// leaves files to its user.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "support/descriptor.h"

namespace bench {

inline constexpr std::size_t kFileBufferSize = 65536;

class BufferedWriter {
 public:
  explicit BufferedWriter(const std::string& path)
      : file_(Descriptor::ForWriting(path)), buffer_(kFileBufferSize) {}

  // A place for `size` bytes (at most the buffer's), which the caller fills at once.
  char* Room(std::size_t size) {
    if (kFileBufferSize - used_ < size) Flush();
    char* const place = buffer_.data() + used_;
    used_ += size;
    return place;
  }

  // Copies the bytes; a block larger than the buffer goes to the file directly.
  void Put(const void* bytes, std::size_t size) {
    if (size > kFileBufferSize) {
      Flush();
      file_.Write(bytes, size);
    } else {
      std::memcpy(Room(size), bytes, size);
    }
  }

  // Writes out what is left. Must be called at the end.
  void Flush() {
    if (used_ > 0) file_.Write(buffer_.data(), used_);
    used_ = 0;
  }

 private:
  Descriptor file_;
  std::vector<char> buffer_;
  std::size_t used_ = 0;
};

class BufferedReader {
 public:
  explicit BufferedReader(const std::string& path)
      : file_(Descriptor::ForReading(path)), buffer_(kFileBufferSize) {}

  // The next `size` bytes (at most the buffer's) in the buffer, without taking them; null
  // where the file has fewer.
  const char* Peek(std::size_t size) {
    if (end_ - begin_ < size && !Fill(size)) return nullptr;
    return buffer_.data() + begin_;
  }

  // Takes the next `size` bytes; they stay in place until the next call.
  const char* Take(std::size_t size) {
    const char* const place = Peek(size);
    if (place != nullptr) begin_ += size;
    return place;
  }

 private:
  // Moves what is left to the front and reads until `size` bytes are there.
  bool Fill(std::size_t size) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
    while (end_ < size) {
      const std::size_t count = file_.Read(buffer_.data() + end_, buffer_.size() - end_);
      if (count == 0) return false;
      end_ += count;
    }
    return true;
  }

  Descriptor file_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
};

}  // namespace bench
