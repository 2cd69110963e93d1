// A table of comma-separated values as a file of units. The table is read twice: first
// for the types of its columns, then for its rows.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tools/halyard/csv_reader.h"
#include "tools/halyard/input.h"
#include "tools/halyard/member_path.h"
#include "tools/halyard/output.h"
#include "tools/halyard/selection.h"
#include "tools/halyard/table_notes.h"
#include "tools/halyard/table_options.h"

namespace halyard::tool {

struct ImportOptions {
  TableOptions form;
  std::string name;                 // of the definition of the records
  std::string like;                 // the file whose definition is taken; none where it is empty
  Selection definition;             // in that file
  std::vector<std::string> types;   // given by a person, as ForcedTypes takes them
  std::uint64_t most_elements = 0;  // of columns that become enumerations
  bool as_array = false;            // one array value instead of a record for each row
};

class TableImport {
 public:
  // The input must be seekable. `remark` gets sentences about columns that people may want
  // otherwise. Options and input are not owned.
  TableImport(const ImportOptions& options, Input& input, std::function<void(const std::string&)> remark)
      : options_(options), input_(input), remark_(std::move(remark)) {}

  // The first reading finds what the records are. Throws Failure where the table has faults
  // or the options do not fit it.
  void Plan();

  // The second one writes them, behind their definition. The output is not finished.
  void Write(Output& output);

 private:
  template <class Target>
  void ReadRows(const std::string& what, Target& target);
  [[nodiscard]] std::vector<std::string> Columns(const CsvRow& first) const;
  void PlanByGuess();
  void PlanLike();
  void RemarkAbsent(const DefinitionPtr& row) const;

  const ImportOptions& options_;
  Input& input_;
  std::function<void(const std::string&)> remark_;
  DefinitionPtr definition_;  // of the records
  std::vector<MemberPath> columns_;
  std::optional<TableNotes> notes_;
};

}  // namespace halyard::tool
