// What is in a file of units, counted without making values.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "tools/halyard/decoder.h"
#include "tools/halyard/record_reader.h"

namespace halyard::tool {

// Records and their bytes, with their length fields.
struct Tally {
  std::uint64_t records = 0;
  std::uint64_t bytes = 0;
  std::uint64_t first = 0;  // offset
  std::uint64_t last = 0;   // offset

  void Count(const Record& record) {
    if (records++ == 0) first = record.offset;
    last = record.offset;
    bytes += kLengthBytes + record.length;
  }
};

// A definition, how often it was announced, and its values.
struct ContentDefinition {
  DefinitionPtr view;
  Tally announced;
  Tally values;
};

struct FileContent {
  std::string name;
  std::uint64_t size = 0;
  Tally all;
  std::map<USHORT, Tally> kinds;
  std::map<USHORT, Tally> types;
  std::map<DefinitionKey, ContentDefinition> definitions;
  Tally unresolved;            // values whose definition does not stand before them
  Tally broken;                // definitions that cannot be read
  std::optional<Fault> fault;  // why the file is not read to its end
  std::uint64_t tail = 0;      // bytes behind the last whole record
  bool is_being_written = false;

  [[nodiscard]] bool IsSound() const noexcept {
    return !fault && unresolved.records == 0 && broken.records == 0;
  }
};

// Reads the whole file. Throws Failure where it cannot be read or is no file of units.
FileContent ExamineFile(const std::string& file);

}  // namespace halyard::tool
