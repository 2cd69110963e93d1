// info: what is in files of units, without reading the values.
#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "tools/halyard/counts.h"
#include "tools/halyard/file_content.h"
#include "tools/halyard/json.h"
#include "tools/halyard/output.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/table.h"
#include "tools/halyard/unicode.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kLabelWidth = 18;  // before the texts of a file's first lines

struct Options {
  std::vector<std::string> files;
  bool as_json = false;
};

std::string KindName(USHORT kind) {
  if (kind == kInfoUnit) return "definitions";
  if (kind == kDataUnit) return "values";
  return fmt::format("kind {}", kind);
}

// ---- for people

void ShowLine(Output& output, const Style& style, std::string_view what, std::string_view text) {
  output.Write(fmt::format("  {}{:<{}}{}\n", style.Quiet(what), "",
                           kLabelWidth - std::min(kLabelWidth - 1, what.size()), text));
}

void ShowTally(Output& output, const Style& style, std::string_view what, const Tally& tally) {
  ShowLine(output, style, what,
           fmt::format("{} in {}", Counted(tally.records, "record"), SizeText(tally.bytes)));
}

void ShowDefinitions(Output& output, const Style& style, const FileContent& content) {
  if (content.definitions.empty()) return;
  output.Write("\n");
  Table table(output, style,
              {{"  definition"},
               {"type"},
               {"id", true},
               {"size", true},
               {"members", true},
               {"layout"},
               {"values", true},
               {"bytes", true},
               {"first at", true},
               {"last at", true}});
  for (const auto& [key, definition] : content.definitions) {
    const DefinitionView& view = *definition.view;
    const std::size_t members = view.type == kEnumeration ? view.elements.size() : view.members.size();
    const bool has_values = definition.values.records != 0;
    table.Add({"  " + Printable(view.Title()), TypeName(key.first), std::to_string(view.id),
               Grouped(view.data_size), Grouped(members),
               view.type != kStructure ? "-"
               : view.is_fixed         ? "fixed"
                                       : "varying",
               Grouped(definition.values.records), Grouped(definition.values.bytes),
               has_values ? Grouped(definition.values.first) : "-",
               has_values ? Grouped(definition.values.last) : "-"});
  }
  table.Finish();
}

void ShowTrouble(Output& output, const Style& style, const FileContent& content) {
  const auto show = [&](const std::string& what) { output.Write("  " + style.Bad(what) + "\n"); };
  if (content.unresolved.records != 0) {
    show(fmt::format("{} without a definition, the first at offset {}",
                     Counted(content.unresolved.records, "value"), Grouped(content.unresolved.first)));
  }
  if (content.broken.records != 0) {
    show(fmt::format("{} that cannot be read, the first at offset {}",
                     Counted(content.broken.records, "definition"), Grouped(content.broken.first)));
  }
  if (content.fault) {
    show(fmt::format("unread tail of {} at offset {}: {}{}", Counted(content.tail, "byte"),
                     Grouped(content.fault->offset), content.fault->what,
                     EndRemedy(content.is_being_written)));
  }
}

void Show(Output& output, const FileContent& content) {
  const Style style(kStandardOutput);
  output.Write(style.Title(Printable(content.name)) + "\n");
  ShowLine(output, style, "size", SizeText(content.size));
  ShowLine(output, style, "format", "units, version 1.0");
  ShowTally(output, style, "records", content.all);
  for (const auto& [kind, tally] : content.kinds) ShowTally(output, style, "  " + KindName(kind), tally);
  for (const auto& [type, tally] : content.types) ShowTally(output, style, "  of " + TypeName(type), tally);
  if (content.all.records != 0) {
    ShowLine(
        output, style, "offsets",
        fmt::format("first record at {}, last at {}", Grouped(content.all.first), Grouped(content.all.last)));
  }
  if (!content.fault) ShowLine(output, style, "unread tail", "none");
  ShowTrouble(output, style, content);
  ShowDefinitions(output, style, content);
}

// ---- for programs

Json TallyJson(const Tally& tally) {
  Json result = {{"records", tally.records}, {"bytes", tally.bytes}};
  if (tally.records != 0) {
    result["first_offset"] = tally.first;
    result["last_offset"] = tally.last;
  }
  return result;
}

Json DefinitionJson(const ContentDefinition& definition) {
  const DefinitionView& view = *definition.view;
  const std::size_t members = view.type == kEnumeration ? view.elements.size() : view.members.size();
  return {{"name", view.name},
          {"type", TypeName(static_cast<USHORT>(view.type))},
          {"id", view.id},
          {"size", view.data_size},
          {"members", members},
          {"fixed_layout", view.is_fixed},
          {"announced", TallyJson(definition.announced)},
          {"values", TallyJson(definition.values)}};
}

Json ContentJson(const FileContent& content) {
  Json result = {{"file", content.name},
                 {"size", content.size},
                 {"version", "1.0"},
                 {"records", TallyJson(content.all)}};
  for (const auto& [kind, tally] : content.kinds) result["kinds"][KindName(kind)] = TallyJson(tally);
  for (const auto& [type, tally] : content.types) result["types"][TypeName(type)] = TallyJson(tally);
  result["definitions"] = Json::array();
  for (const auto& [key, definition] : content.definitions) {
    result["definitions"].push_back(DefinitionJson(definition));
  }
  result["values_without_definition"] = content.unresolved.records;
  result["unreadable_definitions"] = content.broken.records;
  result["unread_tail"] = content.tail;
  if (content.fault) result["fault"] = {{"offset", content.fault->offset}, {"what", content.fault->what}};
  return result;
}

ExitCode Run(const Options& options) {
  RequireOneStandardInput(options.files);
  Output output("-");
  ExitCode code = ExitCode::kFine;
  bool is_first = true;
  for (const std::string& file : options.files) {
    try {
      const FileContent content = ExamineFile(file);
      if (!content.IsSound()) code = std::max(code, ExitCode::kFaults);
      if (options.as_json) {
        output.Write(Dumped(ContentJson(content), true) + "\n");
      } else {
        if (!std::exchange(is_first, false)) output.Write("\n");
        Show(output, content);
      }
    } catch (const Failure& failure) {
      if (options.files.size() == 1 || *failure.what() == '\0') throw;
      // The other files can still be shown.
      Remark(failure.what());
      code = std::max(code, failure.code());
    }
  }
  output.Finish();
  return code;
}

}  // namespace

Verb AddInfo(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(program, "info",
                  "Show what is in files: sizes, records, definitions, and whether they are whole",
                  {{"halyard info soundings.orm", "everything about one file"},
                   {"halyard info --json *.orm", "the same of many files, for programs"}});
  command.Need({"FILE", "", "The files, or - for standard input"}, options->files);
  command.Flag({"--json", "", "A JSON document for each file, with plain numbers"}, options->as_json);
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
