// Limits on recursion. Definitions and values nest, by a client's doing even in
// themselves, and encodings of strangers nest as deep as they like: every recursion
// over them holds one of these. (Their ends are bounded by object/ending.h.)
#pragma once

#include "halyard/object/error.h"

namespace halyard {

// Definitions inside definitions that a reader follows. No sensible data comes near it;
// beyond it the encoding counts as broken.
inline constexpr int kDeepestRead = 64;

// Objects inside objects that any other operation follows, before it gives up with
// E_INVALIDARG. A thread's stack bears several times as much.
inline constexpr int kDeepestNesting = 256;

// One level of nesting, for the life of the object, counted per thread and purpose.
template <class Purpose>
class NestingLevel {
 public:
  NestingLevel() noexcept { ++depth_; }
  ~NestingLevel() { --depth_; }
  NestingLevel(const NestingLevel&) = delete;
  NestingLevel& operator=(const NestingLevel&) = delete;

  [[nodiscard]] bool Exceeds(int limit) const noexcept { return depth_ > limit; }
  [[nodiscard]] static int depth() noexcept { return depth_; }

 private:
  static inline thread_local int depth_ = 0;
};

// A level of reading encoded definitions: the reader asks TooDeep and stops.
class ReadingLevel {
 public:
  [[nodiscard]] bool TooDeep() const noexcept { return level_.Exceeds(kDeepestRead); }

 private:
  NestingLevel<ReadingLevel> level_;
};

// A level of any other walk over nested objects; raises E_INVALIDARG beyond the limit.
class WalkingLevel {
 public:
  WalkingLevel() {
    if (level_.Exceeds(kDeepestNesting))
      throw Error(E_INVALIDARG, "objects are nested too deeply, or in themselves");
  }

  // Whether the two levels more of a value and its definition would do.
  [[nodiscard]] static bool HasRoom() noexcept {
    return NestingLevel<WalkingLevel>::depth() + 2 <= kDeepestNesting;
  }

 private:
  NestingLevel<WalkingLevel> level_;
};

}  // namespace halyard
