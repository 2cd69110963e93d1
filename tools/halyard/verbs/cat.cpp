// cat: the values of a file as a table, as trees or as JSON.
#include <memory>

#include "tools/halyard/output.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/style.h"
#include "tools/halyard/value_show.h"
#include "tools/halyard/value_stream.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kWidestCell = 40;  // on a terminal

struct Options {
  std::string file;
  Selection selection;
  std::vector<std::string> members;
  bool as_json = false;
  bool as_tree = false;
  bool whole_cells = false;
};

std::unique_ptr<ValueShow> MakeShow(Output& output, const Style& style, const Options& options) {
  if (options.as_json) return ShowAsJson(output, options.members);
  if (options.as_tree) return ShowAsTrees(output, style, options.members);
  const bool cuts_cells = IsTerminal(kStandardOutput) && !options.whole_cells;
  return ShowAsTable(output, style, options.members, cuts_cells ? kWidestCell : 0);
}

ExitCode Run(const Options& options) {
  Output output("-");
  const Style style(kStandardOutput);
  const auto show = MakeShow(output, style, options);
  ValueHandlers handlers;
  handlers.value = [&](const Record& record, const DecodedUnit& unit) { show->Value(record, unit); };
  handlers.finish = [&] {
    show->Finish();
    output.Finish();
  };
  return ReadValues(options.file, options.selection, !IsTerminal(kStandardOutput), handlers);
}

}  // namespace

Verb AddCat(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(
      program, "cat", "Show values as a table, as trees or as JSON",
      {{"halyard cat soundings.orm", "all values, a row each; an array has a row for each element"},
       {"halyard cat -r 2-11 -m Depth -m Position.X soundings.orm", "two members of ten records"},
       {"halyard cat --json soundings.orm | jq .Depth",
        "a JSON document for each value, on a line of its own"}});
  command.Need({"FILE", "", "The file, or - for standard input"}, options->file);
  options->selection.AddOptions(command);
  command.Option(
      {"-m,--member", "PATH",
       "Only this member, by its path (Depth, Position.X, Samples[3]); may be given several times"},
      options->members);
  command.Flag({"--json", "", "A JSON document for each value"}, options->as_json);
  command.Flag({"--tree", "", "A tree for each value"}, options->as_tree);
  command.Flag({"--wide", "", "Cut no cell of the table, also on a terminal"}, options->whole_cells);
  command.Exclude("--tree", {"--json"});
  command.Exclude("--wide", {"--json", "--tree"});
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
