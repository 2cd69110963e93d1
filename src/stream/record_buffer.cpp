#include "stream/record_buffer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

namespace halyard {
namespace {

// The first step when the end of a stream is unknown; each further step doubles.
constexpr std::uint32_t kFirstStep = 1u << 20;

bool ReadWhole(FileChannel& file, unsigned char* bytes, std::uint32_t size) noexcept {
  std::uint32_t count = 0;
  return file.Read(bytes, size, &count) && count == size;
}

}  // namespace

unsigned char* RecordBuffer::Reserve(std::uint64_t size) {
  if (size <= kWorkBufferSize) return work_;
  if (size > std::numeric_limits<std::size_t>::max()) throw std::bad_alloc();
  own_ = std::make_unique_for_overwrite<unsigned char[]>(static_cast<std::size_t>(size));
  return own_.get();
}

unsigned char* RecordBuffer::ReadBody(FileChannel& file, std::uint32_t size) {
  if (unsigned char* ahead = file.TakeAhead(size)) return ahead;
  if (size > kWorkBufferSize) {
    const auto left = file.BytesToEnd();
    if (!left) return ReadInSteps(file, size);
    if (*left < size) {
      file.SkipToEnd();  // a short read would have ended there, too
      return nullptr;
    }
  }
  unsigned char* bytes = Reserve(size);
  return ReadWhole(file, bytes, size) ? bytes : nullptr;
}

unsigned char* RecordBuffer::ReadInSteps(FileChannel& file, std::uint32_t size) {
  std::uint32_t done = 0;
  std::uint64_t room = 0;
  while (done < size) {
    room = std::min<std::uint64_t>(size, std::max<std::uint64_t>(kFirstStep, room * 2));
    auto larger = std::make_unique_for_overwrite<unsigned char[]>(static_cast<std::size_t>(room));
    if (done != 0) std::memcpy(larger.get(), own_.get(), done);
    own_ = std::move(larger);
    const auto step = static_cast<std::uint32_t>(room) - done;
    if (!ReadWhole(file, own_.get() + done, step)) return nullptr;
    done += step;
  }
  return own_.get();
}

}  // namespace halyard
