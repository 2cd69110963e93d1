// How many objects the elements of arrays may become while a value is read.
//
// Members can take no bytes at all, and structures can stand in one another to hold a
// single byte: a definition says so once, and each element of an array repeats it. Without
// a limit a few thousand bytes of a stranger's would become millions of objects.
#pragma once

#include <cstdint>

#include "definitions/held_definition.h"

namespace halyard {

// What every value may become, and how much more for each byte that it is read from.
inline constexpr std::uint64_t kFreeObjects = 16384;
inline constexpr std::uint64_t kObjectsPerByte = 8;

// The allowance of a value that is read, for its life. Values inside the value share it.
class ReadingAllowance {
 public:
  // For a value that is read from at most `room` bytes.
  explicit ReadingAllowance(std::uint32_t room) noexcept : room_(room), outer_(current_) {
    // Inside another value it has no more room than that one; else a client's code, called
    // while that one is read, reads bytes of its own.
    if (outer_ == nullptr || room > outer_->room_) current_ = this;
  }
  ~ReadingAllowance() { current_ = outer_; }
  ReadingAllowance(const ReadingAllowance&) = delete;
  ReadingAllowance& operator=(const ReadingAllowance&) = delete;

  // Takes so many objects from the allowance of the value that is read; false where it has
  // fewer left.
  [[nodiscard]] static bool Take(std::uint64_t objects) noexcept { return current_->TakeOwn(objects); }

 private:
  [[nodiscard]] bool TakeOwn(std::uint64_t objects) noexcept {
    if (objects > kFreeObjects + kObjectsPerByte * room_ - taken_) return false;
    taken_ += objects;
    return true;
  }

  static inline thread_local ReadingAllowance* current_ = nullptr;

  const std::uint32_t room_;
  ReadingAllowance* const outer_;
  std::uint64_t taken_ = 0;
};

// How many objects a new value of the definition is: itself, and what its structures hold.
// The elements of arrays, and what definitions of others make, count as nothing.
std::uint64_t ObjectsOf(const KnownDefinition& definition);

}  // namespace halyard
