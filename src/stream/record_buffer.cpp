#include "stream/record_buffer.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>

#include "platform/memory.h"
#include "types/elementary.h"

namespace halyard {
namespace {

// The first step when the end of a stream is unknown; each further step doubles.
constexpr std::uint32_t kFirstStep = 1u << 20;

// Unused bytes in front of a record: with the heads of the unit and of an array they make
// 16, so that the elements of an array begin aligned.
constexpr std::size_t kLead = 6;

std::size_t SizeToKeep(std::uint64_t size) {
  if (size > std::numeric_limits<std::size_t>::max() / 2) throw std::bad_alloc();
  return kLead + static_cast<std::size_t>(size) + kWidestElementary;
}

// Reads exactly so many bytes; false where the file does not hold them.
bool ReadWhole(FileChannel& file, unsigned char* bytes, std::uint32_t size) noexcept {
  std::uint32_t count = 0;
  return file.Read(bytes, size, &count) && count == size;
}

}  // namespace

unsigned char* RecordBuffer::ReserveZeros(std::uint64_t size) {
  if (size <= kWorkBufferSize) {
    std::memset(work_, 0, static_cast<std::size_t>(size));
    return work_;
  }
  if (size > std::numeric_limits<std::size_t>::max()) throw std::bad_alloc();
  own_ = NewZeroMemory(static_cast<std::size_t>(size));
  return own_.get();
}

unsigned char* RecordBuffer::ReadBody(FileChannel& file, std::uint32_t size) {
  if (unsigned char* ahead = file.TakeAhead(size)) return ahead;
  if (size <= kWorkBufferSize) return ReadWhole(file, work_, size) ? work_ : nullptr;
  const auto left = file.BytesToEnd();
  if (!left) return ReadInSteps(file, size);
  if (*left >= size) return ReadLarge(file, size);
  file.SkipToEnd();  // a short read would have ended there, too
  return nullptr;
}

unsigned char* RecordBuffer::ReadLarge(FileChannel& file, std::uint32_t size) {
  try {
    own_ = NewRawMemory(SizeToKeep(size));
  } catch (const std::bad_alloc&) {
    if (PassOver(file, size)) throw;
    return nullptr;
  }
  ExpectToFill(own_.get(), SizeToKeep(size));
  return ReadWhole(file, own_.get() + kLead, size) ? Kept(size) : nullptr;
}

unsigned char* RecordBuffer::ReadInSteps(FileChannel& file, std::uint32_t size) {
  std::uint32_t done = 0;
  std::uint64_t room = 0;
  while (done < size) {
    room = std::min<std::uint64_t>(size, std::max<std::uint64_t>(kFirstStep, room * 2));
    try {
      ResizeRawMemory(own_, SizeToKeep(room));
    } catch (const std::bad_alloc&) {
      if (PassOver(file, size - done)) throw;
      return nullptr;
    }
    const auto step = static_cast<std::uint32_t>(room) - done;
    if (!ReadWhole(file, own_.get() + kLead + done, step)) return nullptr;
    done += step;
  }
  return Kept(size);
}

bool RecordBuffer::PassOver(FileChannel& file, std::uint32_t size) noexcept {
  while (size != 0) {
    const std::uint32_t step = std::min(size, kWorkBufferSize);
    if (!ReadWhole(file, work_, step)) return false;
    size -= step;
  }
  return true;
}

unsigned char* RecordBuffer::Kept(std::uint32_t size) noexcept {
  std::memset(own_.get() + kLead + size, 0, kWidestElementary);
  return own_.get() + kLead;
}

}  // namespace halyard
