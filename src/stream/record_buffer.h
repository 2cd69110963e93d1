// Memory for one record: where it was read ahead, the file's work buffer, or memory of
// its own for a larger one.
#pragma once

#include <cstdint>
#include <memory>
#include <utility>

#include "object/raw_memory.h"
#include "stream/file_channel.h"

namespace halyard {

// What fits into this many bytes costs no allocation.
inline constexpr std::uint32_t kWorkBufferSize = 64000;

// The work buffer of a file, kWorkBufferSize bytes, in use for one record. Code of a
// client's that meanwhile comes back to the file gets one of its own, so that a record
// inside a record spoils neither.
class WorkBuffer {
 public:
  // Takes the buffer out of its place until the end. Throws std::bad_alloc where it has to
  // make one.
  explicit WorkBuffer(std::unique_ptr<unsigned char[]>& place)
      : place_(place), is_lent_(place != nullptr), bytes_(std::move(place)) {
    if (!is_lent_) bytes_ = std::make_unique_for_overwrite<unsigned char[]>(kWorkBufferSize);
  }
  ~WorkBuffer() {
    if (is_lent_) place_ = std::move(bytes_);
  }
  WorkBuffer(const WorkBuffer&) = delete;
  WorkBuffer& operator=(const WorkBuffer&) = delete;

  [[nodiscard]] unsigned char* bytes() const noexcept { return bytes_.get(); }

 private:
  std::unique_ptr<unsigned char[]>& place_;
  const bool is_lent_;
  std::unique_ptr<unsigned char[]> bytes_;
};

class RecordBuffer {
 public:
  // Uses `work` as long as that is enough.
  explicit RecordBuffer(const WorkBuffer& work) noexcept : work_(work.bytes()) {}

  // Room for `size` bytes, all zeros. Memory follows what is written there, because the
  // size is the word of a value that may be a client's. Throws std::bad_alloc.
  unsigned char* ReserveZeros(std::uint64_t size);

  // Reads a record body of `size` bytes from the file; null when the file does not hold
  // that many. Memory grows no further than the file has bytes, whatever `size` says.
  // Throws std::bad_alloc; a body for which there is no memory has been passed over then.
  unsigned char* ReadBody(FileChannel& file, std::uint32_t size);

  // The memory of its own that a larger record lies in; none otherwise. A reader may keep
  // it: behind a record that was read lie spare bytes, as simple arrays need them, and the
  // elements of an array that is the whole record are aligned.
  [[nodiscard]] RawMemory& own() noexcept { return own_; }

 private:
  // As ReadBody, for a body larger than the work buffer and a file that has so many bytes.
  unsigned char* ReadLarge(FileChannel& file, std::uint32_t size);

  // As ReadBody, for a handle that does not know how much is left.
  unsigned char* ReadInSteps(FileChannel& file, std::uint32_t size);

  // Reads a number of bytes and drops them; false where the file does not hold them.
  bool PassOver(FileChannel& file, std::uint32_t size) noexcept;

  // The record of so many bytes that was read, ready to be kept.
  unsigned char* Kept(std::uint32_t size) noexcept;

  unsigned char* work_;
  RawMemory own_;
};

}  // namespace halyard
