// Finds for each column of a table the member that its name says.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/csv_reader.h"
#include "tools/halyard/member_path.h"

namespace halyard::tool {

class ColumnPaths {
 public:
  // The definition of the rows. Columns of a table without names stand for all members in
  // their order.
  ColumnPaths(DefinitionPtr row, bool has_no_header) : row_(std::move(row)), has_no_header_(has_no_header) {}

  // Throws Failure where a column names no single member.
  void Begin(const std::vector<std::string>& columns, const CsvReader& reader);

  // Whether the rows fit is judged when they are written.
  void Row(const CsvRow&, const CsvReader&) {}

  [[nodiscard]] std::vector<MemberPath> Take() { return std::move(paths_); }

 private:
  [[nodiscard]] MemberPath PathOf(const std::string& column, const std::vector<MemberPath>& all) const;

  DefinitionPtr row_;
  bool has_no_header_;
  std::vector<MemberPath> paths_;
};

}  // namespace halyard::tool
