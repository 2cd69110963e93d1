// ZeroBlock: an owned block of bytes that takes memory only when somebody writes to it.
//
// A block that was announced but never written reads as zeros, whatever its size: a
// count in a broken encoding, or a definition of many large arrays, costs nothing until
// bytes arrive. A few of them do not bring memory for thousands of millions: to store
// single bytes in a large block that was only announced fails. Behind the bytes lie a few
// spare ones, a margin for clients that store through the address of the block.
#pragma once

#include <cstdint>
#include <span>
#include <utility>

#include "object/raw_memory.h"

namespace halyard {

class ZeroBlock {
 public:
  ZeroBlock() noexcept = default;
  ZeroBlock(ZeroBlock&& other) noexcept { *this = std::move(other); }
  ZeroBlock& operator=(ZeroBlock&& other) noexcept {
    size_ = std::exchange(other.size_, 0);
    memory_ = std::move(other.memory_);
    bytes_ = std::exchange(other.bytes_, nullptr);
    return *this;
  }

  // Becomes a block of zeros and gives back its memory.
  void Reset(std::uint64_t size) noexcept;

  // As Reset, but a small block of the same size keeps its memory.
  void Clear(std::uint64_t size) noexcept;

  // Becomes a block of bytes that lie in memory which it takes over, with zeroed spare
  // bytes behind them.
  void Adopt(RawMemory memory, std::span<unsigned char> bytes) noexcept;

  // Keeps the first bytes; further ones are zeros. Throws std::bad_alloc.
  void Resize(std::uint64_t size);

  // Keeps the first bytes, at most size() of them. Memory goes back to the system as far
  // as the system takes it.
  void Shrink(std::uint64_t size) noexcept;

  [[nodiscard]] std::uint64_t size() const noexcept { return size_; }

  // The bytes, null while nothing was written: then all of them are zeros.
  [[nodiscard]] const unsigned char* Stored() const noexcept { return bytes_; }

  // The bytes, with memory behind them from now on; null for an empty block. Throws
  // std::bad_alloc, also for a block of more than 16 MiB that was only announced.
  [[nodiscard]] unsigned char* Writable();

  // The same for a caller who is about to store all of the bytes, however many.
  [[nodiscard]] unsigned char* WritableInFull();

 private:
  // Moves the bytes to the start of memory of their own size and the spare bytes.
  void Resettle(std::size_t size);

  std::uint64_t size_ = 0;
  RawMemory memory_;                // none while nothing was written
  unsigned char* bytes_ = nullptr;  // in memory_: size_ and the spare bytes
};

}  // namespace halyard
