// A file or stream that is read from front to back, in large steps.
//
// Used by the readers of records and tables. Offsets are 64 bits wide. Every failure is
// a Failure that names the file.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace halyard::tool {

// The name that stands for standard input or standard output.
inline constexpr char kStandardStream[] = "-";

// Throws Failure (usage) where "-" is among the files more than once.
void RequireOneStandardInput(const std::vector<std::string>& files);

class Input {
 public:
  // Opens a file, or standard input for "-". Throws Failure where it cannot be read.
  explicit Input(const std::string& name);
  ~Input();
  Input(const Input&) = delete;
  Input& operator=(const Input&) = delete;

  // As people call it: the name, or "standard input".
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

  // The size of a regular file when it was opened; none for streams.
  [[nodiscard]] std::optional<std::uint64_t> size() const noexcept { return size_; }

  // The bytes taken so far.
  [[nodiscard]] std::uint64_t position() const noexcept { return position_; }

  // Takes bytes; fewer than asked for only at the end.
  std::size_t Read(std::span<unsigned char> bytes);

  // Passes over bytes and answers how many there were. In a file nothing is read.
  std::uint64_t Skip(std::uint64_t count);

  // Goes to a place in a file. A stream must have been made seekable.
  void Seek(std::uint64_t offset);

  // Takes the bytes at a place of a file into memory, where Peek finds them soonest.
  void Prefetch(std::uint64_t offset);

  // Looks at bytes anywhere in a file and stays where it is; fewer than asked for only at
  // the end.
  std::size_t Peek(std::uint64_t offset, std::span<unsigned char> bytes);

  // Copies the rest of a stream into a nameless file, so that it can be read again from
  // its beginning; files are left as they are.
  void MakeSeekable();

  // Lets the file go. On Windows nothing can take the name of a file that is open, and an
  // output may be the input.
  void Close() noexcept;

  // Whether somebody writes the file: it is locked, or longer than it was.
  [[nodiscard]] bool IsBeingWritten() const noexcept;

 private:
  std::size_t Fill();

  int descriptor_;
  std::string name_;
  std::optional<std::uint64_t> size_;
  std::uint64_t position_ = 0;
  std::vector<unsigned char> buffer_;
  std::size_t next_ = 0;  // the first byte in the buffer that was not taken
  std::size_t end_ = 0;   // behind the last one
};

}  // namespace halyard::tool
