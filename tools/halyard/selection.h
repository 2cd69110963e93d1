// Which records a verb works on: those of chosen definitions, and a range of numbers.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "tools/halyard/command.h"
#include "tools/halyard/definition_view.h"

namespace halyard::tool {

struct RecordRange {
  std::uint64_t first = 1;
  std::uint64_t last = std::numeric_limits<std::uint64_t>::max();

  friend bool operator==(const RecordRange&, const RecordRange&) = default;
};

class Selection {
 public:
  // Adds --definition and --records to a verb; `about` begins what help says of the first.
  void AddOptions(Command& verb, const std::string& about = "Only values of this definition");

  // Adds --definition alone, with another meaning.
  void AddDefinitionOption(Command& verb, const std::string& about);

  // Whether a record of that number is in the range.
  [[nodiscard]] bool HasNumber(std::uint64_t number) const noexcept;

  // Whether the range ends before that number: no later record is wanted.
  [[nodiscard]] bool IsOver(std::uint64_t number) const noexcept { return number > range_.last; }

  // Whether the definition was chosen by its name or id; all are where none was named.
  [[nodiscard]] bool HasDefinition(const DefinitionView& definition) const;

  // Remembers that the definition stands in the file, for RequireMet.
  void Meet(const DefinitionView& definition) const { static_cast<void>(HasDefinition(definition)); }

  // Closes the reading of a file: `records` were looked at, all of it or all up to the end of
  // the range. Throws Failure (usage) where a definition was named that never came in the
  // whole of it, and remarks that nothing was chosen, where a choice was made.
  void Close(const std::string& file, std::uint64_t records, bool has_chosen) const;

  // Throws Failure (usage) where a definition was named that never came.
  void RequireMet(const std::string& file) const;

 private:
  [[nodiscard]] bool IsChoice() const noexcept { return !definitions_.empty() || range_ != RecordRange{}; }

  RecordRange range_;
  std::vector<std::string> definitions_;
  mutable std::vector<bool> met_;
};

}  // namespace halyard::tool
