// What the program needs of the system beyond the standard library: descriptors of files
// and streams, the terminal, interrupts, arguments. One of posix/ and windows/ is built.
//
// Names are UTF-8 on every system. Descriptors are those of the C runtime; a call that
// fails answers -1 or false and leaves its reason in errno.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace halyard::tool {

inline constexpr int kNoDescriptor = -1;
inline constexpr int kStandardInput = 0;
inline constexpr int kStandardOutput = 1;
inline constexpr int kStandardError = 2;

// Prepares the process: streams carry bytes as they are, a closed pipe is an error of
// the write and no signal, objects of the library can be created.
void PrepareProcess();

// The arguments without the program's name.
std::vector<std::string> Arguments(int count, char** values);

// Opens a file that exists; directories are refused with EISDIR.
int OpenToRead(const std::string& name) noexcept;

// Opens something that exists and is no regular file (a device, a named pipe).
int OpenToWrite(const std::string& name) noexcept;

// Makes a file that must not exist yet; only the first of two callers gets it. Where the
// system has permissions, only its owner may open it.
int CreateNew(const std::string& name) noexcept;

// Gives a file that CreateNew made the permissions of the one that it replaces, or those of
// any new file where there is none.
void TakePermissions(int descriptor, const std::string& replaced) noexcept;

// Makes an empty file without a name, for reading and writing, which is gone when it is
// closed. It lies in the folder for temporary files, which a variable of the environment
// names.
int CreateNameless() noexcept;
extern const char kTemporaryFolderVariable[];

void CloseDescriptor(int descriptor) noexcept;

// The bytes moved: fewer than asked for are possible, 0 is the end, -1 a failure.
std::ptrdiff_t ReadSome(int descriptor, void* bytes, std::size_t size) noexcept;
std::ptrdiff_t WriteSome(int descriptor, const void* bytes, std::size_t size) noexcept;

// The size of a regular file; -1 for anything else.
std::int64_t RegularFileSize(int descriptor) noexcept;

bool SeekTo(int descriptor, std::uint64_t offset) noexcept;

// Whether another program of the library holds the file open for writing, as far as the
// system tells.
bool IsBeingWritten(int descriptor) noexcept;

// Hands what was written to the disk itself.
bool FlushToDisk(int descriptor) noexcept;

// The text of an errno value.
std::string ReasonText(int error);

// Whether the descriptor is a terminal, and one that understands colours.
bool IsTerminal(int descriptor) noexcept;
bool ShowsColours(int descriptor) noexcept;

// Keeps a file in mind, open as `descriptor`, that is removed when the program is
// interrupted (Ctrl-C, a closed terminal, a plain kill). One at a time; the empty name
// forgets it.
void RemoveOnInterrupt(const std::string& name, int descriptor) noexcept;

}  // namespace halyard::tool
