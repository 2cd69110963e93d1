// Files on POSIX systems. The share modes of Windows are kept with advisory locks, so
// that two programs of this library refuse the same things on every platform.
#include "platform/file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <new>
#include <string>

#include "platform/native/utf.h"

namespace halyard {
namespace {

constexpr mode_t kReadWriteForAll = 0666;

// A POSIX path is bytes; UTF-8 is what people and their tools use for it.
std::string PathBytes(WideView name) { return ToUtf8(name.substr(0, name.find(u'\0'))); }

FileHandle Open(WideView name, int flags, int lock) noexcept {
  try {
    const std::string path = PathBytes(name);
    const int file = open(path.c_str(), flags | O_CLOEXEC, kReadWriteForAll);
    if (file < 0) return kNoFile;
    struct stat status {};
    const bool usable = fstat(file, &status) == 0 && !S_ISDIR(status.st_mode) &&
                        (flock(file, lock | LOCK_NB) == 0 || errno != EWOULDBLOCK);
    if (usable) return file;
    close(file);
  } catch (const std::bad_alloc&) {
  }
  return kNoFile;
}

}  // namespace

FileHandle OpenFileForRead(WideView name) noexcept { return Open(name, O_RDONLY, LOCK_SH); }

FileHandle OpenFileForWrite(WideView name) noexcept {
  const FileHandle file = Open(name, O_WRONLY | O_CREAT, LOCK_EX);
  // Emptied only once the lock is held; what cannot be emptied (a pipe) starts empty.
  if (file != kNoFile && ftruncate(file, 0) != 0 && errno != EINVAL) {
    close(file);
    return kNoFile;
  }
  return file;
}

void CloseFile(FileHandle handle) noexcept { close(handle); }

bool ReadFromFile(FileHandle handle, void* bytes, std::uint32_t size, std::uint32_t* count) noexcept {
  *count = 0;
  while (*count < size) {
    const ssize_t n = read(handle, static_cast<char*>(bytes) + *count, size - *count);
    if (n == 0) return true;
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) return false;
    *count += static_cast<std::uint32_t>(n);
  }
  return true;
}

bool WriteToFile(FileHandle handle, const void* bytes, std::uint32_t size) noexcept {
  std::uint32_t done = 0;
  while (done < size) {
    const ssize_t n = write(handle, static_cast<const char*>(bytes) + done, size - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return false;
    done += static_cast<std::uint32_t>(n);
  }
  return true;
}

std::optional<std::uint64_t> BytesToEnd(FileHandle handle) noexcept {
  struct stat status {};
  if (fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  const off_t position = lseek(handle, 0, SEEK_CUR);
  if (position < 0) return std::nullopt;
  return status.st_size > position ? static_cast<std::uint64_t>(status.st_size - position) : 0;
}

void SkipToEnd(FileHandle handle) noexcept { lseek(handle, 0, SEEK_END); }

}  // namespace halyard
