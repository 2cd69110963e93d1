// What the values of this library offer one another and the stream classes beyond the
// public interface: their encodings without the frame that a call from outside needs,
// and a second life for a value that nobody else holds.
//
// Whoever uses it must see no difference to the public calls. So a failure carries the
// error object that the public call would have left, and an object counts as a value of
// this library only where the interface that a client handed in is its own (not that of
// an outer object that it is part of).
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "halyard/definitions/value_def_base.h"
#include "halyard/values/value_base.h"
#include "object/cursor.h"

namespace halyard {

// A value that is written as bytes which lie ready.
struct ReadyBody {
  SHORT type = 0;
  SHORT id = 0;

  // What leads the bytes: the count of an array.
  std::array<unsigned char, 4> head{};
  std::uint8_t head_size = 0;

  std::span<const unsigned char> bytes;
};

// What a value promises for life to those that hold it.
struct ValueTraits {
  // It refers to no other object, so that keeping it keeps nothing else.
  bool stands_alone = false;

  // Its encoding calls no other object, so that nobody can let go of it meanwhile.
  bool keeps_to_itself = false;

  // It writes its whole encoding in one step, or nothing.
  bool writes_at_once = false;
};

// Answered by the values of this library only, and only inside it.
struct IInsideValue : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x9E1D3C27, 0x60B4, 0x4E5E, {0x8B, 0x1A, 0x5D, 0x27, 0xE3, 0x90, 0x4C, 0x76}};

  // The public interface of the same object.
  virtual IValueBase* Outside() noexcept = 0;

  // As ReadFromBuffer and WriteToBuffer of the public interface, for a value inside
  // another one (see nested_value.h).
  [[nodiscard]] virtual bool DecodeInside(ReadCursor& cursor) = 0;
  [[nodiscard]] virtual bool EncodeInside(WriteCursor& cursor) = 0;

  // Whether the whole encoding lies ready, as it does in a structure of fixed layout and
  // in arrays of one block. It is then as long as PacketSize says.
  [[nodiscard]] virtual bool FindReadyBody(ReadyBody& body) = 0;

  // Becomes what the definition, one of this library that makes values of that class now,
  // would make as a new value. False where it cannot, and where anybody but the caller
  // holds it or a part of it; the caller lets go of it then. Runs no code of a client's.
  [[nodiscard]] virtual bool Renew(IValueDefBase* definition, REFCLSID value_class) = 0;

  [[nodiscard]] virtual ValueTraits Traits() const noexcept = 0;
};

// The inner side of a value, not counted: it lives as long as the value. Null for the
// values of others.
inline IInsideValue* InsideOf(IValueBase* value) noexcept {
  IInsideValue* inside = nullptr;
  if (value == nullptr) return nullptr;
  if (FAILED(value->QueryInterface(IidOf<IInsideValue>, reinterpret_cast<void**>(&inside)))) return nullptr;
  inside->Release();
  return inside->Outside() == value ? inside : nullptr;
}

}  // namespace halyard
