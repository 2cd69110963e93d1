// Text in aligned columns, in pages: the widths of a page follow from its rows and from
// those before, so that a table of any length needs the memory of one page.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/output.h"
#include "tools/halyard/style.h"

namespace halyard::tool {

struct Column {
  std::string title;
  bool is_number = false;  // stands to the right
};

class Table {
 public:
  // Cells are cut to `widest` columns; 0 leaves them whole.
  Table(Output& output, const Style& style, std::vector<Column> columns, std::size_t widest = 0);

  // A row of printable texts, one for each column.
  void Add(std::vector<std::string> cells);

  // Prints what is still held back.
  void Finish();

 private:
  void PrintPage();
  void PrintRow(const std::vector<std::string>& cells, bool is_title);

  Output& output_;
  const Style& style_;
  std::vector<Column> columns_;
  std::size_t widest_;
  std::vector<std::size_t> widths_;
  std::vector<std::vector<std::string>> page_;
  std::size_t page_bytes_ = 0;
  bool has_titles_ = false;
};

}  // namespace halyard::tool
