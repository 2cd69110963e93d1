// import: a table of comma-separated values becomes a file of units. The table is read
// twice: first for the types of its columns, then for its rows.
#include <fmt/format.h>

#include <filesystem>
#include <memory>

#include "tools/halyard/client.h"
#include "tools/halyard/column_paths.h"
#include "tools/halyard/csv_reader.h"
#include "tools/halyard/output.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/row_builder.h"
#include "tools/halyard/rows.h"
#include "tools/halyard/table_definition.h"
#include "tools/halyard/table_guess.h"
#include "tools/halyard/table_notes.h"
#include "tools/halyard/table_options.h"
#include "tools/halyard/unit_writer.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::string table;
  std::string output;
  TableOptions form;
  std::string name;
  std::string like;
  Selection definition;  // in the other file
  std::vector<std::string> types;
  std::uint64_t most_elements = 0;
  bool as_array = false;
};

// What the first reading finds.
struct Plan {
  DefinitionPtr definition;  // of the records
  std::vector<MemberPath> columns;
  std::optional<TableNotes> notes;
};

class Import {
 public:
  explicit Import(const Options& options) : options_(options), input_(options.table) {
    input_.MakeSeekable();
  }

  ExitCode Run();

 private:
  template <class Target>
  void ReadRows(const std::string& what, Target& target);
  std::vector<std::string> Columns(const CsvRow& first) const;
  [[nodiscard]] std::string TableName() const;
  Plan PlanByGuess();
  Plan PlanLike();
  void Write(const Plan& plan);

  const Options& options_;
  Input input_;
};

// Reads the table from its beginning: the columns come with the first row, then each row
// with the reader that knows its line. Lines with nothing in them are no rows, unless the
// table has only one column.
template <class Target>
void Import::ReadRows(const std::string& what, Target& target) {
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

std::vector<std::string> Import::Columns(const CsvRow& first) const {
  std::vector<std::string> columns;
  for (std::size_t i = 0; i < first.size(); ++i) {
    columns.push_back(options_.form.has_no_header ? fmt::format("Column{}", i + 1) : first[i].text);
  }
  return columns;
}

std::string Import::TableName() const {
  if (!options_.name.empty()) return options_.name;
  if (options_.table == kStandardStream) return "Table";
  const std::filesystem::path path(std::u8string(options_.table.begin(), options_.table.end()));
  const std::u8string stem = path.stem().u8string();
  return {stem.begin(), stem.end()};
}

Plan Import::PlanByGuess() {
  TableGuess guesses(options_.types, options_.most_elements);
  ReadRows("look at", guesses);
  const std::vector<ColumnType> types = guesses.Types(input_.name());
  const Ptr<IValueDefBase> row = DefineRows(TableName(), guesses.columns(), types);
  Plan plan;
  plan.definition = ViewOfDefinition(options_.as_array ? DefineArray(TableName(), row) : row);
  plan.columns = AllPaths(RowDefinition(plan.definition));
  TableNotes notes;
  notes.has_bare_line_feeds = guesses.has_bare_line_feeds();
  for (std::size_t i = 0; i < types.size(); ++i) {
    const bool is_number_or_date = types[i].type == kReal || types[i].type == kDate;
    if (is_number_or_date && types[i].form != ColumnForm{})
      notes.columns[static_cast<LONG>(i)] = types[i].form;
  }
  if (!notes.IsEmpty()) plan.notes = std::move(notes);
  return plan;
}

Plan Import::PlanLike() {
  Plan plan;
  plan.definition = TakeDefinition(options_.like, options_.definition);
  if (options_.as_array && plan.definition->type != kArray) {
    plan.definition = ViewOfDefinition(DefineArray(plan.definition->name, plan.definition->object));
  }
  const DefinitionPtr row = RowDefinition(plan.definition);
  if (row->type != kStructure || (plan.definition->type == kArray && plan.definition->element_count != 0)) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}: rows of a table can become structures, or arrays of any number of "
                              "them, and {} is {}",
                              options_.like, plan.definition->Title(), plan.definition->TypeText()));
  }
  ColumnPaths columns(row, options_.form.has_no_header);
  ReadRows("look at", columns);
  plan.columns = columns.Take();
  return plan;
}

// Writes rows as they come, each a record, or gathers them in one array.
class RowWriter {
 public:
  RowWriter(const Plan& plan, UnitWriter& writer)
      : builder_(RowDefinition(plan.definition), plan.columns), writer_(writer) {
    if (plan.definition->type != kArray) return;
    Check(plan.definition->object->CreateDataObject(array_.Out()), plan.definition->object);
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

void Import::Write(const Plan& plan) {
  Output output(options_.output);
  UnitWriter writer(output);
  if (plan.notes) writer.Definition(plan.notes->Definition());
  writer.Definition(plan.definition->object);
  RowWriter rows(plan, writer);
  ReadRows("import", rows);
  rows.Finish();
  input_.Close();
  output.Finish();
}

ExitCode Import::Run() {
  Write(options_.like.empty() ? PlanByGuess() : PlanLike());
  return ExitCode::kFine;
}

ExitCode RunImport(const Options& options) {
  if (!options.like.empty() && (!options.types.empty() || options.most_elements != 0)) {
    throw Failure(ExitCode::kUsage,
                  "--like takes the types from the other file; --type and --enumerations say otherwise");
  }
  return Import(options).Run();
}

}  // namespace

Verb AddImport(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(
      program, "import", "Make a file of units from a table of comma-separated values",
      {{"halyard import soundings.csv -o soundings.orm", "a record for each row, types from the texts"},
       {"halyard import --type Price=Real --enumerations 20 stock.csv -o stock.orm",
        "one type given; columns of at most 20 different texts become enumerations"},
       {"halyard import --like old.orm new.csv -o new.orm",
        "the definition of another file; columns name its members"}});
  command.Need({"TABLE", "", "The table, or - for standard input"}, options->table);
  command.NeedOption({"-o,--output", "OUT", "The new file, or - for standard output"}, options->output);
  command.Option({"--name", "NAME", "The name of the definition; that of the table unless given"},
                 options->name);
  command.Option({"--type", "COLUMN=TYPE", "The type of a column, as Price=Real or Code=FixedString(8)"},
                 options->types);
  command.Option({"--enumerations", "N", "Make enumerations of columns with at most N different texts"},
                 options->most_elements);
  command.Flag({"--array", "", "One array value that holds all rows, instead of a record for each"},
               options->as_array);
  command.Option({"--like", "FILE", "Take the definition from this file"}, options->like);
  options->definition.AddDefinitionOption(command, "The definition of that name or id in the file of --like");
  options->form.AddOptions(command);
  return {command, [options] { return RunImport(*options); }};
}

}  // namespace halyard::tool
