#include "values/nested_value.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "object/buffer_calls.h"
#include "object/nesting.h"
#include "types/elementary.h"

namespace halyard {
namespace {

using Scratch = std::array<unsigned char, kWidestElementary>;

// What a value needs before it may touch the buffer: nothing for values that check the
// size themselves, the bytes that they count for the others.
ULONG UncheckedSize(IValueBase& value) {
  SHORT type = 0;
  Check(value.get_Type(&type), &value);
  if (type == kString || type > kLastElementaryType) return 0;
  ULONG size = 0;
  Check(value.get_PacketSize(&size), &value);
  return size;
}

BufferOutcome Read(IValueBase& value, const unsigned char* bytes, ULONG size) {
  BufferOutcome outcome;
  // The interface does not say const, but a reader only reads.
  Check(value.ReadFromBuffer(const_cast<unsigned char*>(bytes), size, &outcome.count, &outcome.done), &value);
  return outcome;
}

BufferOutcome Write(IValueBase& value, unsigned char* bytes, ULONG size) {
  BufferOutcome outcome;
  Check(value.WriteToBuffer(bytes, size, &outcome.count, &outcome.done), &value);
  return outcome;
}

}  // namespace

bool DecodeThroughCall(IValueBase& value, ReadCursor& cursor) {
  const std::uint32_t room = cursor.room();
  const ULONG needed = UncheckedSize(value);
  if (needed > room) return false;
  BufferOutcome outcome;
  if (room < kWidestElementary) {
    Scratch scratch{};
    std::copy_n(cursor.rest().begin(), room, scratch.begin());
    outcome = Read(value, scratch.data(), room);
  } else {
    outcome = Read(value, cursor.rest().data(), room);
  }
  return outcome.Accepted(room) && cursor.Skip(outcome.count);
}

bool EncodeThroughCall(IValueBase& value, WriteCursor& cursor) {
  const std::uint32_t room = cursor.room();
  const ULONG needed = UncheckedSize(value);
  if (needed > room) return false;
  BufferOutcome outcome;
  if (room < kWidestElementary) {
    Scratch scratch{};
    std::copy_n(cursor.rest().begin(), room, scratch.begin());
    outcome = Write(value, scratch.data(), room);
    std::copy_n(scratch.begin(), room, cursor.rest().begin());
  } else {
    outcome = Write(value, cursor.rest().data(), room);
  }
  return outcome.Accepted(room) && cursor.Skip(outcome.count);
}

bool DecodeValue(IValueBase& value, ReadCursor& cursor) {
  const WalkingLevel level;
  return DecodeThroughCall(value, cursor);
}

bool DecodeValue(const HeldValue& value, ReadCursor& cursor) {
  const WalkingLevel level;
  return DecodeOnLevel(value, cursor);
}

bool DecodeOnLevel(const HeldValue& value, ReadCursor& cursor) {
  return value.inside != nullptr ? value.inside->DecodeInside(cursor)
                                 : DecodeThroughCall(*value.object, cursor);
}

bool EncodeValue(IValueBase& value, WriteCursor& cursor) {
  const WalkingLevel level;
  return EncodeThroughCall(value, cursor);
}

bool EncodeValue(const HeldValue& value, WriteCursor& cursor) {
  const WalkingLevel level;
  return EncodeOnLevel(value, cursor);
}

bool EncodeOnLevel(const HeldValue& value, WriteCursor& cursor) {
  // In less room than the widest field a call that fails leaves the buffer as it was.
  const bool directly =
      value.inside != nullptr && (value.traits.writes_at_once || cursor.room() >= kWidestElementary);
  return directly ? value.inside->EncodeInside(cursor) : EncodeThroughCall(*value.object, cursor);
}

bool RenewValue(const HeldValue& value, const KnownDefinition& definition) noexcept {
  if (value.inside == nullptr || definition.inside == nullptr) return false;
  const CLSID* value_class = definition.inside->ValueClass();
  if (value_class == nullptr) return false;
  try {
    return value.inside->Renew(definition.object, *value_class);
  } catch (...) {
    return false;  // making a new value will fail in the same way, and say why
  }
}

}  // namespace halyard
