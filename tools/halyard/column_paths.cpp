#include "tools/halyard/column_paths.h"

#include <fmt/format.h>

#include "tools/halyard/ascii.h"
#include "tools/halyard/failure.h"

namespace halyard::tool {

void ColumnPaths::Begin(const std::vector<std::string>& columns, const CsvReader& reader) {
  const std::vector<MemberPath> all = AllPaths(row_);
  if (has_no_header_) {
    if (columns.size() != all.size()) {
      reader.Fail(fmt::format("there are {} fields instead of {}", columns.size(), all.size()));
    }
    paths_ = all;
    return;
  }
  for (const std::string& column : columns) paths_.push_back(PathOf(column, all));
}

MemberPath ColumnPaths::PathOf(const std::string& column, const std::vector<MemberPath>& all) const {
  for (const MemberPath& path : all) {
    if (EqualIgnoringCase(path.title, column)) return path;
  }
  auto paths = ParsePath(column, row_);
  if (paths.size() != 1 || paths.front().steps.empty()) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("the column '{}' names no single member of {}", column, row_->Title()));
  }
  return std::move(paths.front());
}

}  // namespace halyard::tool
