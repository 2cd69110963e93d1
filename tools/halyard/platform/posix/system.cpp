#include "tools/halyard/platform/system.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace halyard::tool {
namespace {

constexpr mode_t kReadWriteForAll = 0666;
constexpr mode_t kReadWriteForOwner = 0600;
constexpr mode_t kPermissions = 07777;

int OpenWith(const std::string& name, int flags, mode_t mode = 0) noexcept {
  int descriptor = kNoDescriptor;
  do {
    descriptor = open(name.c_str(), flags | O_CLOEXEC, mode);
  } while (descriptor < 0 && errno == EINTR);
  return descriptor;
}

mode_t PermissionsOfNewFiles() noexcept {
  const mode_t mask = umask(kPermissions);
  umask(mask);
  return kReadWriteForAll & ~mask;
}

bool IsDirectory(int descriptor) noexcept {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
}

}  // namespace

int OpenToRead(const std::string& name) noexcept {
  const int descriptor = OpenWith(name, O_RDONLY);
  if (descriptor >= 0 && IsDirectory(descriptor)) {
    close(descriptor);
    errno = EISDIR;
    return kNoDescriptor;
  }
  return descriptor;
}

int OpenToWrite(const std::string& name) noexcept { return OpenWith(name, O_WRONLY); }

int CreateNew(const std::string& name) noexcept {
  return OpenWith(name, O_WRONLY | O_CREAT | O_EXCL, kReadWriteForOwner);
}

void TakePermissions(int descriptor, const std::string& replaced) noexcept {
  struct stat status {};
  const bool is_there = stat(replaced.c_str(), &status) == 0;
  // Where that cannot be done the file stays private.
  static_cast<void>(fchmod(descriptor, is_there ? status.st_mode & kPermissions : PermissionsOfNewFiles()));
}

const char kTemporaryFolderVariable[] = "TMPDIR";

int CreateNameless() noexcept {
  const char* folder = std::getenv(kTemporaryFolderVariable);
  std::string name = folder != nullptr && *folder != '\0' ? folder : "/tmp";
  name += "/halyard-XXXXXX";
  const int descriptor = mkostemp(name.data(), O_CLOEXEC);
  if (descriptor >= 0) unlink(name.c_str());
  return descriptor;
}

void CloseDescriptor(int descriptor) noexcept { close(descriptor); }

std::ptrdiff_t ReadSome(int descriptor, void* bytes, std::size_t size) noexcept {
  ssize_t count = 0;
  do {
    count = read(descriptor, bytes, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

std::ptrdiff_t WriteSome(int descriptor, const void* bytes, std::size_t size) noexcept {
  ssize_t count = 0;
  do {
    count = write(descriptor, bytes, size);
  } while (count < 0 && errno == EINTR);
  return count;
}

std::int64_t RegularFileSize(int descriptor) noexcept {
  struct stat status {};
  return fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode) ? status.st_size : -1;
}

bool SeekTo(int descriptor, std::uint64_t offset) noexcept {
  return lseek(descriptor, static_cast<off_t>(offset), SEEK_SET) >= 0;
}

bool IsBeingWritten(int descriptor) noexcept {
  // The library locks what it writes; the lock taken here to find out goes with the
  // descriptor or, at once, by the second call.
  if (flock(descriptor, LOCK_SH | LOCK_NB) != 0) return errno == EWOULDBLOCK;
  flock(descriptor, LOCK_UN);
  return false;
}

bool FlushToDisk(int descriptor) noexcept {
  // A descriptor that has no disk behind it needs no flushing.
  return fsync(descriptor) == 0 || errno == EINVAL || errno == EROFS;
}

std::string ReasonText(int error) { return std::strerror(error); }

}  // namespace halyard::tool
