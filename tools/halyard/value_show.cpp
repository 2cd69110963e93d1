#include "tools/halyard/value_show.h"

#include <fmt/format.h>

#include "tools/halyard/json.h"
#include "tools/halyard/member_path.h"
#include "tools/halyard/rows.h"
#include "tools/halyard/table.h"
#include "tools/halyard/unicode.h"
#include "tools/halyard/value_tree.h"

namespace halyard::tool {
namespace {

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

class ShowJson : public ValueShow {
 public:
  ShowJson(Output& output, const std::vector<std::string>& members) : output_(output), parts_(members) {}

  void Value(const Record&, const DecodedUnit& unit) override {
    parts_.Take(unit.definition);
    const Node node(unit.value, *unit.definition);
    if (parts_.paths().empty()) {
      output_.Write(Dumped(JsonOf(node)) + "\n");
      return;
    }
    const Rows rows(unit.value, *unit.definition);
    if (unit.definition->type != kArray) {
      output_.Write(Dumped(RowJson(rows.Row(0))) + "\n");
      return;
    }
    Json document = Json::array();
    for (LONG i = 0; i < rows.Count(); ++i) document.push_back(RowJson(rows.Row(i)));
    output_.Write(Dumped(document) + "\n");
  }

 private:
  Json RowJson(const Node& row) const {
    Json document = Json::object();
    for (const MemberPath& path : parts_.paths()) document[path.title] = JsonOf(Follow(row, path));
    return document;
  }

  Output& output_;
  Parts parts_;
};

class ShowTree : public ValueShow {
 public:
  ShowTree(Output& output, const Style& style, const std::vector<std::string>& members)
      : output_(output), style_(style), parts_(members) {}

  void Value(const Record& record, const DecodedUnit& unit) override {
    parts_.Take(unit.definition);
    if (parts_.paths().empty()) {
      WriteTitle(fmt::to_string(record.number), *unit.definition);
      WriteTree(output_, style_, Node(unit.value, *unit.definition));
      return;
    }
    const Rows rows(unit.value, *unit.definition);
    for (LONG i = 0; i < rows.Count(); ++i) {
      WriteTitle(rows.Label(record.number, i), *unit.definition);
      const Node row = rows.Row(i);
      for (const MemberPath& path : parts_.paths())
        WriteBranch(output_, style_, path.title, Follow(row, path), &path == &parts_.paths().back());
    }
  }

 private:
  void WriteTitle(const std::string& label, const DefinitionView& definition) {
    output_.Write(
        fmt::format("{} {}\n", style_.Quiet(label + ":"), style_.Title(Printable(definition.Title()))));
  }

  Output& output_;
  const Style& style_;
  Parts parts_;
};

class ShowTable : public ValueShow {
 public:
  ShowTable(Output& output, const Style& style, const std::vector<std::string>& members, std::size_t widest)
      : output_(output), style_(style), parts_(members), widest_(widest) {}

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
    parts_.Take(definition);
    paths_ = parts_.paths().empty() ? AllPaths(RowDefinition(definition)) : parts_.paths();
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

}  // namespace

std::unique_ptr<ValueShow> ShowAsJson(Output& output, const std::vector<std::string>& members) {
  return std::make_unique<ShowJson>(output, members);
}

std::unique_ptr<ValueShow> ShowAsTrees(Output& output, const Style& style,
                                       const std::vector<std::string>& members) {
  return std::make_unique<ShowTree>(output, style, members);
}

std::unique_ptr<ValueShow> ShowAsTable(Output& output, const Style& style,
                                       const std::vector<std::string>& members, std::size_t widest) {
  return std::make_unique<ShowTable>(output, style, members, widest);
}

}  // namespace halyard::tool
