// Values inside values: the reading and writing of a member, element or unit body by
// itself, within the bounds that the outer encoding knows.
//
// A simple value does not look at the size of its buffer when a client calls it; here
// the room is checked for it first, and where it would touch more bytes than it counts
// it works on a copy.
#pragma once

#include <utility>

#include "definitions/held_definition.h"
#include "halyard/object/ptr.h"
#include "halyard/values/value_base.h"
#include "object/cursor.h"
#include "values/inside_value.h"

namespace halyard {

// A value that another one holds, with its inner side where it has one.
struct HeldValue {
  HeldValue() noexcept = default;
  explicit HeldValue(Ptr<IValueBase> value) noexcept
      : object(std::move(value)), inside(InsideOf(object.get())) {
    if (inside != nullptr) traits = inside->Traits();
  }

  HeldValue(const HeldValue&) = default;
  HeldValue(HeldValue&&) = default;

  // What was held ends when both sides are replaced: its end may run a client's code.
  HeldValue& operator=(HeldValue other) noexcept {
    std::swap(object, other.object);
    std::swap(inside, other.inside);
    std::swap(traits, other.traits);
    return *this;
  }

  Ptr<IValueBase> object;
  IInsideValue* inside = nullptr;
  ValueTraits traits;  // of the inner side
};

// Lets the value read itself from the rest of the buffer. False when that is too short;
// failures, and a count beyond the buffer, are raised.
[[nodiscard]] bool DecodeValue(IValueBase& value, ReadCursor& cursor);
[[nodiscard]] bool DecodeValue(const HeldValue& value, ReadCursor& cursor);

// Lets the value write itself into the rest of the buffer, likewise.
[[nodiscard]] bool EncodeValue(IValueBase& value, WriteCursor& cursor);
[[nodiscard]] bool EncodeValue(const HeldValue& value, WriteCursor& cursor);

// The same for a caller that counts the level of nesting itself.
[[nodiscard]] bool DecodeOnLevel(const HeldValue& value, ReadCursor& cursor);
[[nodiscard]] bool EncodeOnLevel(const HeldValue& value, WriteCursor& cursor);

// Makes the value what the definition would make now as a new one. False where that
// cannot be, as for no value; the caller lets go of it then.
[[nodiscard]] bool RenewValue(const HeldValue& value, const KnownDefinition& definition) noexcept;

// The same through the public calls and without counting a level of nesting.
[[nodiscard]] bool DecodeThroughCall(IValueBase& value, ReadCursor& cursor);
[[nodiscard]] bool EncodeThroughCall(IValueBase& value, WriteCursor& cursor);

}  // namespace halyard
