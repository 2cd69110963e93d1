#include "values/arrays/zero_block.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <new>

#include "types/elementary.h"

namespace halyard {
namespace {

// The most memory, in bytes, that a block takes although it was only announced.
constexpr std::uint64_t kLargestOnPromise = std::uint64_t{16} << 20;

// The largest block, in bytes, that is cleared: fresh memory for a larger one costs less.
constexpr std::uint64_t kLargestToKeep = 4096;

// The bytes to ask the system for, which may be more than this machine can count.
std::size_t AllocationSize(std::uint64_t size) {
  if (size > std::numeric_limits<std::size_t>::max() / 2 - kWidestElementary) throw std::bad_alloc();
  return static_cast<std::size_t>(size) + kWidestElementary;
}

}  // namespace

void ZeroBlock::Reset(std::uint64_t size) noexcept {
  memory_.reset();
  bytes_ = nullptr;
  size_ = size;
}

void ZeroBlock::Clear(std::uint64_t size) noexcept {
  if (size != size_ || size > kLargestToKeep) return Reset(size);
  if (memory_) std::memset(bytes_, 0, static_cast<std::size_t>(size) + kWidestElementary);
}

void ZeroBlock::Adopt(RawMemory memory, std::span<unsigned char> bytes) noexcept {
  memory_ = std::move(memory);
  bytes_ = bytes.data();
  size_ = bytes.size();
}

void ZeroBlock::Resize(std::uint64_t size) {
  if (memory_) {
    const std::size_t bytes = AllocationSize(size);
    Resettle(bytes);
    if (size > size_) {
      const auto old = static_cast<std::size_t>(size_);
      std::memset(bytes_ + old, 0, bytes - old);
    }
  }
  size_ = size;
}

void ZeroBlock::Shrink(std::uint64_t size) noexcept {
  try {
    Resize(size);
  } catch (const std::bad_alloc&) {
    // A smaller block may take new memory; without any, the larger one does as well.
    size_ = size;
  }
}

void ZeroBlock::Resettle(std::size_t size) {
  if (bytes_ == memory_.get()) {
    ResizeRawMemory(memory_, size);
  } else {
    RawMemory other = NewRawMemory(size);
    std::memcpy(other.get(), bytes_, std::min(size, static_cast<std::size_t>(size_) + kWidestElementary));
    memory_ = std::move(other);
  }
  bytes_ = memory_.get();
}

unsigned char* ZeroBlock::Writable() {
  if (!memory_ && size_ > kLargestOnPromise) throw std::bad_alloc();
  return WritableInFull();
}

unsigned char* ZeroBlock::WritableInFull() {
  if (!memory_ && size_ != 0) {
    memory_.reset(static_cast<unsigned char*>(std::calloc(AllocationSize(size_), 1)));
    if (!memory_) throw std::bad_alloc();
    bytes_ = memory_.get();
  }
  return bytes_;
}

}  // namespace halyard
