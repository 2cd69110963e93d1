// The fuzz targets: each runs one input to its end and holds the library to what it
// promises. The same functions serve the fuzzer and the replay of kept inputs.
#pragma once

#include <cstdint>
#include <span>

namespace halyard::fuzz {

using InputBytes = std::span<const unsigned char>;

// A whole file, by name and by handle.
void FileTarget(InputBytes input);

// One unit, into a unit object without a session and into one whose session is filled.
void UnitTarget(InputBytes input);

// A definition of the class that the first byte chooses.
void DefinitionTarget(InputBytes input);

// A definition, and a value of it from the rest.
void ValueTarget(InputBytes input);

// A member path, resolved in arrays of several shapes and used for transfers.
void PathTarget(InputBytes input);

// Text and dates: their forms, and the conversions between them and numbers.
void TextTarget(InputBytes input);

// A table of comma-separated values, imported, exported and imported again by the parts of
// the tool. The first bytes choose how.
void CsvTarget(InputBytes input);

// One row per target. Those of the tool want a process without the others, for the form of
// narrow texts is chosen once for a process.
struct TargetRow {
  const char* name;
  void (*run)(InputBytes input);
  bool is_of_tool = false;
};
std::span<const TargetRow> Targets() noexcept;

}  // namespace halyard::fuzz
