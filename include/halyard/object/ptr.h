// Ptr<I>: an owned, counted reference to an interface, or none.
//
// Used by the library and by its C++ clients alike, so that nobody calls AddRef or
// Release by hand. Not thread-safe, as the objects themselves are not.
#pragma once

#include <cstddef>
#include <type_traits>
#include <utility>

#include "halyard/object/interface_id.h"

namespace halyard {

template <class I>
class Ptr {
 public:
  Ptr() noexcept = default;
  Ptr(std::nullptr_t) noexcept {}

  // Shares `object`: adds a reference.
  explicit Ptr(I* object) noexcept : object_(object) {
    if (object_ != nullptr) object_->AddRef();
  }

  Ptr(const Ptr& other) noexcept : Ptr(other.object_) {}
  Ptr(Ptr&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}

  // A reference to an interface that J extends.
  template <class J>
  requires(!std::is_same_v<I, J> && std::is_convertible_v<J*, I*>) Ptr(const Ptr<J>& other)
  noexcept : Ptr(static_cast<I*>(other.get())) {}

  ~Ptr() { Reset(); }

  Ptr& operator=(Ptr other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }

  // Takes over a reference that the caller already owns: the count stays.
  static Ptr Adopt(I* object) noexcept {
    Ptr result;
    result.object_ = object;
    return result;
  }

  // Gives the reference back; the pointer is empty while the object is released.
  void Reset() noexcept {
    if (I* old = std::exchange(object_, nullptr)) old->Release();
  }

  // Hands the reference to the caller, who must release it; the pointer is empty then.
  [[nodiscard]] I* Detach() noexcept { return std::exchange(object_, nullptr); }

  // The place for an out argument; what was held is released first.
  [[nodiscard]] I** Out() noexcept {
    Reset();
    return &object_;
  }
  [[nodiscard]] void** OutVoid() noexcept { return reinterpret_cast<void**>(Out()); }

  // Asks the object for interface J: empty when it has none of that kind, or when
  // this pointer is empty. Use QueryFor where another failure must be told apart.
  template <class J>
  [[nodiscard]] Ptr<J> As() const noexcept {
    Ptr<J> result;
    if (object_ != nullptr && FAILED(object_->QueryInterface(IidOf<J>, result.OutVoid()))) {
      static_cast<void>(result.Detach());
    }
    return result;
  }

  // The interface, still owned by this pointer.
  [[nodiscard]] I* get() const noexcept { return object_; }
  I* operator->() const noexcept { return object_; }
  I& operator*() const noexcept { return *object_; }
  explicit operator bool() const noexcept { return object_ != nullptr; }
  friend bool operator==(const Ptr& a, const Ptr& b) noexcept { return a.object_ == b.object_; }

 private:
  I* object_ = nullptr;
};

}  // namespace halyard
