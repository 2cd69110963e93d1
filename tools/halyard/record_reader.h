// Reads a file of units record by record, with offsets and numbers, and trusts no length.
//
// A record's unit is taken only on request and only as far as the input reaches; a record
// that nobody asks for is passed over, in a file without being read. Memory holds one
// unit at a time.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "tools/halyard/framing.h"
#include "tools/halyard/input.h"

namespace halyard::tool {

// A record's place and the words at its front.
struct Record {
  std::uint64_t number = 0;  // 1 for the first
  std::uint64_t offset = 0;  // of the length field
  std::uint32_t length = 0;  // of the unit
  UnitHead head;

  [[nodiscard]] std::uint64_t end() const noexcept { return offset + kLengthBytes + length; }
};

// Something wrong with the file: where, in which record (0: in none), and what, as the
// end of a sentence.
struct Fault {
  std::uint64_t offset = 0;
  std::uint64_t record = 0;
  std::string what;
};

class RecordReader {
 public:
  // Reads and checks the header. Throws Failure (the file has faults) where there is none.
  explicit RecordReader(Input& input);

  // Goes on where the input stands, behind a header that somebody else judged, and counts
  // on from `number`.
  RecordReader(Input& input, std::uint64_t number);

  // The next record; none at the end of the file and where no further one can be told.
  // What is left of a record before it is passed over.
  std::optional<Record> Next();

  // The unit of the record that Next gave; it lives until the next call. Empty where the
  // input ends inside it.
  std::optional<std::span<const unsigned char>> Unit();

  // Passes over the record that Next gave, and answers whether it is whole. Next does the
  // same where nobody asks.
  bool Pass();

  // Why Next or Unit had to give up, or nothing at a proper end.
  [[nodiscard]] const std::optional<Fault>& fault() const noexcept { return fault_; }

  // Bytes behind the last whole record.
  [[nodiscard]] std::uint64_t tail() const noexcept { return tail_; }

  [[nodiscard]] Input& input() noexcept { return input_; }

 private:
  void CutShort(std::uint64_t there);
  std::optional<Record> StopInLength(std::size_t there);

  Input& input_;
  std::uint64_t offset_ = kFileHeaderBytes;
  std::uint64_t number_ = 0;
  Record record_;
  bool open_ = false;  // record_ still has bytes to take or to pass over
  std::array<unsigned char, kDataHeadBytes> front_{};
  std::size_t front_size_ = 0;
  std::vector<unsigned char> unit_;
  std::optional<Fault> fault_;
  std::uint64_t tail_ = 0;
};

// Throws Failure for a fault, with the file, the place and, where `remedy` is not empty,
// what to do.
[[noreturn]] void ThrowFault(const std::string& file, const Fault& fault, const std::string& remedy = {});

// What is said of a file whose header has that fault, and what a person can do about it;
// `size` bytes of a header are there.
std::string HeaderText(const std::string& fault, std::size_t size);

// What a person can do about a file that ends in the midst of a record, to be put behind
// the fault.
std::string EndRemedy(bool is_being_written);

// Throws Failure where the reader ended before the end of its file.
void RequireProperEnd(RecordReader& reader);

}  // namespace halyard::tool
