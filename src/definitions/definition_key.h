// The keys (type code and id) under which sessions know definitions. A client may change
// the id of a definition at any time; a session that remembers keys must learn of it.
#pragma once

#include <cstdint>

#include "halyard/definitions/value_def_base.h"

namespace halyard {

// Counts the changes of watched keys, on each thread its own.
class KeyChanges {
 public:
  [[nodiscard]] static std::uint64_t Count() noexcept { return count_; }
  static void Add() noexcept { ++count_; }

 private:
  static inline thread_local std::uint64_t count_ = 0;
};

// Answered by the composite definitions of this library only, and only inside it.
struct IKeyedDefinition : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0xF90A0B11, 0xFCD8, 0x4A96, {0x9F, 0xD2, 0xCE, 0x1D, 0xB7, 0xEC, 0x5A, 0x5A}};

  // Counts changes of the key from now on. False where `definition` is not this object's
  // own interface but that of an outer object, which answers for itself.
  virtual bool WatchKey(const IValueDefBase* definition) noexcept = 0;
};

}  // namespace halyard
