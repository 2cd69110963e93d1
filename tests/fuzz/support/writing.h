// Writes units to a file in memory, and holds the file to what it answers.
#pragma once

#include "halyard/halyard.h"
#include "tests/fuzz/support/memory_file.h"

namespace halyard::fuzz {

class UnitWriter {
 public:
  // A value has the length that its encoding announced, whatever came of it, so units of
  // more than `most` bytes are left out.
  explicit UnitWriter(ULONG most);

  // Writes the unit, which must succeed where it can be written to a buffer of the size that
  // it says, and must not where it cannot.
  void WriteUnit(const Ptr<IUnit>& unit);

  // The same, by the calls that take the value or the definition of a unit.
  void WriteBody(const Ptr<IUnit>& unit);

  // The records written so far.
  [[nodiscard]] std::size_t count() const noexcept { return count_; }

  // Closes the file; what it holds.
  Bytes Close();

 private:
  // Whether the unit is small enough to be looked at; `fits` then tells whether it can be
  // written.
  bool IsTried(const Ptr<IUnit>& unit, bool& fits) const;
  void Note(HRESULT hr, VARIANT_BOOL done, bool fits);

  ULONG most_;
  std::size_t count_ = 0;
  MemoryFile content_;
  Ptr<IOrmFile> file_;
};

}  // namespace halyard::fuzz
