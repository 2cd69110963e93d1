// Files on POSIX systems. The share modes of Windows are kept with advisory locks, so
// that two programs of this library refuse the same things on every platform.
#include "platform/file.h"

#include <fcntl.h>
#include <pthread.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string>

#include "platform/native/utf.h"

namespace halyard {
namespace {

constexpr mode_t kReadWriteForAll = 0666;

// A POSIX path is bytes; UTF-8 is what people and their tools use for it.
std::string PathBytes(WideView name) { return ToUtf8(name.substr(0, name.find(u'\0'))); }

// Repeats a system call that a signal interrupted.
template <class Call>
auto Uninterrupted(Call&& call) noexcept {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

FileHandle Open(WideView name, int flags, int lock) noexcept {
  try {
    const std::string path = PathBytes(name);
    const int file =
        Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, kReadWriteForAll); });
    if (file < 0) return kNoFile;
    struct stat status {};
    const bool usable = fstat(file, &status) == 0 && !S_ISDIR(status.st_mode) &&
                        (flock(file, lock | LOCK_NB) == 0 || errno != EWOULDBLOCK);
    if (usable) return file;
    close(file);
  } catch (...) {
    // No memory for the name: the file cannot be opened.
  }
  return kNoFile;
}

// Keeps a broken pipe from ending the process while it lives: the write then fails with
// EPIPE. Files cannot break, so they are written without it.
class BrokenPipeGuard {
 public:
  BrokenPipeGuard() noexcept {
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    sigset_t pending;
    was_pending_ = sigpending(&pending) == 0 && sigismember(&pending, SIGPIPE) == 1;
    blocked_ = pthread_sigmask(SIG_BLOCK, &pipe_, &old_) == 0;
  }
  ~BrokenPipeGuard() {
    if (!blocked_) return;
    const timespec now{};
    if (!was_pending_) Uninterrupted([&] { return sigtimedwait(&pipe_, nullptr, &now); });
    pthread_sigmask(SIG_SETMASK, &old_, nullptr);
  }
  BrokenPipeGuard(const BrokenPipeGuard&) = delete;
  BrokenPipeGuard& operator=(const BrokenPipeGuard&) = delete;

 private:
  sigset_t pipe_;
  sigset_t old_;
  bool was_pending_ = false;
  bool blocked_ = false;
};

// Writes the bytes from position `*done` on, which moves with them.
bool WriteRest(FileHandle handle, std::span<const unsigned char> bytes, std::size_t* done) noexcept {
  while (*done < bytes.size()) {
    const ssize_t n =
        Uninterrupted([&] { return write(handle, bytes.data() + *done, bytes.size() - *done); });
    if (n <= 0) return false;
    *done += static_cast<std::size_t>(n);
  }
  return true;
}

// Takes the last bytes back that were written: the next ones are written in their place.
void TakeBack(FileHandle handle, std::size_t size) noexcept {
  if (size == 0) return;
  const off_t start = lseek(handle, -static_cast<off_t>(size), SEEK_CUR);
  struct stat status {};
  if (start < 0 || fstat(handle, &status) != 0) return;
  const bool were_last = status.st_size == start + static_cast<off_t>(size);
  if (were_last) static_cast<void>(Uninterrupted([&] { return ftruncate(handle, start); }));
}

bool WriteAll(FileHandle handle, std::span<const unsigned char> bytes, Remains remains) noexcept {
  std::size_t done = 0;
  if (WriteRest(handle, bytes, &done)) return true;
  if (remains == Remains::kTakenBack) TakeBack(handle, done);
  return false;
}

// As WriteAll for two parts.
bool WriteBoth(FileHandle handle, std::span<const unsigned char> first,
               std::span<const unsigned char> second, Remains remains) noexcept {
  iovec parts[] = {{const_cast<unsigned char*>(first.data()), first.size()},
                   {const_cast<unsigned char*>(second.data()), second.size()}};
  const ssize_t n = Uninterrupted([&] { return writev(handle, parts, 2); });
  if (n <= 0) return false;
  std::size_t of_first = std::min(static_cast<std::size_t>(n), first.size());
  std::size_t of_second = static_cast<std::size_t>(n) - of_first;
  if (WriteRest(handle, first, &of_first) && WriteRest(handle, second, &of_second)) return true;
  if (remains == Remains::kTakenBack) TakeBack(handle, of_first + of_second);
  return false;
}

}  // namespace

FileHandle OpenFileForRead(WideView name) noexcept { return Open(name, O_RDONLY, LOCK_SH); }

FileHandle OpenFileForWrite(WideView name) noexcept {
  const FileHandle file = Open(name, O_WRONLY | O_CREAT, LOCK_EX);
  // Emptied only once the lock is held; what cannot be emptied (a pipe) starts empty.
  if (file != kNoFile && Uninterrupted([&] { return ftruncate(file, 0); }) != 0 && errno != EINVAL) {
    close(file);
    return kNoFile;
  }
  return file;
}

void CloseFile(FileHandle handle) noexcept { close(handle); }

bool ReadFromFile(FileHandle handle, void* bytes, std::uint32_t size, std::uint32_t* count) noexcept {
  *count = 0;
  while (*count < size) {
    const ssize_t n =
        Uninterrupted([&] { return read(handle, static_cast<char*>(bytes) + *count, size - *count); });
    if (n == 0) return true;
    if (n < 0) return false;
    *count += static_cast<std::uint32_t>(n);
  }
  return true;
}

bool ReadSomeFromFile(FileHandle handle, void* bytes, std::uint32_t size, std::uint32_t* count) noexcept {
  const ssize_t n = Uninterrupted([&] { return read(handle, bytes, size); });
  *count = n < 0 ? 0 : static_cast<std::uint32_t>(n);
  return n >= 0;
}

bool CanBreak(FileHandle handle) noexcept { return lseek(handle, 0, SEEK_CUR) < 0; }

bool WriteToFile(FileHandle handle, const void* bytes, std::uint32_t size, bool can_break,
                 Remains remains) noexcept {
  const std::span whole(static_cast<const unsigned char*>(bytes), size);
  if (!can_break) return WriteAll(handle, whole, remains);
  const BrokenPipeGuard guard;
  return WriteAll(handle, whole, remains);
}

bool GathersWrites() noexcept { return true; }

bool WriteBothToFile(FileHandle handle, std::span<const unsigned char> first,
                     std::span<const unsigned char> second, bool can_break, Remains remains) noexcept {
  if (!can_break) return WriteBoth(handle, first, second, remains);
  const BrokenPipeGuard guard;
  return WriteBoth(handle, first, second, remains);
}

std::optional<std::uint64_t> BytesToEnd(FileHandle handle) noexcept {
  struct stat status {};
  if (fstat(handle, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  if (status.st_size == 0) return std::nullopt;  // as files that the system makes up while they are read
  const off_t position = lseek(handle, 0, SEEK_CUR);
  if (position < 0) return std::nullopt;
  return status.st_size > position ? static_cast<std::uint64_t>(status.st_size - position) : 0;
}

void SkipToEnd(FileHandle handle) noexcept { lseek(handle, 0, SEEK_END); }

}  // namespace halyard
