#include "support/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include "support/demand.h"

namespace bench {
namespace {

constexpr mode_t kReadableByAll = 0644;

int Opened(const std::string& path, int flags) {
  const int number = open(path.c_str(), flags, kReadableByAll);
  if (number < 0) Fail("cannot open " + path);
  return number;
}

}  // namespace

Descriptor Descriptor::ForReading(const std::string& path) { return Descriptor(Opened(path, O_RDONLY)); }

Descriptor Descriptor::ForWriting(const std::string& path) {
  return Descriptor(Opened(path, O_WRONLY | O_CREAT | O_TRUNC));
}

Descriptor::~Descriptor() { close(number_); }

void Descriptor::Write(const void* bytes, std::size_t size) const {
  Demand(write(number_, bytes, size) == static_cast<ssize_t>(size), "a write moved too few bytes");
}

std::size_t Descriptor::Read(void* bytes, std::size_t size) const {
  const ssize_t count = read(number_, bytes, size);
  Demand(count >= 0, "a read failed");
  return static_cast<std::size_t>(count);
}

}  // namespace bench
