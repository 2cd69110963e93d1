// Looks at the rows of a table and finds the types of its columns.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "tools/halyard/column_guess.h"
#include "tools/halyard/csv_reader.h"
#include "tools/halyard/forced_types.h"

namespace halyard::tool {

class TableGuess {
 public:
  // Types given by a person, as "Price=Real", go before those that are found; columns of
  // at most `most_elements` different texts become enumerations.
  TableGuess(const std::vector<std::string>& types, std::size_t most_elements)
      : forced_(types), most_elements_(most_elements) {}

  // The columns, before the first row.
  void Begin(const std::vector<std::string>& columns, const CsvReader& reader);

  // Throws Failure, through the reader, where the row has another number of fields.
  void Row(const CsvRow& row, const CsvReader& reader);

  [[nodiscard]] const std::vector<std::string>& columns() const noexcept { return columns_; }

  // Whether the table ends its lines with a line feed alone.
  [[nodiscard]] bool has_bare_line_feeds() const noexcept { return has_bare_line_feeds_; }

  // The types of the columns; `remark` gets a sentence about each that people may want
  // otherwise. `table` is what the table is called there.
  std::vector<ColumnType> Types(const std::string& table,
                                const std::function<void(const std::string&)>& remark);

 private:
  ForcedTypes forced_;
  std::size_t most_elements_;
  std::vector<std::string> columns_;
  std::vector<ColumnGuess> guesses_;
  bool has_bare_line_feeds_ = false;
};

}  // namespace halyard::tool
