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

}  // namespace halyard
