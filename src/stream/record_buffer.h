// Memory for one record: where it was read ahead, the file's work buffer, or memory of
// its own for a larger one.
#pragma once

#include <cstdint>

#include "object/raw_memory.h"
#include "stream/file_channel.h"

namespace halyard {

// What fits into this many bytes costs no allocation.
inline constexpr std::uint32_t kWorkBufferSize = 64000;

class RecordBuffer {
 public:
  // Uses `work`, kWorkBufferSize bytes of the caller, as long as that is enough.
  explicit RecordBuffer(unsigned char* work) noexcept : work_(work) {}

  // Room for `size` bytes, all zeros. Memory follows what is written there, because the
  // size is the word of a value that may be a client's. Throws std::bad_alloc.
  unsigned char* ReserveZeros(std::uint64_t size);

  // Reads a record body of `size` bytes from the file; null when the file does not hold
  // that many. Memory grows no further than the file has bytes, whatever `size` says.
  unsigned char* ReadBody(FileChannel& file, std::uint32_t size);

  // The memory of its own that a larger record lies in; none otherwise. A reader may keep
  // it: behind a record that was read lie spare bytes, as simple arrays need them, and the
  // elements of an array that is the whole record are aligned.
  [[nodiscard]] RawMemory& own() noexcept { return own_; }

 private:
  // As ReadBody, for a handle that does not know how much is left.
  unsigned char* ReadInSteps(FileChannel& file, std::uint32_t size);

  // The record of so many bytes that was read, ready to be kept.
  unsigned char* Kept(std::uint32_t size) noexcept;

  unsigned char* work_;
  RawMemory own_;
};

}  // namespace halyard
