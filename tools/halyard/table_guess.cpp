#include "tools/halyard/table_guess.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>

#include "tools/halyard/ascii.h"

namespace halyard::tool {
namespace {

// The first name that an earlier column has as well, as member paths compare names; null
// where there is none.
const std::string* DoubledName(const std::vector<std::string>& columns) {
  std::set<std::string> known;
  for (const std::string& column : columns) {
    std::string folded = column;
    std::transform(folded.begin(), folded.end(), folded.begin(), FoldCase);
    if (!known.insert(std::move(folded)).second) return &column;
  }
  return nullptr;
}

}  // namespace

void TableGuess::Begin(const std::vector<std::string>& columns, const CsvReader& reader) {
  columns_ = columns;
  has_bare_line_feeds_ = reader.has_bare_line_feeds();
  guesses_.assign(columns.size(), ColumnGuess(most_elements_));
}

void TableGuess::Row(const CsvRow& row, const CsvReader& reader) {
  reader.RequireFields(row.size(), guesses_.size());
  for (std::size_t i = 0; i < row.size(); ++i) guesses_[i].Take(row[i]);
}

std::vector<ColumnType> TableGuess::Types(const std::string& table,
                                          const std::function<void(const std::string&)>& remark) {
  std::vector<ColumnType> types;
  for (std::size_t i = 0; i < guesses_.size(); ++i) {
    ColumnType type = guesses_[i].Result();
    if (!forced_.Apply(columns_[i], type) && !type.remark.empty()) {
      remark(fmt::format("{}: column {}: {}; --type '{}={}' decides otherwise", table, columns_[i],
                         type.remark, columns_[i], type.odd_type));
    }
    types.push_back(std::move(type));
  }
  forced_.RequireUsed(table);
  if (const std::string* doubled = DoubledName(columns_)) {
    remark(
        fmt::format("{}: several columns are called '{}'; --member reaches only the first", table, *doubled));
  }
  return types;
}

}  // namespace halyard::tool
