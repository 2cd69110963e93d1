#include "tools/halyard/csv_writer.h"

#include <algorithm>

#include "tools/halyard/unicode.h"

namespace halyard::tool {

CsvWriter::CsvWriter(Output& output, char delimiter, TextForm form)
    : output_(output), delimiter_(delimiter), form_(form) {}

void CsvWriter::Separate() {
  if (!is_first_) row_ += delimiter_;
  is_first_ = false;
}

bool CsvWriter::Text(std::string_view utf8) {
  const auto bytes = Encoded(utf8, form_);
  if (!bytes) return false;
  Separate();
  const auto needs_quotes = [this](char c) { return c == '"' || c == '\r' || c == '\n' || c == delimiter_; };
  // An empty text in quotes is told from a missing value, and a text that begins with the
  // mark of a file from that mark.
  if (!bytes->empty() && !bytes->starts_with(kByteOrderMark) &&
      std::none_of(bytes->begin(), bytes->end(), needs_quotes)) {
    row_ += *bytes;
    return true;
  }
  row_ += '"';
  for (const char c : *bytes) {
    if (c == '"') row_ += '"';
    row_ += c;
  }
  row_ += '"';
  return true;
}

void CsvWriter::Missing() { Separate(); }

void CsvWriter::EndRow() {
  row_ += line_end_;
  output_.Write(row_);
  row_.clear();
  is_first_ = true;
}

}  // namespace halyard::tool
