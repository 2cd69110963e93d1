// The platform's file handles as 32-bit values, as files of units take them.
#pragma once

#include <filesystem>

#include "halyard/platform/automation.h"
#include "tests/support/bytes.h"

namespace halyard::test {

// The value that stands for no handle.
inline constexpr LONG kNoHandle = -1;

LONG OpenHandleForRead(const std::filesystem::path& path);
LONG OpenHandleForWrite(const std::filesystem::path& path);

// A handle on which every write fails: a full device where there is one, else a handle
// that is open for reading only.
LONG OpenHandleThatRefusesWrites(const std::filesystem::path& existing);

// Two ends of a pipe: what is written to one is read from the other.
struct Pipe {
  LONG read;
  LONG write;
};
Pipe OpenPipe();

// Writes all of the bytes, which must fit what the handle takes at once.
void WriteHandle(LONG handle, const Bytes& bytes);

// The next `size` bytes from where the handle stands; fewer at the end.
Bytes ReadHandle(LONG handle, std::size_t size);

// Where a handle of a file stands, in bytes from the beginning; -1 where it has no place.
long long PositionOf(LONG handle);

bool IsOpen(LONG handle);
void CloseHandleValue(LONG handle);

}  // namespace halyard::test
