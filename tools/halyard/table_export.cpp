#include "tools/halyard/table_export.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/halyard/counts.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/json.h"
#include "tools/halyard/rows.h"

namespace halyard::tool {
namespace {

constexpr char kEncodingRemedy[] =
    "has no place in this encoding; --table-encoding utf-8 has one for every text";

std::string CellText(const Node& node, const ColumnForm& form) {
  return node.HasChildren() ? Dumped(JsonOf(node)) : form.Text(node);
}

}  // namespace

TableExport::TableExport(Output& output, const TableOptions& options, const std::vector<std::string>& members)
    : writer_(output, options.delimiter, options.form), options_(options), members_(members) {}

void TableExport::Definition(const DefinitionPtr& definition, bool is_chosen) {
  if (definition_) return;
  if (const auto notes = TableNotes::Of(*definition)) {
    notes_ = *notes;
    if (notes_.has_bare_line_feeds) writer_.UseBareLineFeeds();
  } else if (is_chosen && RowDefinition(definition)->type == kStructure) {
    likely_.push_back(definition);
  }
}

void TableExport::Finish() {
  if (!definition_ && likely_.size() == 1) Begin(likely_.front());
}

void TableExport::Begin(const DefinitionPtr& definition) {
  definition_ = definition;
  likely_.clear();
  const std::vector<MemberPath> all = AllPaths(RowDefinition(definition));
  for (const std::string& member : members_) {
    for (MemberPath& path : ParsePath(member, definition)) paths_.push_back(std::move(path));
  }
  if (members_.empty()) paths_ = all;
  for (const MemberPath& path : paths_) {
    const auto same = [&](const MemberPath& other) { return other.steps == path.steps; };
    const auto place = std::find_if(all.begin(), all.end(), same);
    forms_.push_back(place == all.end() ? ColumnForm{}
                                        : notes_.FormOf(static_cast<LONG>(place - all.begin())));
  }
  if (!options_.has_no_header) WriteHeader();
}

void TableExport::WriteHeader() {
  for (const MemberPath& path : paths_) {
    if (!writer_.Text(path.title)) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("the name of the column '{}' {}", path.title, kEncodingRemedy));
    }
  }
  writer_.EndRow();
}

void TableExport::Value(const std::string& file, const Record& record, const DecodedUnit& unit) {
  if (!definition_) Begin(unit.definition);
  if (unit.definition != definition_) {
    throw Failure(
        ExitCode::kUsage,
        fmt::format(
            "{}: offset {}, record {}: a value of {} follows values of {}, and a table has one kind of "
            "rows; choose one with --definition or --records",
            file, Grouped(record.offset), Grouped(record.number), unit.definition->Title(),
            definition_->Title()));
  }
  const Rows rows(unit.value, *unit.definition);
  for (LONG i = 0; i < rows.Count(); ++i) {
    const Node row = rows.Row(i);
    for (std::size_t column = 0; column < paths_.size(); ++column) {
      const Node node = Follow(row, paths_[column]);
      if (node.IsNull()) {
        writer_.Missing();
      } else if (!writer_.Text(CellText(node, forms_[column]))) {
        throw Failure(ExitCode::kUsage,
                      fmt::format("{}: offset {}, record {}: a text of {} {}", file, Grouped(record.offset),
                                  Grouped(record.number), paths_[column].title, kEncodingRemedy));
      }
    }
    writer_.EndRow();
  }
}

ExitCode ExportTable(const std::string& file, const Selection& selection, const TableOptions& options,
                     const std::vector<std::string>& members, Output& output, bool shows_progress) {
  TableExport table(output, options, members);
  ValueHandlers handlers;
  handlers.definition = [&](const DefinitionPtr& definition) {
    table.Definition(definition, selection.HasDefinition(*definition));
  };
  handlers.value = [&](const Record& record, const DecodedUnit& unit) { table.Value(file, record, unit); };
  handlers.finish = [&] {
    table.Finish();
    output.Flush();
  };
  return ReadValues(file, selection, shows_progress, handlers);
}

}  // namespace halyard::tool
