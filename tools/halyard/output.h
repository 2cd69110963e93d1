// Where results go: standard output, a device, or a file that appears only when it is
// whole.
//
// A file is written under another name in the same folder and takes its place when
// Finish is called. Until then, and after any failure or interrupt, what stood under the
// name is as it was, so an input may be named as the output as well. Only its owner may open
// the unfinished file; the whole one has the permissions of what it replaces.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace halyard::tool {

// Throws Failure (usage) where the name is that of standard output and that is a terminal,
// for results that are no text.
void RequireNoTerminal(const std::string& name);

class Output {
 public:
  // "-" is standard output. Throws Failure where nothing can be written there.
  explicit Output(const std::string& name);
  // Takes over a descriptor that stands where the bytes go, and closes it at its end; `name`
  // is for people.
  Output(int descriptor, std::string name);
  ~Output();
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;

  // As people call it: the name, or "standard output".
  [[nodiscard]] const std::string& name() const noexcept { return name_; }

  // The bytes given so far.
  [[nodiscard]] std::uint64_t position() const noexcept { return position_; }

  // Throws Failure where the bytes find no room; a closed pipe ends the program quietly.
  void Write(std::span<const unsigned char> bytes);
  void Write(std::string_view text);

  // Hands over what is still held back; for people who watch.
  void Flush();

  // Completes the result. A file takes its name here.
  void Finish();

 private:
  void OpenBeside();
  void WriteThrough(std::span<const unsigned char> bytes);
  [[noreturn]] void CannotWrite(int error) const;

  int descriptor_;
  std::string name_;
  std::string target_;     // the file behind the name, links followed
  std::string temporary_;  // the name it has until it is whole; empty where it is none
  std::uint64_t position_ = 0;
  std::vector<unsigned char> held_;
};

}  // namespace halyard::tool
