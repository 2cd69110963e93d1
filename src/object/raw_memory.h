// Memory for bytes: obtained at a size, given back by its owner.
#pragma once

#include <cstdlib>
#include <memory>
#include <new>

namespace halyard {

struct FreeMemory {
  void operator()(unsigned char* memory) const noexcept { std::free(memory); }
};

using RawMemory = std::unique_ptr<unsigned char[], FreeMemory>;

// Memory of `size` bytes that nobody clears, aligned for any use. Throws std::bad_alloc.
inline RawMemory NewRawMemory(std::size_t size) {
  RawMemory memory(static_cast<unsigned char*>(std::malloc(size)));
  if (!memory) throw std::bad_alloc();
  return memory;
}

// The same, all zeros. What is never written takes no room, however large the size is.
inline RawMemory NewZeroMemory(std::size_t size) {
  RawMemory memory(static_cast<unsigned char*>(std::calloc(1, size)));
  if (!memory) throw std::bad_alloc();
  return memory;
}

// Gives the memory another size and keeps what it holds. Throws std::bad_alloc, and then
// it stays as it is.
inline void ResizeRawMemory(RawMemory& memory, std::size_t size) {
  void* resized = std::realloc(memory.get(), size);
  if (resized == nullptr) throw std::bad_alloc();
  static_cast<void>(memory.release());
  memory.reset(static_cast<unsigned char*>(resized));
}

}  // namespace halyard
