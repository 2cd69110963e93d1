#include "tools/halyard/table_guess.h"

#include <fmt/format.h>

namespace halyard::tool {

void TableGuess::Begin(const std::vector<std::string>& columns, const CsvReader& reader) {
  columns_ = columns;
  has_bare_line_feeds_ = reader.has_bare_line_feeds();
  guesses_.assign(columns.size(), ColumnGuess(most_elements_));
}

void TableGuess::Row(const CsvRow& row, const CsvReader& reader) {
  if (row.size() != guesses_.size()) {
    reader.Fail(fmt::format("there are {} fields instead of {}", row.size(), guesses_.size()));
  }
  for (std::size_t i = 0; i < row.size(); ++i) guesses_[i].Take(row[i]);
}

std::vector<ColumnType> TableGuess::Types(const std::string& table,
                                          const std::function<void(const std::string&)>& remark) {
  std::vector<ColumnType> types;
  for (std::size_t i = 0; i < guesses_.size(); ++i) {
    ColumnType type = guesses_[i].Result();
    if (!forced_.Apply(columns_[i], type) && !type.remark.empty()) {
      remark(fmt::format("{}: column {}: {}; --type '{}=Real' and the like decide otherwise", table,
                         columns_[i], type.remark, columns_[i]));
    }
    types.push_back(std::move(type));
  }
  forced_.RequireUsed(table);
  return types;
}

}  // namespace halyard::tool
