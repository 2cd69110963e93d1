// Finds for each column of a table the member that its name says.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tools/halyard/csv_reader.h"
#include "tools/halyard/member_path.h"

namespace halyard::tool {

class ColumnPaths {
 public:
  // The definition of the rows, and the file that it is of. Columns of a table without names
  // stand for all members in their order.
  ColumnPaths(DefinitionPtr row, std::string file, bool has_no_header)
      : row_(std::move(row)), file_(std::move(file)), has_no_header_(has_no_header) {}

  // Throws Failure where a column names no single member, or one that another column names.
  void Begin(const std::vector<std::string>& columns, const CsvReader& reader);

  // Whether the rows fit is judged when they are written.
  void Row(const CsvRow&, const CsvReader&) {}

  [[nodiscard]] std::vector<MemberPath> Take() { return std::move(paths_); }

 private:
  [[nodiscard]] std::optional<MemberPath> PathOf(const std::string& column,
                                                 const std::vector<MemberPath>& all) const;

  DefinitionPtr row_;
  std::string file_;
  bool has_no_header_;
  std::vector<MemberPath> paths_;
};

// The members of a row, as far as they fit a cell, that none of the columns fills or fills
// a part of.
std::vector<MemberPath> AbsentMembers(const DefinitionPtr& row, const std::vector<MemberPath>& columns);

}  // namespace halyard::tool
