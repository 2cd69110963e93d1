// One element of a simple array: how it becomes a variant and what is stored of one.
#pragma once

#include <array>
#include <cstdint>

#include "halyard/object/variant.h"
#include "types/elementary.h"

namespace halyard {

// The content of a slot of `width` bytes; a null slot holds zeros. Types without a
// conversion, and without width, read as the empty text.
Variant ReadElement(const unsigned char* slot, SHORT type, std::uint8_t width);

// A value converted for a slot, before it is stored: a conversion may run code of the
// client's, so the place is found afterwards.
class ConvertedElement {
 public:
  // Raises what the conversion raises.
  ConvertedElement(const VARIANT& value, SHORT type, std::uint8_t width);

  // Stores the element in a slot with `room` bytes from its start to the end of the
  // last element. An Int64 takes 8 bytes of it and so reaches into the next slot.
  void StoreAt(unsigned char* slot, std::uint64_t room) const noexcept;

 private:
  std::array<unsigned char, kWidestElementary> bytes_{};
  std::size_t size_ = 0;
};

}  // namespace halyard
