// cat: the values of a file as a table, as trees or as JSON.
#include <fmt/format.h>

#include <memory>

#include "tools/halyard/client.h"
#include "tools/halyard/json.h"
#include "tools/halyard/member_path.h"
#include "tools/halyard/output.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/rows.h"
#include "tools/halyard/style.h"
#include "tools/halyard/table.h"
#include "tools/halyard/unicode.h"
#include "tools/halyard/value_stream.h"
#include "tools/halyard/value_tree.h"
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

// A way of showing values; one of the classes below.
class Show {
 public:
  Show() = default;
  Show(const Show&) = delete;
  Show& operator=(const Show&) = delete;
  virtual ~Show() = default;
  virtual void Value(const Record& record, const DecodedUnit& unit) = 0;
  virtual void Finish() {}
};

// The parts that were asked for, found anew where the definition changes.
class Parts {
 public:
  explicit Parts(const std::vector<std::string>& members) : members_(members) {}

  // Whether the definition is another one than before.
  bool Take(const DefinitionPtr& definition) {
    if (definition == definition_) return false;
    definition_ = definition;
    paths_.clear();
    for (const std::string& member : members_) {
      for (MemberPath& path : ParsePath(member, definition)) paths_.push_back(std::move(path));
    }
    return true;
  }
  [[nodiscard]] const std::vector<MemberPath>& paths() const noexcept { return paths_; }

 private:
  const std::vector<std::string>& members_;
  DefinitionPtr definition_;
  std::vector<MemberPath> paths_;
};

class ShowJson : public Show {
 public:
  ShowJson(Output& output, const Options& options) : output_(output), parts_(options.members) {}

  void Value(const Record&, const DecodedUnit& unit) override {
    parts_.Take(unit.definition);
    const Node node(unit.value, *unit.definition);
    if (parts_.paths().empty()) {
      output_.Write(Dumped(JsonOf(node)) + "\n");
      return;
    }
    Json document = Json::object();
    for (const MemberPath& path : parts_.paths()) document[path.title] = JsonOf(Follow(node, path));
    output_.Write(Dumped(document) + "\n");
  }

 private:
  Output& output_;
  Parts parts_;
};

class ShowTree : public Show {
 public:
  ShowTree(Output& output, const Style& style, const Options& options)
      : output_(output), style_(style), parts_(options.members) {}

  void Value(const Record& record, const DecodedUnit& unit) override {
    parts_.Take(unit.definition);
    const Node node(unit.value, *unit.definition);
    output_.Write(fmt::format("{} {}\n", style_.Quiet(fmt::format("{}:", record.number)),
                              style_.Title(Printable(unit.definition->Title()))));
    if (parts_.paths().empty()) WriteTree(output_, style_, node);
    for (const MemberPath& path : parts_.paths()) WriteTree(output_, style_, path.title, Follow(node, path));
  }

 private:
  Output& output_;
  const Style& style_;
  Parts parts_;
};

class ShowTable : public Show {
 public:
  ShowTable(Output& output, const Style& style, const Options& options)
      : output_(output),
        style_(style),
        parts_(options.members),
        widest_(IsTerminal(kStandardOutput) && !options.whole_cells ? kWidestCell : 0) {}

  void Value(const Record& record, const DecodedUnit& unit) override {
    if (unit.definition != definition_) Begin(unit.definition);
    const Rows rows(unit.value, *unit.definition);
    for (LONG i = 0; i < rows.Count(); ++i) {
      const Node row = rows.Row(i);
      std::vector<std::string> cells = {rows.Label(record.number, i)};
      for (const MemberPath& path : paths_) cells.push_back(Cell(Follow(row, path)));
      table_->Add(std::move(cells));
    }
  }

  void Finish() override {
    if (table_) table_->Finish();
  }

 private:
  void Begin(const DefinitionPtr& definition) {
    Finish();
    if (table_) output_.Write("\n");
    definition_ = definition;
    const DefinitionPtr row = RowDefinition(definition);
    parts_.Take(row);
    paths_ = parts_.paths().empty() ? AllPaths(row) : parts_.paths();
    std::vector<Column> columns = {{"#", true}};
    for (const MemberPath& path : paths_) columns.push_back({path.title, IsNumeric(path.definition->type)});
    output_.Write(style_.Title(Printable(definition->Title())) + "\n");
    table_ = std::make_unique<Table>(output_, style_, std::move(columns), widest_);
  }

  static bool IsNumeric(SHORT type) { return type >= kChar && type <= kReal; }

  static std::string Cell(const Node& node) {
    if (node.IsNull()) return "null";
    return Printable(node.HasChildren() ? Dumped(JsonOf(node)) : node.Text());
  }

  Output& output_;
  const Style& style_;
  Parts parts_;
  std::size_t widest_;
  DefinitionPtr definition_;
  std::vector<MemberPath> paths_;
  std::unique_ptr<Table> table_;
};

std::unique_ptr<Show> MakeShow(Output& output, const Style& style, const Options& options) {
  if (options.as_json) return std::make_unique<ShowJson>(output, options);
  if (options.as_tree) return std::make_unique<ShowTree>(output, style, options);
  return std::make_unique<ShowTable>(output, style, options);
}

ExitCode Run(const Options& options) {
  Output output("-");
  const Style style(kStandardOutput);
  const auto show = MakeShow(output, style, options);
  ValueHandlers handlers;
  handlers.value = [&](const Record& record, const DecodedUnit& unit) { show->Value(record, unit); };
  try {
    const ExitCode code = ReadValues(options.file, options.selection, !IsTerminal(kStandardOutput), handlers);
    show->Finish();
    output.Finish();
    return code;
  } catch (const Failure& failure) {
    // What was read before the file broke off is shown all the same.
    if (failure.code() == ExitCode::kFaults) {
      show->Finish();
      output.Finish();
    }
    throw;
  }
}

}  // namespace

Verb AddCat(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  CLI::App* command = AddCommand(
      program, "cat", "Show values as a table, as trees or as JSON",
      {{"halyard cat soundings.orm", "all values, a row each; an array has a row for each element"},
       {"halyard cat -r 2-11 -m Depth -m Position.X soundings.orm", "two members of ten records"},
       {"halyard cat --json soundings.orm | jq .Depth",
        "a JSON document for each value, on a line of its own"}});
  command->add_option("FILE", options->file, "The file, or - for standard input")->required();
  options->selection.AddOptions(*command);
  command
      ->add_option(
          "-m,--member", options->members,
          "Only this member, by its path (Depth, Position.X, Samples[3]); may be given several times")
      ->type_name("PATH")
      ->allow_extra_args(false);
  auto* json = command->add_flag("--json", options->as_json, "A JSON document for each value");
  command->add_flag("--tree", options->as_tree, "A tree for each value")->excludes(json);
  command->add_flag("--wide", options->whole_cells, "Cut no cell of the table, also on a terminal");
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
