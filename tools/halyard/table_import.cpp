#include "tools/halyard/table_import.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/halyard/client.h"
#include "tools/halyard/column_paths.h"
#include "tools/halyard/counts.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/row_builder.h"
#include "tools/halyard/rows.h"
#include "tools/halyard/table_definition.h"
#include "tools/halyard/table_guess.h"
#include "tools/halyard/unit_writer.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kShownMembers = 5;  // in a remark

// Writes rows as they come, each a record, or gathers them in one array.
class RowWriter {
 public:
  RowWriter(const DefinitionPtr& definition, const std::vector<MemberPath>& columns, UnitWriter& writer)
      : builder_(RowDefinition(definition), columns), writer_(writer) {
    if (definition->type != kArray) return;
    Check(definition->object->CreateDataObject(array_.Out()), definition->object);
  }

  void Begin(const std::vector<std::string>&, const CsvReader&) {}
  void Row(const CsvRow& row, const CsvReader& reader) {
    const Ptr<IValueBase> value = builder_.Build(row, reader);
    if (array_) {
      Check(array_->Add(Variant(static_cast<IDispatch*>(value.get())).get()), array_);
    } else {
      writer_.Value(value);
    }
  }
  void Finish() {
    if (array_) writer_.Value(array_);
  }

 private:
  RowBuilder builder_;
  UnitWriter& writer_;
  Ptr<IValueBase> array_;
};

// What people write otherwise than values show it.
TableNotes NotesOn(const TableGuess& guesses, const std::vector<ColumnType>& types) {
  TableNotes notes;
  notes.has_bare_line_feeds = guesses.has_bare_line_feeds();
  for (std::size_t i = 0; i < types.size(); ++i) {
    const bool is_number_or_date = types[i].type == kReal || types[i].type == kDate;
    if (is_number_or_date && types[i].form != ColumnForm{})
      notes.columns[static_cast<LONG>(i)] = types[i].form;
  }
  return notes;
}

}  // namespace

// Reads the table from its beginning: the columns come with the first row, then each row
// with the reader that knows its line. Lines with nothing in them are no rows, unless the
// table has only one column.
template <class Target>
void TableImport::ReadRows(const std::string& what, Target& target) {
  input_.Seek(0);
  CsvReader reader(input_, options_.form.delimiter, options_.form.form);
  Progress progress(what + " " + input_.name(), input_.size());
  CsvRow row;
  if (!reader.Next(row)) {
    throw Failure(ExitCode::kFaults,
                  input_.name() + ": it is empty; a table begins with the names of its columns");
  }
  const std::vector<std::string> columns = Columns(row);
  target.Begin(columns, reader);
  if (options_.form.has_no_header) target.Row(row, reader);
  while (reader.Next(row)) {
    progress.At(input_.position());
    const bool is_blank = row.size() == 1 && row.front().IsMissing() && columns.size() > 1;
    if (!is_blank) target.Row(row, reader);
  }
}

std::vector<std::string> TableImport::Columns(const CsvRow& first) const {
  std::vector<std::string> columns;
  for (std::size_t i = 0; i < first.size(); ++i) {
    columns.push_back(options_.form.has_no_header ? fmt::format("Column{}", i + 1) : first[i].text);
  }
  return columns;
}

void TableImport::PlanByGuess() {
  TableGuess guesses(options_.types, options_.most_elements);
  ReadRows("look at", guesses);
  const std::vector<ColumnType> types = guesses.Types(input_.name(), remark_);
  const Ptr<IValueDefBase> row = DefineRows(options_.name, guesses.columns(), types);
  definition_ = ViewOfDefinition(options_.as_array ? DefineArray(options_.name, row) : row);
  columns_ = AllPaths(RowDefinition(definition_));
  TableNotes notes = NotesOn(guesses, types);
  if (!notes.IsEmpty()) notes_ = std::move(notes);
}

void TableImport::PlanLike() {
  definition_ = TakeDefinition(options_.like, options_.definition);
  if (options_.as_array && definition_->type != kArray)
    definition_ = ViewOfDefinition(DefineArray(definition_->name, definition_->object));
  const DefinitionPtr row = RowDefinition(definition_);
  if (row->type != kStructure || (definition_->type == kArray && definition_->element_count != 0)) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}: rows of a table can become structures, or arrays of any number of "
                              "them, and {} is {}",
                              options_.like, definition_->Title(), definition_->TypeText()));
  }
  ColumnPaths columns(row, options_.like, options_.form.has_no_header);
  ReadRows("look at", columns);
  columns_ = columns.Take();
  RemarkAbsent(row);
}

// Members that can be null are null where no column fills them. Others hold what nobody wrote.
void TableImport::RemarkAbsent(const DefinitionPtr& row) const {
  std::vector<MemberPath> absent = AbsentMembers(row, columns_);
  std::erase_if(absent, [](const MemberPath& path) { return path.can_be_null; });
  if (absent.empty()) return;
  std::string names;
  for (std::size_t i = 0; i < std::min(absent.size(), kShownMembers); ++i)
    names += (i == 0 ? "" : ", ") + absent[i].title;
  if (absent.size() > kShownMembers)
    names += fmt::format(" and {} more", Grouped(absent.size() - kShownMembers));
  remark_(fmt::format("{}: no column fills {} of {}; they cannot be null and become zero or empty",
                      input_.name(), names, row->Title()));
}

void TableImport::Plan() { options_.like.empty() ? PlanByGuess() : PlanLike(); }

void TableImport::Write(Output& output) {
  UnitWriter writer(output);
  if (notes_) writer.Definition(notes_->Definition());
  writer.Definition(definition_->object);
  RowWriter rows(definition_, columns_, writer);
  ReadRows("import", rows);
  rows.Finish();
}

}  // namespace halyard::tool
