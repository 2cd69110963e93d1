// Makes values from the rows of a table: texts become what the members are.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/csv_reader.h"
#include "tools/halyard/member_path.h"

namespace halyard::tool {

class RowBuilder {
 public:
  // The definition of the rows, and for each column the part that it fills.
  RowBuilder(DefinitionPtr definition, std::vector<MemberPath> columns);

  // A new value with the content of the row. Throws Failure, through the reader, with
  // line, column and fault where a text does not fit its member.
  Ptr<IValueBase> Build(const CsvRow& row, const CsvReader& reader) const;

 private:
  void Put(const Ptr<IValueBase>& row, const MemberPath& path, const CsvField& field,
           const CsvReader& reader) const;

  void LeaveOut(const Ptr<IValueBase>& row, const MemberPath& path) const;

  DefinitionPtr definition_;
  std::vector<MemberPath> columns_;
  std::vector<MemberPath> absent_;  // the members that no column fills: null where they can be
};

}  // namespace halyard::tool
