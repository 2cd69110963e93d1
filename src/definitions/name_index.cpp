#include "definitions/name_index.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

namespace halyard {
namespace {

static_assert(sizeof(OLECHAR) == 2, "four wide characters make a word");
constexpr std::size_t kLanes = 4;
constexpr unsigned kLaneBits = 16;
constexpr std::size_t kFewestSlots = 16;

// The same number in every lane of a word.
constexpr std::uint64_t InAllLanes(std::uint16_t number) noexcept { return number * 0x0001'0001'0001'0001u; }

// Small letters in place of capital ones. A lane's top bit tells, after an addition that
// never leaves the lane, whether the lane's other bits reach a bound.
constexpr std::uint64_t FoldLetters(std::uint64_t word) noexcept {
  constexpr std::uint64_t kTopBits = InAllLanes(0x8000);
  const std::uint64_t low = word & ~kTopBits;
  const std::uint64_t from_a = low + InAllLanes(0x8000 - u'A');
  const std::uint64_t behind_z = low + InAllLanes(0x8000 - u'Z' - 1);
  const std::uint64_t capital = (from_a ^ behind_z) & ~word & kTopBits;
  return word + (capital >> 10);  // 0x8000 becomes 0x20, the distance of the cases
}

// Four characters, folded.
std::uint64_t FoldedWord(const OLECHAR* text) noexcept {
  std::uint64_t word = 0;
  std::memcpy(&word, text, sizeof word);
  return FoldLetters(word);
}

// Fewer than four characters, folded.
std::uint64_t FoldedShort(WideView text) noexcept {
  std::uint64_t word = 0;
  for (std::size_t i = text.size(); i-- != 0;) word = word << kLaneBits | static_cast<std::uint16_t>(text[i]);
  return FoldLetters(word);
}

// Odd numbers without a pattern, for hashes.
constexpr std::uint64_t kFactor = 0x9E37'79B9'7F4A'7C15u;
constexpr std::uint64_t kOtherFactor = 0xC2B2'AE3D'27D4'EB4Fu;

constexpr std::uint64_t Mix(std::uint64_t hash, std::uint64_t word) noexcept {
  hash = (hash ^ word) * kFactor;
  return hash ^ (hash >> 32);
}

}  // namespace

// A name in the form in which equal names look equal: its first and last four characters,
// folded, which overlap in a name of less than eight, and its length.
struct NameIndex::Key {
  explicit Key(WideView name) noexcept : text(name.data()), length(static_cast<std::uint32_t>(name.size())) {
    if (length >= kLanes) {
      first = FoldedWord(text);
      last = FoldedWord(text + length - kLanes);
    } else {
      first = last = FoldedShort(name);
    }
  }

  // The words between the first and the last; the last of them may overlap it.
  template <class Visit>
  bool AllBetween(Visit&& visit) const {
    for (std::size_t at = kLanes; at + kLanes < length; at += kLanes) {
      if (!visit(FoldedWord(text + at))) return false;
    }
    return true;
  }

  [[nodiscard]] std::uint32_t Hash() const noexcept {
    // Two products side by side, which most names need no more than.
    std::uint64_t hash = (first + length) * kFactor + last * kOtherFactor;
    hash ^= hash >> 32;
    AllBetween([&](std::uint64_t word) {
      hash = Mix(hash, word);
      return true;
    });
    return static_cast<std::uint32_t>(hash);
  }

  const OLECHAR* text;
  std::uint32_t length;
  std::uint64_t first;
  std::uint64_t last;
};

void NameIndex::Forget() noexcept {
  slots_.clear();
  between_.clear();
  size_ = 0;
}

void NameIndex::Add(WideView name) {
  const Key key(name.substr(0, name.find(OLECHAR{0})));
  if (slots_.size() < 2 * (size_ + 1)) Grow();
  Slot& slot = slots_[SlotOf(key)];
  if (slot.position == kNone) {
    const auto between = static_cast<std::uint32_t>(between_.size());
    key.AllBetween([&](std::uint64_t word) {
      between_.push_back(word);
      return true;
    });
    slot = {key.first, key.last, key.length, key.Hash(), between, static_cast<LONG>(size_)};
  }
  ++size_;
}

LONG NameIndex::Find(WideView name) const noexcept {
  if (slots_.empty()) return kNone;
  const LONG position = slots_[SlotOf(Key(name))].position;
  if (position != kNone) return position;
  // Seldom does a text go on behind a zero, so it is looked for only now.
  const std::size_t end = name.find(OLECHAR{0});
  return end == WideView::npos ? kNone : slots_[SlotOf(Key(name.substr(0, end)))].position;
}

std::size_t NameIndex::SlotOf(const Key& key) const noexcept {
  const std::size_t mask = slots_.size() - 1;
  std::size_t at = key.Hash() & mask;
  while (slots_[at].position != kNone && !Holds(slots_[at], key)) at = (at + 1) & mask;
  return at;
}

bool NameIndex::Holds(const Slot& slot, const Key& key) const noexcept {
  if (slot.first != key.first || slot.last != key.last || slot.length != key.length) return false;
  std::size_t held = slot.between;
  return key.AllBetween([&](std::uint64_t word) { return between_[held++] == word; });
}

void NameIndex::Grow() {
  std::vector<Slot> larger(std::bit_ceil(std::max(kFewestSlots, 4 * (size_ + 1))));
  for (const Slot& slot : slots_) {
    if (slot.position == kNone) continue;
    std::size_t at = slot.hash & (larger.size() - 1);
    while (larger[at].position != kNone) at = (at + 1) & (larger.size() - 1);
    larger[at] = slot;
  }
  slots_ = std::move(larger);
}

}  // namespace halyard
