// FileChannel: the handle of a file of units, with the bytes that wait on its two sides.
//
// Bytes wait to be written only where somebody asked for a buffer, and are read ahead
// only from a file that nobody else holds: for all others a call here is a call of the
// system.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <utility>

#include "platform/file.h"

namespace halyard {

class FileChannel {
 public:
  FileChannel() noexcept = default;
  ~FileChannel() { Close(); }
  FileChannel(const FileChannel&) = delete;
  FileChannel& operator=(const FileChannel&) = delete;

  [[nodiscard]] bool IsOpen() const noexcept { return handle_ != kNoFile; }

  // Takes over a handle; one held before is left open, and nothing may wait for it: ask
  // Settle before.
  void Take(FileHandle handle) noexcept;

  // Says that nobody else has this handle; no matter if it is not the one that was taken
  // last. From now on it is read ahead unless it is a pipe, and what a failing write has
  // written is taken back, which could hit the bytes of others elsewhere.
  void HaveAlone(FileHandle handle) noexcept { is_alone_ = handle == handle_; }

  // Settles, and closes the handle if there is one. False as Settle.
  bool Close() noexcept;

  // Hands over what waits. False where written bytes were lost since the handle was taken.
  bool Flush() noexcept;

  // Hands over what waits, for one who is about to let go of the handle. False where written
  // bytes were lost since it was taken, once: whoever was told may go on to another handle.
  // This one takes no more bytes.
  bool Settle() noexcept { return Flush() || std::exchange(loss_told_, true); }

  // Whether no bytes wait to be written.
  [[nodiscard]] bool NothingWaits() const noexcept { return waiting_size_ == 0; }

  // The most bytes that may wait to be written; nothing may wait when it changes.
  void SetBufferSize(std::uint32_t size) noexcept;
  [[nodiscard]] std::uint32_t buffer_size() const noexcept { return buffer_size_; }

  // Reads up to `size` bytes. `*count` is what was read, less than `size` only at the end
  // of the file. False when the system reports a failure.
  bool Read(void* bytes, std::uint32_t size, std::uint32_t* count) noexcept;

  // The next `size` bytes where they lie, if they were read ahead as a whole; else null.
  [[nodiscard]] const unsigned char* LookAhead(std::uint64_t size) const noexcept {
    return ahead() < size ? nullptr : ahead_.get() + ahead_begin_;
  }

  // Takes the next `size` bytes where they lie, if they were read ahead as a whole; else
  // null. They stay there until the next call that reads.
  unsigned char* TakeAhead(std::uint32_t size) noexcept {
    if (ahead() < size) return nullptr;
    return ahead_.get() + std::exchange(ahead_begin_, ahead_begin_ + size);
  }

  // How many bytes follow; none for a file that has no length.
  [[nodiscard]] std::optional<std::uint64_t> BytesToEnd() const noexcept;
  void SkipToEnd() noexcept;

  // The same for two parts with one write. Only where the system gathers writes.
  bool WriteInOne(std::span<const unsigned char> head, std::span<const unsigned char> bytes) noexcept {
    return Flush() && WriteBothToFile(handle_, head, bytes, can_break_, RemainsOfRecord());
  }

  // Room for `size` bytes that will wait once they are Added, null where they would not:
  // without a handle nothing waits.
  // Throws std::bad_alloc.
  unsigned char* RoomToWait(std::uint32_t size);
  void AddToWaiting(std::uint32_t size) noexcept { waiting_size_ += size; }

  // Writes all `size` bytes, or lets them wait. False where that fails. Throws
  // std::bad_alloc where there is no memory to wait in.
  bool Write(const void* bytes, std::uint32_t size);

 private:
  [[nodiscard]] std::uint32_t ahead() const noexcept { return ahead_end_ - ahead_begin_; }

  [[nodiscard]] Remains RemainsOfRecord() const noexcept {
    return is_alone_ ? Remains::kTakenBack : Remains::kStay;
  }

  // Reads ahead what the system gives at once; false when it reports a failure.
  bool Refill() noexcept;

  FileHandle handle_ = kNoFile;
  bool can_break_ = false;
  bool is_alone_ = false;
  bool lost_ = false;
  bool loss_told_ = false;

  std::uint32_t buffer_size_ = 0;
  std::unique_ptr<unsigned char[]> waiting_;  // of that size, made when needed
  std::uint32_t waiting_size_ = 0;

  std::unique_ptr<unsigned char[]> ahead_;  // made when needed, kept until the end
  std::uint32_t ahead_begin_ = 0;
  std::uint32_t ahead_end_ = 0;
};

}  // namespace halyard
