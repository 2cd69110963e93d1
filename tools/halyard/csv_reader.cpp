#include "tools/halyard/csv_reader.h"

#include <fmt/format.h>

#include "tools/halyard/ascii.h"
#include "tools/halyard/counts.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

constexpr int kEnd = -1;
constexpr std::size_t kStep = std::size_t{1} << 16;
constexpr std::size_t kLongestField = 1'000'000;  // far beyond the texts of a file
constexpr std::size_t kMostFields = 65535;        // members that a structure can have

bool IsUtf8(std::string_view text) {
  if (IsAscii(text)) return true;
  while (!text.empty()) {
    if (!TakeCharacter(text)) return false;
  }
  return true;
}

}  // namespace

CsvReader::CsvReader(Input& input, char delimiter, TextForm form)
    : input_(input), delimiter_(delimiter), form_(form), buffer_(kStep) {
  SkipByteOrderMark();
}

void CsvReader::SkipByteOrderMark() {
  Peek();
  const std::string_view begin(reinterpret_cast<const char*>(buffer_.data()), end_);
  if (form_ == TextForm::kUtf8 && begin.starts_with(kByteOrderMark)) next_ = kByteOrderMark.size();
}

int CsvReader::Peek() {
  if (next_ == end_) {
    next_ = 0;
    end_ = input_.Read(buffer_);
    if (end_ == 0) return kEnd;
  }
  return buffer_[next_];
}

int CsvReader::Take() {
  const int c = Peek();
  if (c != kEnd) ++next_;
  if (c == '\n') ++next_line_;
  return c;
}

bool CsvReader::Next(CsvRow& row) {
  line_ = next_line_;
  row.clear();
  if (Peek() == kEnd) return false;
  for (;;) {
    if (row.size() == kMostFields) Fail("there are more than 65,535 fields; is the delimiter right?");
    TakeField(row.emplace_back());
    const int c = Peek();
    if (c == kEnd) return true;
    if (c == static_cast<unsigned char>(delimiter_)) {
      Take();
    } else {
      TakeLineEnd();
      return true;
    }
  }
}

void CsvReader::TakeLineEnd() {
  const bool has_return = Take() == '\r';
  if (has_return && Peek() == '\n') Take();
  if (!has_line_end_) has_bare_line_feeds_ = !has_return;
  has_line_end_ = true;
}

void CsvReader::TakeField(CsvField& field) {
  std::string bytes;
  if (Peek() == '"') {
    field.is_quoted = true;
    TakeQuoted(bytes);
  } else {
    for (int c = Peek(); c != kEnd && c != '\r' && c != '\n' && c != static_cast<unsigned char>(delimiter_);
         c = Peek()) {
      bytes.push_back(static_cast<char>(Take()));
      CheckLength(bytes);
    }
  }
  if (bytes.find('\0') != std::string::npos) Fail("there is a zero byte in a text; is this a table?");
  if (form_ == TextForm::kUtf8 && !IsUtf8(bytes)) {
    Fail("a text is not UTF-8; is --table-encoding windows-1252 right?");
  }
  field.text = form_ == TextForm::kUtf8 ? std::move(bytes) : Decoded(bytes, form_);
}

void CsvReader::TakeQuoted(std::string& bytes) {
  Take();
  for (;;) {
    const int c = Take();
    if (c == kEnd) Fail("a quoted field has no closing quote");
    if (c == '"') {
      if (Peek() != '"') break;
      Take();
    }
    bytes.push_back(static_cast<char>(c));
    CheckLength(bytes);
  }
  const int next = Peek();
  const bool is_field_end =
      next == kEnd || next == '\r' || next == '\n' || next == static_cast<unsigned char>(delimiter_);
  if (!is_field_end) Fail("there is text behind the closing quote of a field");
}

void CsvReader::CheckLength(const std::string& bytes) const {
  if (bytes.size() > kLongestField) {
    Fail("a field is longer than a million bytes; is a closing quote missing?");
  }
}

void CsvReader::RequireFields(std::size_t count, std::size_t wanted) const {
  if (count != wanted)
    Fail(fmt::format("{} instead of {}; is the delimiter right?", Counted(count, "field"), Grouped(wanted)));
}

void CsvReader::Fail(const std::string& what, ExitCode code) const {
  throw Failure(code, fmt::format("{}: line {}: {}", input_.name(), Grouped(line_), what));
}

}  // namespace halyard::tool
