#include "tests/fuzz/support/memory_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include "tests/fuzz/support/promise.h"

namespace halyard::fuzz {

MemoryFile::MemoryFile() : descriptor_(memfd_create("units", 0)) {
  Hold(descriptor_ >= 0, "the system has files in memory");
}

MemoryFile::MemoryFile(std::span<const unsigned char> bytes) : MemoryFile() {
  Hold(write(descriptor_, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()),
       "a file in memory takes what is written");
}

MemoryFile::~MemoryFile() { close(descriptor_); }

std::string MemoryFile::Name() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

LONG MemoryFile::NewHandle() const { return open(Name().c_str(), O_RDWR); }

Bytes MemoryFile::Content() const {
  struct stat status {};
  Hold(fstat(descriptor_, &status) == 0, "a file in memory has a size");
  Bytes bytes(static_cast<std::size_t>(status.st_size));
  Hold(pread(descriptor_, bytes.data(), bytes.size(), 0) == status.st_size, "a file in memory can be read");
  return bytes;
}

LONG PipeOf(std::span<const unsigned char> bytes) {
  constexpr std::size_t kUsualRoom = 1 << 16;
  int ends[2];
  Hold(pipe(ends) == 0, "the system has pipes");
  if (bytes.size() > kUsualRoom)
    Hold(fcntl(ends[1], F_SETPIPE_SZ, bytes.size()) >= 0, "a pipe can be made larger");
  Hold(write(ends[1], bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()),
       "a pipe takes what it has room for");
  close(ends[1]);
  return ends[0];
}

}  // namespace halyard::fuzz
