// SparseList: a list whose length may be announced long before its elements exist.
//
// A few bytes of a broken encoding can announce thousands of millions of elements. The
// list has that length then, but only elements that somebody made take memory; the
// others stand for whatever its owner says that an element never made is. Elements are
// made one after another as a rule and lie side by side; those made out of turn wait in
// a tree until their turn comes.
#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <new>
#include <utility>
#include <vector>

namespace halyard {

template <class T>
class SparseList {
 public:
  // Elements, made or not.
  [[nodiscard]] std::uint32_t size() const noexcept { return size_; }

  // The element at a position below size(), null where it was never made. It stays in
  // its place until the list changes.
  [[nodiscard]] const T* Find(std::uint32_t position) const noexcept {
    if (position < near_.size()) return &near_[position];
    const auto found = far_.find(position);
    return found != far_.end() ? &found->second : nullptr;
  }

  // The same, made now if need be.
  [[nodiscard]] T& Make(std::uint32_t position) {
    if (position > near_.size()) return far_[position];
    if (position == near_.size()) {
      const auto waiting = far_.find(position);
      near_.emplace_back();
      if (waiting != far_.end()) {
        near_.back() = std::move(waiting->second);
        far_.erase(waiting);
      }
    }
    return near_[position];
  }

  // The first position at or behind `position` whose element was made; size() for none.
  [[nodiscard]] std::uint32_t NextMade(std::uint32_t position) const noexcept {
    if (position < near_.size()) return position;
    const auto next = far_.lower_bound(position);
    return next != far_.end() ? next->first : size_;
  }

  // Cuts the list, or announces further elements.
  void Resize(std::uint32_t size) {
    if (size < near_.size()) near_.resize(size);
    far_.erase(far_.lower_bound(size), far_.end());
    size_ = size;
  }

  // Appends an element; throws std::bad_alloc where the length cannot be counted.
  void Append(T element) {
    if (size_ == UINT32_MAX) throw std::bad_alloc();
    Make(size_) = std::move(element);
    ++size_;
  }

  // Takes the element out; later ones move down by one.
  void Erase(std::uint32_t position) {
    if (position >= size_) return;
    if (position < near_.size()) near_.erase(near_.begin() + position);
    std::map<std::uint32_t, T> moved;
    while (!far_.empty()) {
      auto node = far_.extract(far_.begin());
      if (node.key() == position) continue;
      if (node.key() > position) --node.key();
      moved.insert(std::move(node));
    }
    far_ = std::move(moved);
    --size_;
  }

 private:
  std::vector<T> near_;             // positions 0 to near_.size() - 1
  std::map<std::uint32_t, T> far_;  // positions beyond, all below size_
  std::uint32_t size_ = 0;
};

}  // namespace halyard
