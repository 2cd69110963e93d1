#include "tools/halyard/input.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "tools/halyard/failure.h"
#include "tools/halyard/platform/system.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kStep = std::size_t{1} << 18;

std::string Remedy(int error) {
  switch (error) {
    case ENOENT:
      return "; check the name and the folder";
    case EACCES:
    case EPERM:
      return "; ask its owner for the permission to read it, or end the program that holds it open";
    case EISDIR:
      return "; name a file inside it";
    default:
      return "";
  }
}

std::string TemporaryFolderRemedy() {
  return std::string("; set ") + kTemporaryFolderVariable +
         " to a folder that has room and that you may write to";
}

[[noreturn]] void CannotRead(const std::string& name, int error) {
  throw Failure(ExitCode::kInputOutput, name + ": cannot be read: " + ReasonText(error) + Remedy(error));
}

std::optional<std::uint64_t> SizeOf(int descriptor) {
  const std::int64_t size = RegularFileSize(descriptor);
  if (size < 0) return std::nullopt;
  return static_cast<std::uint64_t>(size);
}

}  // namespace

void RequireOneStandardInput(const std::vector<std::string>& files) {
  if (std::count(files.begin(), files.end(), kStandardStream) > 1)
    throw Failure(ExitCode::kUsage, "'-' is given twice, and standard input can be read only once");
}

Input::Input(const std::string& name)
    : descriptor_(name == kStandardStream ? kStandardInput : OpenToRead(name)),
      name_(name == kStandardStream ? "standard input" : name),
      buffer_(kStep) {
  if (descriptor_ == kNoDescriptor) CannotRead(name_, errno);
  // A redirected file is a stream all the same: it need not stand at its beginning.
  if (descriptor_ != kStandardInput) size_ = SizeOf(descriptor_);
}

Input::~Input() { Close(); }

void Input::Close() noexcept {
  if (descriptor_ != kStandardInput && descriptor_ != kNoDescriptor) CloseDescriptor(descriptor_);
  descriptor_ = kNoDescriptor;
}

std::size_t Input::Fill() {
  const std::ptrdiff_t count = ReadSome(descriptor_, buffer_.data(), buffer_.size());
  if (count < 0) CannotRead(name_, errno);
  next_ = 0;
  end_ = static_cast<std::size_t>(count);
  return end_;
}

std::size_t Input::Read(std::span<unsigned char> bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    if (next_ == end_ && Fill() == 0) break;
    const std::size_t count = std::min(bytes.size() - done, end_ - next_);
    std::memcpy(bytes.data() + done, buffer_.data() + next_, count);
    next_ += count;
    done += count;
  }
  position_ += done;
  return done;
}

std::uint64_t Input::Skip(std::uint64_t count) {
  if (size_ && count > end_ - next_) {
    const std::uint64_t left = *size_ > position_ ? *size_ - position_ : 0;
    const std::uint64_t step = std::min(count, left);
    Seek(position_ + step);
    return step;
  }
  std::uint64_t done = 0;
  while (done < count) {
    if (next_ == end_ && Fill() == 0) break;
    const std::size_t step = static_cast<std::size_t>(std::min<std::uint64_t>(count - done, end_ - next_));
    next_ += step;
    done += step;
  }
  position_ += done;
  return done;
}

void Input::Seek(std::uint64_t offset) {
  // Inside the buffer no call is needed.
  const std::uint64_t first = position_ - next_;
  if (offset >= first && offset <= first + end_) {
    next_ = static_cast<std::size_t>(offset - first);
  } else {
    if (!SeekTo(descriptor_, offset)) CannotRead(name_, errno);
    next_ = end_ = 0;
  }
  position_ = offset;
}

void Input::Prefetch(std::uint64_t offset) {
  if (!SeekTo(descriptor_, offset)) CannotRead(name_, errno);
  position_ = offset;
  Fill();
}

std::size_t Input::Peek(std::uint64_t offset, std::span<unsigned char> bytes) {
  const std::uint64_t first = position_ - next_;
  if (offset >= first && offset + bytes.size() <= first + end_) {
    std::memcpy(bytes.data(), buffer_.data() + (offset - first), bytes.size());
    return bytes.size();
  }
  std::size_t done = 0;
  std::ptrdiff_t count = SeekTo(descriptor_, offset) ? 1 : -1;
  while (count > 0 && done < bytes.size()) {
    count = ReadSome(descriptor_, bytes.data() + done, bytes.size() - done);
    if (count > 0) done += static_cast<std::size_t>(count);
  }
  if (count < 0 || !SeekTo(descriptor_, first + end_)) CannotRead(name_, errno);
  return done;
}

void Input::MakeSeekable() {
  if (size_) return;
  const int copy = CreateNameless();
  if (copy == kNoDescriptor) {
    throw Failure(ExitCode::kInputOutput,
                  "no temporary file can be made: " + ReasonText(errno) + TemporaryFolderRemedy());
  }
  while (Fill() != 0) {
    for (std::size_t done = 0; done < end_;) {
      const std::ptrdiff_t count = WriteSome(copy, buffer_.data() + done, end_ - done);
      if (count < 0) {
        const int error = errno;
        CloseDescriptor(copy);
        throw Failure(ExitCode::kInputOutput,
                      "the temporary file cannot be written: " + ReasonText(error) + TemporaryFolderRemedy());
      }
      done += static_cast<std::size_t>(count);
    }
  }
  if (descriptor_ != kStandardInput) CloseDescriptor(descriptor_);
  descriptor_ = copy;
  size_ = SizeOf(copy);
  next_ = end_ = 0;
  position_ = 0;
  if (!SeekTo(descriptor_, 0)) CannotRead(name_, errno);
}

bool Input::IsBeingWritten() const noexcept {
  if (!size_) return false;
  return RegularFileSize(descriptor_) > static_cast<std::int64_t>(*size_) ||
         tool::IsBeingWritten(descriptor_);
}

}  // namespace halyard::tool
