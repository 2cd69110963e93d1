// Reads a table of comma-separated values (RFC 4180) row by row: quoted fields, doubled
// quotes, line ends of either kind, also inside quotes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tools/halyard/failure.h"
#include "tools/halyard/input.h"
#include "tools/halyard/text.h"

namespace halyard::tool {

struct CsvField {
  std::string text;        // UTF-8
  bool is_quoted = false;  // "" is an empty text, nothing at all is no value

  [[nodiscard]] bool IsMissing() const noexcept { return text.empty() && !is_quoted; }
};

using CsvRow = std::vector<CsvField>;

class CsvReader {
 public:
  // `form` is that of the table's bytes. The input is not owned.
  CsvReader(Input& input, char delimiter, TextForm form);

  // The next row; false at the end. Lines with nothing in them count as rows of one
  // missing field. Throws Failure (the file has faults) for broken quoting, texts that are
  // not of the form, and fields that nothing can hold.
  bool Next(CsvRow& row);

  // The line on which the row of the last call began, 1 for the first.
  [[nodiscard]] std::uint64_t line() const noexcept { return line_; }

  // Whether the first line ended in a line feed alone.
  [[nodiscard]] bool has_bare_line_feeds() const noexcept { return has_bare_line_feeds_; }

  // Throws Failure with file, line and fault.
  [[noreturn]] void Fail(const std::string& what, ExitCode code = ExitCode::kFaults) const;

  // Fails where the row has another number of fields than it must have.
  void RequireFields(std::size_t count, std::size_t wanted) const;

 private:
  int Peek();
  int Take();
  void TakeField(CsvField& field);
  void TakeQuoted(std::string& bytes);
  void CheckLength(const std::string& bytes) const;
  void TakeLineEnd();
  void SkipByteOrderMark();

  Input& input_;
  char delimiter_;
  TextForm form_;
  std::vector<unsigned char> buffer_;
  std::size_t next_ = 0;
  std::size_t end_ = 0;
  std::uint64_t line_ = 0;
  std::uint64_t next_line_ = 1;
  bool has_line_end_ = false;  // one was met
  bool has_bare_line_feeds_ = false;
};

}  // namespace halyard::tool
