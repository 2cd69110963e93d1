// Values as rows of a table of comma-separated values.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/halyard/csv_writer.h"
#include "tools/halyard/decoder.h"
#include "tools/halyard/member_path.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/table_notes.h"
#include "tools/halyard/table_options.h"
#include "tools/halyard/value_stream.h"

namespace halyard::tool {

class TableExport {
 public:
  // Columns are the members named, or all of them. Nothing is owned.
  TableExport(Output& output, const TableOptions& options, const std::vector<std::string>& members);

  // Definitions come here too: notes about the table may be among them, and a table
  // without rows has the columns of the only one that was chosen.
  void Definition(const DefinitionPtr& definition, bool is_chosen);

  // Throws Failure where the value has other columns than those before, or a text has no
  // place in the encoding of the table.
  void Value(const std::string& file, const Record& record, const DecodedUnit& unit);

  // Writes the columns of a table that has no rows.
  void Finish();

 private:
  void Begin(const DefinitionPtr& definition);
  void WriteHeader();

  CsvWriter writer_;
  const TableOptions& options_;
  const std::vector<std::string>& members_;
  TableNotes notes_;
  DefinitionPtr definition_;           // of the rows so far
  std::vector<DefinitionPtr> likely_;  // what rows could be of, while there are none
  std::vector<MemberPath> paths_;
  std::vector<ColumnForm> forms_;
};

// Writes the chosen values of a file as a table; what it answers and throws, ReadValues
// and TableExport do. The output has all rows that were read, also where the file breaks off,
// and is not finished.
ExitCode ExportTable(const std::string& file, const Selection& selection, const TableOptions& options,
                     const std::vector<std::string>& members, Output& output, bool shows_progress);

}  // namespace halyard::tool
