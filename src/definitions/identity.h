// The identity that composite definitions carry and their encodings begin with.
//
// Encoding: id (2 bytes), name and caption (16-bit length and narrow text each).
#pragma once

#include <cstdint>
#include <string>

#include "halyard/object/bstr.h"
#include "object/cursor.h"

namespace halyard {

struct Identity {
  // 0 means none; such a definition cannot be registered.
  [[nodiscard]] std::uint16_t id() const noexcept { return id_; }
  void SetId(std::uint16_t id) noexcept;

  // Counts changes of the id from now on (see definition_key.h).
  void WatchId() noexcept { is_watched_ = true; }

  // Narrow text.
  std::string name;

  // A second text, which travels with the encoding and has no other use.
  std::string caption;

  // Sets the name to the narrow form of a client's text.
  void SetName(BSTR text);

  // The name as a string for a client; never null.
  [[nodiscard]] Bstr NewName() const;

  // The bytes that the encoding counts, cut to 16 bits as in every file written so far.
  [[nodiscard]] std::uint16_t PacketSize() const noexcept;

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor) const;

 private:
  std::uint16_t id_ = 0;
  bool is_watched_ = false;
};

}  // namespace halyard
