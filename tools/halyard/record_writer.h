// Writes a file of units: the header, then records, each with its length before it.
#pragma once

#include <span>

#include "tools/halyard/output.h"

namespace halyard::tool {

class RecordWriter {
 public:
  // Writes the header. The output is not owned; finishing it is the caller's.
  explicit RecordWriter(Output& output);

  // A unit as it stands.
  void Write(std::span<const unsigned char> unit);

  // As Write, with another id in the place where both kinds of units have theirs.
  void WriteWithId(std::span<const unsigned char> unit, std::int16_t id);

  [[nodiscard]] std::uint64_t records() const noexcept { return records_; }

 private:
  Output& output_;
  std::uint64_t records_ = 0;
};

}  // namespace halyard::tool
