// Writes a table of comma-separated values as RFC 4180 has it.
#pragma once

#include <string>
#include <string_view>

#include "tools/halyard/output.h"
#include "tools/halyard/text.h"

namespace halyard::tool {

class CsvWriter {
 public:
  // `form` is that of the table's bytes. The output is not owned.
  CsvWriter(Output& output, char delimiter, TextForm form);

  // Ends lines with a line feed alone instead of carriage return and line feed.
  void UseBareLineFeeds() noexcept { line_end_ = "\n"; }

  // The next field of the row: a text (UTF-8), in quotes where that is needed to read it
  // back, or a missing value. False where a character has no place in the form.
  [[nodiscard]] bool Text(std::string_view utf8);
  void Missing();
  void EndRow();

 private:
  void Separate();

  Output& output_;
  char delimiter_;
  TextForm form_;
  std::string_view line_end_ = "\r\n";
  std::string row_;
  bool is_first_ = true;
};

}  // namespace halyard::tool
