// The common shape of ReadFromBuffer and WriteToBuffer: S_OK whether or not the buffer
// suffices, the outcome in the result, the count told only on success.
#pragma once

#include "object/boundary.h"
#include "object/cursor.h"

namespace halyard {

// Runs `decode(ReadCursor&)` over the buffer. Raises E_POINTER for a null count or
// result; a null buffer counts as an empty one.
template <class Decode>
void ReadBuffer(const unsigned char* buffer, ULONG size, ULONG* bytes_read, VARIANT_BOOL* result,
                Decode&& decode) {
  ULONG& count = Out(bytes_read);
  VARIANT_BOOL& done = Out(result);
  done = VARIANT_FALSE;
  ReadCursor cursor(buffer, size);
  if (!decode(cursor)) return;
  count = cursor.position();
  done = VARIANT_TRUE;
}

// Runs `encode(WriteCursor&)` over the buffer. Raises E_POINTER for a null count or
// result; a null buffer counts as an empty one.
template <class Encode>
void WriteBuffer(unsigned char* buffer, ULONG size, ULONG* bytes_written, VARIANT_BOOL* result,
                 Encode&& encode) {
  ULONG& count = Out(bytes_written);
  VARIANT_BOOL& done = Out(result);
  done = VARIANT_FALSE;
  WriteCursor cursor(buffer, size);
  if (!encode(cursor)) return;
  count = cursor.position();
  done = VARIANT_TRUE;
}

// What another object answered to one of these calls.
struct BufferOutcome {
  ULONG count = 0;
  VARIANT_BOOL done = VARIANT_FALSE;

  // Whether it did its part; raises a count that the room cannot hold.
  [[nodiscard]] bool Accepted(std::uint32_t room) const {
    if (done == VARIANT_FALSE) return false;
    if (count > room) throw Error(E_UNEXPECTED, "an object reports more bytes than there are");
    return true;
  }
};

}  // namespace halyard
