// NameIndex: the positions of names, letter case ignored, for a list that is searched
// often and edited seldom.
//
// Names are compared as they are everywhere in the library: up to their first zero, the
// 26 ASCII letters alike in both cases. Of equal names the first one counts.
#pragma once

#include <cstdint>
#include <vector>

#include "halyard/platform/wide_text.h"

namespace halyard {

class NameIndex {
 public:
  static constexpr LONG kNone = -1;

  // How many names were added since the index was last empty.
  [[nodiscard]] std::size_t size() const noexcept { return size_; }

  void Forget() noexcept;

  // Adds the name at position size(). Throws std::bad_alloc.
  void Add(WideView name);

  // The position of the first equal name, kNone for none.
  [[nodiscard]] LONG Find(WideView name) const noexcept;

 private:
  struct Key;

  // A name: its ends and, where they do not cover it, what lies between them.
  struct Slot {
    std::uint64_t first = 0;
    std::uint64_t last = 0;
    std::uint32_t length = 0;
    std::uint32_t hash = 0;
    std::uint32_t between = 0;  // where its words begin in between_
    LONG position = kNone;      // of a free slot: kNone
  };

  // The slot of the name, or the free one where it would go.
  [[nodiscard]] std::size_t SlotOf(const Key& key) const noexcept;
  [[nodiscard]] bool Holds(const Slot& slot, const Key& key) const noexcept;
  void Grow();

  std::vector<Slot> slots_;  // none or a power of two, at most half of them taken
  std::vector<std::uint64_t> between_;
  std::size_t size_ = 0;
};

}  // namespace halyard
