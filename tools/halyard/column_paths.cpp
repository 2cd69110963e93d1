#include "tools/halyard/column_paths.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "tools/halyard/ascii.h"
#include "tools/halyard/failure.h"

namespace halyard::tool {

void ColumnPaths::Begin(const std::vector<std::string>& columns, const CsvReader& reader) {
  const std::vector<MemberPath> all = AllPaths(row_);
  if (has_no_header_) {
    reader.RequireFields(columns.size(), all.size());
    paths_ = all;
    return;
  }
  std::set<std::vector<LONG>> filled;
  for (const std::string& column : columns) {
    auto path = PathOf(column, all);
    if (!path) {
      reader.Fail(fmt::format("column '{}' is no member of {}; 'halyard defs {}' shows them", column,
                              row_->Title(), file_),
                  ExitCode::kUsage);
    }
    if (!filled.insert(path->steps).second)
      reader.Fail(fmt::format("column '{}' names a member that another column names", column),
                  ExitCode::kUsage);
    paths_.push_back(std::move(*path));
  }
}

std::optional<MemberPath> ColumnPaths::PathOf(const std::string& column,
                                              const std::vector<MemberPath>& all) const {
  for (const MemberPath& path : all) {
    if (EqualIgnoringCase(path.title, column)) return path;
  }
  try {
    auto paths = ParsePath(column, row_);
    if (paths.size() == 1 && !paths.front().steps.empty()) return std::move(paths.front());
  } catch (const Failure&) {
    // The path leads nowhere; as the name of a column that is told with its line.
  }
  return std::nullopt;
}

std::vector<MemberPath> AbsentMembers(const DefinitionPtr& row, const std::vector<MemberPath>& columns) {
  std::vector<MemberPath> absent = AllPaths(row);
  std::erase_if(absent, [&](const MemberPath& path) {
    return std::any_of(columns.begin(), columns.end(), [&](const MemberPath& column) {
      return column.steps.size() >= path.steps.size() &&
             std::equal(path.steps.begin(), path.steps.end(), column.steps.begin());
    });
  });
  return absent;
}

}  // namespace halyard::tool
