#include "stream/file_channel.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace halyard {
namespace {

// What is asked of the system at once when reading ahead.
constexpr std::uint32_t kAheadBytes = 1u << 18;

}  // namespace

void FileChannel::Take(FileHandle handle) noexcept {
  handle_ = handle;
  can_break_ = CanBreak(handle);
  is_alone_ = false;
  lost_ = loss_told_ = false;
  ahead_begin_ = ahead_end_ = 0;
}

bool FileChannel::Close() noexcept {
  if (!IsOpen()) return true;
  const bool whole = Settle();
  CloseFile(std::exchange(handle_, kNoFile));
  lost_ = loss_told_ = false;
  ahead_begin_ = ahead_end_ = 0;
  return whole;
}

bool FileChannel::Flush() noexcept {
  const std::uint32_t size = std::exchange(waiting_size_, 0);
  // What is whole of many records may stay, since nothing is written behind a loss.
  if (size != 0 && !WriteToFile(handle_, waiting_.get(), size, can_break_, Remains::kStay)) lost_ = true;
  return !lost_;
}

void FileChannel::SetBufferSize(std::uint32_t size) noexcept {
  buffer_size_ = size;
  waiting_.reset();
}

bool FileChannel::Read(void* bytes, std::uint32_t size, std::uint32_t* count) noexcept {
  Flush();
  *count = 0;
  auto* place = static_cast<unsigned char*>(bytes);
  while (*count < size) {
    if (ahead() == 0) {
      const std::uint32_t rest = size - *count;
      if (!is_alone_ || can_break_ || rest >= kAheadBytes || !Refill()) {
        std::uint32_t more = 0;
        const bool done = ReadFromFile(handle_, place + *count, rest, &more);
        *count += more;
        return done;
      }
      if (ahead() == 0) return true;
    }
    const std::uint32_t step = std::min(ahead(), size - *count);
    std::memcpy(place + *count, ahead_.get() + ahead_begin_, step);
    ahead_begin_ += step;
    *count += step;
  }
  return true;
}

std::optional<std::uint64_t> FileChannel::BytesToEnd() const noexcept {
  auto left = halyard::BytesToEnd(handle_);
  if (left) *left += ahead();
  return left;
}

void FileChannel::SkipToEnd() noexcept {
  ahead_begin_ = ahead_end_ = 0;
  halyard::SkipToEnd(handle_);
}

bool FileChannel::Write(const void* bytes, std::uint32_t size) {
  if (unsigned char* room = RoomToWait(size)) {
    std::memcpy(room, bytes, size);
    AddToWaiting(size);
    return true;
  }
  return Flush() && WriteToFile(handle_, bytes, size, can_break_, RemainsOfRecord());
}

unsigned char* FileChannel::RoomToWait(std::uint32_t size) {
  if (!IsOpen() || size > buffer_size_ || lost_) return nullptr;
  if (size > buffer_size_ - waiting_size_ && !Flush()) return nullptr;
  if (!waiting_) waiting_ = std::make_unique_for_overwrite<unsigned char[]>(buffer_size_);
  return waiting_.get() + waiting_size_;
}

bool FileChannel::Refill() noexcept {
  if (!ahead_) ahead_.reset(new (std::nothrow) unsigned char[kAheadBytes]);
  if (!ahead_) return false;
  ahead_begin_ = ahead_end_ = 0;
  std::uint32_t count = 0;
  if (!ReadSomeFromFile(handle_, ahead_.get(), kAheadBytes, &count)) return false;
  ahead_end_ = count;
  return true;
}

}  // namespace halyard
