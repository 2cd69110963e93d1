// The elementary members and elements of a value as raw bytes, for those inside the
// library that move many numbers at once.
#pragma once

#include "halyard/platform/automation.h"

namespace halyard {

// One elementary field of a value, or none: its type code and its bytes. They stay in
// their place until the value changes.
template <class Byte>
struct ElementaryField {
  Byte* bytes = nullptr;
  SHORT type = 0;

  explicit operator bool() const noexcept { return bytes != nullptr; }
};

// Answered by the structures and simple arrays of this library only, and only inside it.
struct IElementaryMemory : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x16444352, 0xAC3D, 0x4334, {0x88, 0xB9, 0x00, 0x63, 0xDE, 0x9C, 0xE3, 0x3C}};

  // The field of the member or element at a position; none where it has no field, or
  // there is no such position.
  virtual ElementaryField<const unsigned char> FieldForReading(LONG position) = 0;

  // The same, to be written to. Throws std::bad_alloc where the value puts off taking
  // memory for its elements and there is none now.
  virtual ElementaryField<unsigned char> FieldForWriting(LONG position) = 0;
};

}  // namespace halyard
