#include <algorithm>
#include <iterator>
#include <optional>
#include <string>

#include "halyard/platform/narrow_text.h"
#include "tests/fuzz/support/input.h"
#include "tests/fuzz/support/memory_bound.h"
#include "tests/fuzz/support/memory_file.h"
#include "tests/fuzz/support/promise.h"
#include "tests/fuzz/targets.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/table_export.h"
#include "tools/halyard/table_import.h"

namespace halyard::fuzz {
namespace {

using tool::TextForm;

constexpr TextForm kForms[] = {TextForm::kUtf8, TextForm::kWindows1252, TextForm::kLatin1};
constexpr char kDelimiters[] = {',', ';', '\t', '|', ' ', '.', '1', '-'};
constexpr const char* kTypes[] = {"String", "FixedString(3)", "Char",  "Byte",      "Short", "Word",
                                  "Long",   "DWord",          "Int64", "ShortReal", "Real",  "Date"};

// How a table is imported, as the first bytes of the input say.
struct Choices {
  tool::ImportOptions options;
  TextForm file_form;
};

Choices ChooseFrom(Input& input) {
  const std::uint8_t forms = input.Byte();
  const std::uint8_t table = input.Byte();
  const std::uint8_t type = input.Byte();
  Choices choices;
  choices.file_form = kForms[forms / 4 % 3];
  choices.options.form.form = kForms[forms % 4 % 3];
  choices.options.form.has_no_header = (forms & 0x40) != 0;
  choices.options.as_array = (forms & 0x80) != 0;
  choices.options.form.delimiter = kDelimiters[table % 8];
  choices.options.most_elements = table / 8 % 4;
  choices.options.name = "Table";
  if (type < std::size(kTypes)) choices.options.types = {std::string("Column1=") + kTypes[type]};
  return choices;
}

// The file of units that the table becomes; none where it is refused.
std::optional<Bytes> Imported(const tool::ImportOptions& options, const MemoryFile& table) {
  const MemoryFile file;
  try {
    tool::Input input(table.Name());
    tool::TableImport import(options, input, [](const std::string&) {});
    import.Plan();
    tool::Output output(file.NewHandle(), "units");
    import.Write(output);
    output.Finish();
  } catch (const tool::Failure& failure) {
    Hold(failure.code() != tool::ExitCode::kInputOutput, "a table that can be read is imported or refused");
    return std::nullopt;
  }
  return file.Content();
}

// The table that the file of units becomes.
Bytes Exported(const tool::ImportOptions& options, const MemoryFile& units) {
  const MemoryFile table;
  tool::Output output(table.NewHandle(), "table");
  const auto code = tool::ExportTable(units.Name(), {}, options.form, {}, output, false);
  Hold(code == tool::ExitCode::kFine, "what was imported can be exported");
  output.Finish();
  return table.Content();
}

// The rows that count: lines with nothing in them do so in a table of one column only.
std::vector<tool::CsvRow> RowsOf(const tool::TableOptions& form, const MemoryFile& table) {
  tool::Input input(table.Name());
  tool::CsvReader reader(input, form.delimiter, form.form);
  std::vector<tool::CsvRow> rows;
  for (tool::CsvRow row; reader.Next(row);) {
    const bool is_blank = row.size() == 1 && row.front().IsMissing();
    if (rows.empty() || rows.front().size() == 1 || !is_blank) rows.push_back(row);
  }
  return rows;
}

// Names of columns are texts, also where there is none between the delimiters.
bool IsSame(const tool::CsvField& a, const tool::CsvField& b, bool is_name) {
  return a.text == b.text && (is_name || a.IsMissing() == b.IsMissing());
}

void CompareTables(const tool::TableOptions& form, const MemoryFile& first, const MemoryFile& second) {
  const auto before = RowsOf(form, first);
  const auto after = RowsOf(form, second);
  Hold(before.size() == after.size(), "a table comes out with the rows that went in");
  for (std::size_t i = 0; i < before.size(); ++i) {
    Hold(before[i].size() == after[i].size(), "a row comes out with the fields that went in");
    for (std::size_t j = 0; j < before[i].size(); ++j) {
      Hold(IsSame(before[i][j], after[i][j], i == 0 && !form.has_no_header),
           "a field comes out as it went in");
    }
  }
}

// The same rows with the definition that the first import made; a file without notes.
void ImportLike(const tool::ImportOptions& options, const MemoryFile& units, const MemoryFile& table) {
  tool::ImportOptions like = options;
  like.types.clear();
  like.most_elements = 0;
  like.like = units.Name();
  const auto again = Imported(like, table);
  Hold(again.has_value(), "a table fits the definition that was made of it");
  constexpr std::size_t kHeader = 8;
  const Bytes all = units.Content();
  Hold(again->size() <= all.size() && std::equal(again->begin() + kHeader, again->end(),
                                                 all.end() - std::ptrdiff_t(again->size() - kHeader)),
       "a table imported by its own definition gives the same records");
}

}  // namespace

void CsvTarget(InputBytes bytes) {
  const MemoryBound bound(bytes.size());
  // As the tool prepares its process: a byte of a narrow text is the character of the same
  // number.
  static const bool prepared = SetNarrowEncoding(NarrowEncoding::kLatin1);
  Hold(prepared, "the targets of the tool have a process of their own");
  Input input(bytes);
  const Choices choices = ChooseFrom(input);
  tool::ChooseTextForm(choices.file_form);
  const MemoryFile table(input.Rest());
  const auto first = Imported(choices.options, table);
  if (!first) return;
  const MemoryFile units(*first);
  const MemoryFile exported(Exported(choices.options, units));
  if (choices.options.types.empty()) CompareTables(choices.options.form, table, exported);
  Hold(Imported(choices.options, exported) == first, "a table that was exported is imported as it was");
  if (choices.options.form.has_no_header) ImportLike(choices.options, units, exported);
}

}  // namespace halyard::fuzz
