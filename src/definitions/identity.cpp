#include "definitions/identity.h"

#include "definitions/definition_key.h"
#include "object/widened.h"
#include "platform/text.h"

namespace halyard {
namespace {

// The id and the two lengths.
constexpr std::size_t kFixedBytes = 6;

bool PutNarrow(WriteCursor& cursor, const std::string& text) {
  return cursor.PutText(text, static_cast<std::uint16_t>(text.size()));
}

}  // namespace

void Identity::SetId(std::uint16_t id) noexcept {
  if (is_watched_ && id != id_) KeyChanges::Add();
  id_ = id;
}

void Identity::SetName(BSTR text) { name = NarrowToZero(ViewOf(text)); }

Bstr Identity::NewName() const { return Widened(std::string_view(name).substr(0, name.find('\0'))); }

std::uint16_t Identity::PacketSize() const noexcept {
  return static_cast<std::uint16_t>(kFixedBytes + name.size() + caption.size());
}

bool Identity::Decode(ReadCursor& cursor) {
  std::uint16_t id = 0;
  if (!cursor.Take(id)) return false;
  SetId(id);
  return cursor.TakeText(name) && cursor.TakeText(caption);
}

bool Identity::Encode(WriteCursor& cursor) const {
  return cursor.Put(id_) && PutNarrow(cursor, name) && PutNarrow(cursor, caption);
}

}  // namespace halyard
