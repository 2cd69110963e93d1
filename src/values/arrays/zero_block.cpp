#include "values/arrays/zero_block.h"

#include <cstring>
#include <limits>
#include <new>

#include "types/elementary.h"

namespace halyard {
namespace {

// The most memory, in bytes, that a block takes although it was only announced.
constexpr std::uint64_t kLargestOnPromise = std::uint64_t{16} << 20;

// The bytes to ask the system for, which may be more than this machine can count.
std::size_t AllocationSize(std::uint64_t size) {
  if (size > std::numeric_limits<std::size_t>::max() / 2 - kWidestElementary) throw std::bad_alloc();
  return static_cast<std::size_t>(size) + kWidestElementary;
}

}  // namespace

void ZeroBlock::Reset(std::uint64_t size) noexcept {
  memory_.reset();
  size_ = size;
}

void ZeroBlock::Resize(std::uint64_t size) {
  if (memory_) {
    const std::size_t bytes = AllocationSize(size);
    void* memory = std::realloc(memory_.get(), bytes);
    if (memory == nullptr) throw std::bad_alloc();
    static_cast<void>(memory_.release());
    memory_.reset(static_cast<unsigned char*>(memory));
    if (size > size_) {
      const auto old = static_cast<std::size_t>(size_);
      std::memset(memory_.get() + old, 0, bytes - old);
    }
  }
  size_ = size;
}

unsigned char* ZeroBlock::Writable() {
  if (!memory_ && size_ > kLargestOnPromise) throw std::bad_alloc();
  return WritableInFull();
}

unsigned char* ZeroBlock::WritableInFull() {
  if (!memory_ && size_ != 0) {
    memory_.reset(static_cast<unsigned char*>(std::calloc(AllocationSize(size_), 1)));
    if (!memory_) throw std::bad_alloc();
  }
  return memory_.get();
}

}  // namespace halyard
