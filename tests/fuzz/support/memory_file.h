// A file that exists in memory only.
#pragma once

#include <string>

#include "halyard/platform/automation.h"
#include "tests/fuzz/support/input.h"

namespace halyard::fuzz {

class MemoryFile {
 public:
  // An empty file, or one that holds the bytes; positioned at its start.
  MemoryFile();
  explicit MemoryFile(std::span<const unsigned char> bytes);
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  // A name under which the file can be opened again, with a position of its own.
  [[nodiscard]] std::string Name() const;

  // A handle of its own for whoever closes it, at the file's start.
  [[nodiscard]] LONG NewHandle() const;

  // All that the file holds.
  [[nodiscard]] Bytes Content() const;

 private:
  int descriptor_;
};

// A handle of its own, for whoever closes it, from which the bytes come once and in order:
// it has no size and no places to go to. At most 1 MiB.
LONG PipeOf(std::span<const unsigned char> bytes);

}  // namespace halyard::fuzz
