// export: members of all values as a table, or one of them as raw numbers.
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <memory>

#include "tools/halyard/client.h"
#include "tools/halyard/number_export.h"
#include "tools/halyard/output.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/table_export.h"
#include "tools/halyard/value_stream.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::string file;
  std::string output = kStandardStream;
  Selection selection;
  std::vector<std::string> members;
  TableOptions table;
  std::string number_type;
};

ExitCode ExportNumbers(const Options& options, Output& output, bool shows_progress) {
  NumberExport numbers(output, options.members, options.number_type);
  ValueHandlers handlers;
  handlers.value = [&](const Record& record, const DecodedUnit& unit) {
    numbers.Value(options.file, record, unit);
  };
  handlers.finish = [&] {
    numbers.Finish();
    output.Flush();
  };
  return ReadValues(options.file, options.selection, shows_progress, handlers);
}

ExitCode Run(const Options& options) {
  if (!options.number_type.empty()) RequireNoTerminal(options.output);
  Output output(options.output);
  const bool shows_progress = options.output != kStandardStream || !IsTerminal(kStandardOutput);
  const ExitCode code = options.number_type.empty()
                            ? ExportTable(options.file, options.selection, options.table, options.members,
                                          output, shows_progress)
                            : ExportNumbers(options, output, shows_progress);
  output.Finish();
  return code;
}

}  // namespace

Verb AddExport(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(
      program, "export", "Write members to a table of comma-separated values, or to a file of raw numbers",
      {{"halyard export soundings.orm -o soundings.csv", "all members; nested ones by their path"},
       {"halyard export -m Depth -m Position.X soundings.orm", "two columns, on standard output"},
       {"halyard export --raw Real -m Depth soundings.orm -o depth.f64",
        "one number of 8 bytes for each value"}});
  command.Need({"FILE", "", "The file, or - for standard input"}, options->file);
  command.Option({"-o,--output", "OUT", "The new file; standard output unless given"}, options->output);
  options->selection.AddOptions(command);
  command.Option(
      {"-m,--member", "PATH",
       "Only this member, by its path (Depth, Position.X, Samples[3]); may be given several times"},
      options->members);
  command.Option({"--raw", "TYPE",
                  fmt::format("Little-endian numbers of this type instead of a table: {}",
                              fmt::join(NumberTypeNames(), ", "))},
                 options->number_type);
  options->table.AddOptions(command);
  command.Exclude("--raw", {"--delimiter", "--no-header", "--table-encoding"});
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
