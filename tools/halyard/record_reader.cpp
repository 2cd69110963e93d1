#include "tools/halyard/record_reader.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/halyard/counts.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/little_endian.h"

namespace halyard::tool {
namespace {

// What a stream's unit gets at first, and at most per further step; a file's unit is
// known to be there.
constexpr std::size_t kStreamStep = std::size_t{1} << 20;

}  // namespace

RecordReader::RecordReader(Input& input) : input_(input) {
  std::array<unsigned char, kFileHeaderBytes> header{};
  const std::size_t count = input.Read(header);
  if (const auto fault = HeaderFault(std::span(header).first(count))) {
    throw Failure(ExitCode::kFaults, input.name() + ": offset 0: " + HeaderText(*fault, count));
  }
}

RecordReader::RecordReader(Input& input, std::uint64_t number)
    : input_(input), offset_(input.position()), number_(number) {}

std::optional<Record> RecordReader::Next() {
  if (!Pass()) return std::nullopt;
  std::array<unsigned char, kLengthBytes> length{};
  const std::size_t count = input_.Read(length);
  if (count != kLengthBytes) return StopInLength(count);
  record_ = {++number_, offset_, LittleEndian<std::uint32_t>(length), {}};
  const auto size = input_.size();
  if (size && record_.length > *size - std::min(*size, input_.position())) {
    CutShort(*size - input_.position());
    return std::nullopt;
  }
  front_size_ = input_.Read(std::span(front_).first(std::min<std::size_t>(front_.size(), record_.length)));
  record_.head = HeadOf(std::span(front_).first(front_size_));
  open_ = true;
  return record_;
}

std::optional<Record> RecordReader::StopInLength(std::size_t there) {
  tail_ = there;
  if (there != 0) {
    fault_ = {offset_, number_ + 1,
              fmt::format("the length of a record has {} of {} bytes", there, kLengthBytes)};
  }
  return std::nullopt;
}

std::optional<std::span<const unsigned char>> RecordReader::Unit() {
  open_ = false;
  unit_.assign(front_.begin(), front_.begin() + static_cast<std::ptrdiff_t>(front_size_));
  while (unit_.size() < record_.length) {
    const std::size_t done = unit_.size();
    const std::size_t left = record_.length - done;
    const std::size_t step = input_.size() ? left : std::min(left, std::max(kStreamStep, done));
    unit_.resize(done + step);
    const std::size_t count = input_.Read(std::span(unit_).subspan(done));
    if (count != step) {
      CutShort(done + count);
      return std::nullopt;
    }
  }
  offset_ = record_.end();
  return unit_;
}

bool RecordReader::Pass() {
  if (!open_) return !fault_;
  open_ = false;
  const std::uint64_t left = record_.length - front_size_;
  const std::uint64_t count = input_.Skip(left);
  if (count != left) {
    CutShort(front_size_ + count);
    return false;
  }
  offset_ = record_.end();
  return true;
}

void RecordReader::CutShort(std::uint64_t there) {
  tail_ = kLengthBytes + there;
  fault_ = {record_.offset, record_.number,
            fmt::format("the record announces {} bytes and the file ends after {}", Grouped(record_.length),
                        Grouped(there))};
}

void ThrowFault(const std::string& file, const Fault& fault, const std::string& remedy) {
  const std::string record = fault.record == 0 ? "" : fmt::format(", record {}", Grouped(fault.record));
  throw Failure(ExitCode::kFaults, fmt::format("{}: offset {}{}: {}{}", file, Grouped(fault.offset), record,
                                               fault.what, remedy));
}

std::string HeaderText(const std::string& fault, std::size_t size) {
  const std::string text = "no file of units: " + fault;
  return size == 0 ? text : text + "; 'halyard recover' looks for records in a damaged file";
}

std::string EndRemedy(bool is_being_written) {
  return is_being_written ? "; the file is still being written, try again when that is done"
                          : "; 'halyard recover' saves the whole records";
}

void RequireProperEnd(RecordReader& reader) {
  if (!reader.fault()) return;
  ThrowFault(reader.input().name(), *reader.fault(), EndRemedy(reader.input().IsBeingWritten()));
}

}  // namespace halyard::tool
