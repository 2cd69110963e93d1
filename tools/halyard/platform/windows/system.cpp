#include "tools/halyard/platform/system.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <limits>

#include "tools/halyard/platform/windows/wide.h"

namespace halyard::tool {
namespace {

// Writing stays possible for others while a file is read: one that is being written can
// be looked at.
int OpenWith(const std::string& name, int flags) noexcept {
  int descriptor = kNoDescriptor;
  const std::wstring wide = WideName(name);
  _wsopen_s(&descriptor, wide.c_str(), flags | _O_BINARY | _O_NOINHERIT, _SH_DENYNO, _S_IREAD | _S_IWRITE);
  return descriptor;
}

bool IsDirectory(const std::string& name) noexcept {
  const DWORD attributes = GetFileAttributesW(WideName(name).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

unsigned Chunk(std::size_t size) noexcept {
  return static_cast<unsigned>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

}  // namespace

int OpenToRead(const std::string& name) noexcept {
  if (IsDirectory(name)) {
    errno = EISDIR;
    return kNoDescriptor;
  }
  return OpenWith(name, _O_RDONLY | _O_SEQUENTIAL);
}

int OpenToWrite(const std::string& name) noexcept { return OpenWith(name, _O_WRONLY); }

int CreateNew(const std::string& name) noexcept { return OpenWith(name, _O_WRONLY | _O_CREAT | _O_EXCL); }

// A new file has the permissions that its folder hands down, and what it replaces must not
// be read-only.
void TakePermissions(int, const std::string&) noexcept {}

const char kTemporaryFolderVariable[] = "TMP";

int CreateNameless() noexcept {
  wchar_t folder[MAX_PATH + 1] = {};
  wchar_t name[MAX_PATH + 1] = {};
  if (GetTempPathW(MAX_PATH, folder) == 0 || GetTempFileNameW(folder, L"hal", 0, name) == 0) {
    errno = EACCES;
    return kNoDescriptor;
  }
  int descriptor = kNoDescriptor;
  _wsopen_s(&descriptor, name, _O_RDWR | _O_TRUNC | _O_TEMPORARY | _O_BINARY | _O_NOINHERIT, _SH_DENYRW,
            _S_IREAD | _S_IWRITE);
  return descriptor;
}

void CloseDescriptor(int descriptor) noexcept { _close(descriptor); }

std::ptrdiff_t ReadSome(int descriptor, void* bytes, std::size_t size) noexcept {
  return _read(descriptor, bytes, Chunk(size));
}

std::ptrdiff_t WriteSome(int descriptor, const void* bytes, std::size_t size) noexcept {
  const int count = _write(descriptor, bytes, Chunk(size));
  // The runtime calls a pipe whose reader is gone an invalid argument.
  if (count < 0 && errno == EINVAL) errno = EPIPE;
  return count;
}

std::int64_t RegularFileSize(int descriptor) noexcept {
  const auto handle = reinterpret_cast<HANDLE>(_get_osfhandle(descriptor));
  if (GetFileType(handle) != FILE_TYPE_DISK) return -1;
  return _filelengthi64(descriptor);
}

bool SeekTo(int descriptor, std::uint64_t offset) noexcept {
  return _lseeki64(descriptor, static_cast<std::int64_t>(offset), SEEK_SET) >= 0;
}

bool IsBeingWritten(int) noexcept {
  // A file that the library writes cannot be opened by others, so an open one is none.
  return false;
}

bool FlushToDisk(int descriptor) noexcept { return _commit(descriptor) == 0 || errno == EBADF; }

std::string ReasonText(int error) { return std::strerror(error); }

}  // namespace halyard::tool
