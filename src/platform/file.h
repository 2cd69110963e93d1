// Files behind 32-bit handles, as the file of units holds them: on Windows a file
// handle, elsewhere a file descriptor. Failures are told by the result alone.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "halyard/platform/wide_text.h"

namespace halyard {

using FileHandle = LONG;
inline constexpr FileHandle kNoFile = -1;

// Opens an existing file; others may read it meanwhile, not write it. kNoFile on
// failure, also for a directory.
FileHandle OpenFileForRead(WideView name) noexcept;

// Creates or empties a file that nobody else may open meanwhile. kNoFile on failure.
FileHandle OpenFileForWrite(WideView name) noexcept;

void CloseFile(FileHandle handle) noexcept;

// Reads up to `size` bytes. `*count` is what was read, less than `size` only at the end
// of the file. False when the system reports a failure.
bool ReadFromFile(FileHandle handle, void* bytes, std::uint32_t size, std::uint32_t* count) noexcept;

// The same with one call of the system: what it has at hand, nothing only at the end.
bool ReadSomeFromFile(FileHandle handle, void* bytes, std::uint32_t size, std::uint32_t* count) noexcept;

// Whether somebody else holds the other end of the handle, as with a pipe: he may be gone
// when it is written to, and share what is read.
bool CanBreak(FileHandle handle) noexcept;

// What becomes of bytes that a failing write has written before it failed.
enum class Remains { kStay, kTakenBack };

// Writes all `size` bytes or reports false. `can_break` is what CanBreak said. Taken back
// means that the position is again what it was, and so is the end of the file; nothing can
// be taken back from a handle without a position, nor where the system writes all at once.
// Only for handles that nobody shares: it is not told whose bytes follow meanwhile.
bool WriteToFile(FileHandle handle, const void* bytes, std::uint32_t size, bool can_break,
                 Remains remains) noexcept;

// Whether the system takes bytes from two places in one write.
bool GathersWrites() noexcept;

// As WriteToFile for both parts, one behind the other. Only where the system gathers writes.
bool WriteBothToFile(FileHandle handle, std::span<const unsigned char> first,
                     std::span<const unsigned char> second, bool can_break, Remains remains) noexcept;

// How many bytes lie between the position and the end; none for a handle that has no
// length, such as a pipe.
std::optional<std::uint64_t> BytesToEnd(FileHandle handle) noexcept;

// Moves to the end of a file that has a length.
void SkipToEnd(FileHandle handle) noexcept;

}  // namespace halyard
