#include "tools/halyard/output.h"

#include <cerrno>
#include <filesystem>
#include <system_error>

#include "tools/halyard/failure.h"
#include "tools/halyard/input.h"
#include "tools/halyard/platform/system.h"

namespace halyard::tool {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kHeldBytes = std::size_t{1} << 16;
constexpr int kLargestAttempt = 1000;

fs::path PathOf(const std::string& utf8) { return fs::path(std::u8string(utf8.begin(), utf8.end())); }

std::string NameOf(const fs::path& path) {
  const std::u8string text = path.u8string();
  return {text.begin(), text.end()};
}

std::string Remedy(int error) {
  switch (error) {
    case ENOSPC:
    case EFBIG:
      return "; free some space or choose another folder";
    case EACCES:
    case EPERM:
    case EROFS:
      return "; choose a folder that you may write to";
    case ENOENT:
    case ENOTDIR:
      return "; make the folder first";
    case EISDIR:
      return "; name a file inside it";
    default:
      return "";
  }
}

}  // namespace

void RequireNoTerminal(const std::string& name) {
  if (name == kStandardStream && IsTerminal(kStandardOutput)) {
    throw Failure(ExitCode::kUsage,
                  "the result is no text and nothing for a terminal; name a file with -o or use a pipe");
  }
}

Output::Output(const std::string& name) : descriptor_(kNoDescriptor), name_(name) {
  held_.reserve(kHeldBytes);
  if (name == kStandardStream) {
    name_ = "standard output";
    descriptor_ = kStandardOutput;
    return;
  }
  std::error_code error;
  fs::path target = PathOf(name);
  if (fs::exists(target, error)) target = fs::canonical(target, error);
  const fs::file_status status = fs::status(target, error);
  if (status.type() == fs::file_type::directory) CannotWrite(EISDIR);
  target_ = NameOf(target);
  if (fs::exists(status) && status.type() != fs::file_type::regular) {
    descriptor_ = OpenToWrite(target_);
    if (descriptor_ == kNoDescriptor) CannotWrite(errno);
  } else {
    OpenBeside();
  }
}

Output::Output(int descriptor, std::string name) : descriptor_(descriptor), name_(std::move(name)) {
  held_.reserve(kHeldBytes);
}

void Output::OpenBeside() {
  const fs::path target = PathOf(target_);
  for (int attempt = 0; attempt < kLargestAttempt; ++attempt) {
    fs::path candidate = target;
    candidate.replace_filename(".halyard-" + std::to_string(attempt) + ".part");
    temporary_ = NameOf(candidate);
    descriptor_ = CreateNew(temporary_);
    if (descriptor_ != kNoDescriptor) {
      RemoveOnInterrupt(temporary_, descriptor_);
      return;
    }
    const int error = errno;
    temporary_.clear();
    if (error != EEXIST) CannotWrite(error);
  }
  CannotWrite(EEXIST);
}

Output::~Output() {
  if (descriptor_ != kStandardOutput && descriptor_ != kNoDescriptor) CloseDescriptor(descriptor_);
  if (temporary_.empty()) return;
  std::error_code error;
  fs::remove(PathOf(temporary_), error);
  RemoveOnInterrupt("", kNoDescriptor);
}

void Output::CannotWrite(int error) const {
  if (error == EPIPE) throw Failure(ExitCode::kInputOutput, "");
  throw Failure(ExitCode::kInputOutput, name_ + ": cannot be written: " + ReasonText(error) + Remedy(error));
}

void Output::Write(std::string_view text) {
  Write(std::span(reinterpret_cast<const unsigned char*>(text.data()), text.size()));
}

void Output::Write(std::span<const unsigned char> bytes) {
  position_ += bytes.size();
  if (held_.size() + bytes.size() > kHeldBytes) Flush();
  if (bytes.size() >= kHeldBytes) {
    WriteThrough(bytes);
  } else {
    held_.insert(held_.end(), bytes.begin(), bytes.end());
  }
}

void Output::Flush() {
  WriteThrough(held_);
  held_.clear();
}

void Output::WriteThrough(std::span<const unsigned char> bytes) {
  while (!bytes.empty()) {
    const std::ptrdiff_t count = WriteSome(descriptor_, bytes.data(), bytes.size());
    if (count < 0) CannotWrite(errno);
    bytes = bytes.subspan(static_cast<std::size_t>(count));
  }
}

void Output::Finish() {
  Flush();
  if (temporary_.empty()) return;
  TakePermissions(descriptor_, target_);
  if (!FlushToDisk(descriptor_)) CannotWrite(errno);
  CloseDescriptor(descriptor_);
  descriptor_ = kNoDescriptor;
  std::error_code error;
  fs::rename(PathOf(temporary_), PathOf(target_), error);
  if (error) CannotWrite(error.default_error_condition().value());
  temporary_.clear();
  RemoveOnInterrupt("", kNoDescriptor);
}

}  // namespace halyard::tool
