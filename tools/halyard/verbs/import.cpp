// import: a table of comma-separated values becomes a file of units.
#include <filesystem>
#include <memory>

#include "tools/halyard/column_guess.h"
#include "tools/halyard/table_import.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::string table;
  std::string output;
  ImportOptions import;
};

// The table's name without folder and ending.
std::string TableName(const std::string& table) {
  if (table == kStandardStream) return "Table";
  const std::filesystem::path path(std::u8string(table.begin(), table.end()));
  const std::u8string stem = path.stem().u8string();
  return {stem.begin(), stem.end()};
}

ExitCode RunImport(const Options& options) {
  ImportOptions wanted = options.import;
  RequireOneStandardInput({options.table, wanted.like});
  RequireNoTerminal(options.output);
  if (wanted.name.empty()) wanted.name = TableName(options.table);
  Input input(options.table);
  input.MakeSeekable();
  TableImport import(wanted, input, Remark);
  import.Plan();
  Output output(options.output);
  import.Write(output);
  input.Close();
  output.Finish();
  return ExitCode::kFine;
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
                 options->import.name);
  command.Option({"--type", "COLUMN=TYPE", "The type of a column, as Price=Real or Code=FixedString(8)"},
                 options->import.types);
  command.Option(
      {"--enumerations", "N", "Make enumerations of columns with at most N different texts (65,535 at most)"},
      options->import.most_elements, kMostElements);
  command.Flag({"--array", "", "One array value that holds all rows, instead of a record for each"},
               options->import.as_array);
  command.Option({"--like", "FILE", "Take the definition from this file"}, options->import.like);
  options->import.definition.AddDefinitionOption(command,
                                                 "The definition of that name or id in the file of --like");
  options->import.form.AddOptions(command);
  // Names and types come from the file of --like.
  command.Exclude("--like", {"--name", "--type", "--enumerations"});
  command.Require("--definition", "--like");
  return {command, [options] { return RunImport(*options); }};
}

}  // namespace halyard::tool
