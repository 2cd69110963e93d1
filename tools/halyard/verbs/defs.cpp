// defs: the definitions of a file as trees, and how their values lie in bytes.
#include <fmt/format.h>

#include <memory>

#include "tools/halyard/counts.h"
#include "tools/halyard/decoder.h"
#include "tools/halyard/layout_map.h"
#include "tools/halyard/output.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/selection.h"
#include "tools/halyard/style.h"
#include "tools/halyard/unicode.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::string file;
  Selection selection;
  bool shows_layout = false;
  std::string picture;
};

class DefinitionTree {
 public:
  DefinitionTree(Output& output, const Style& style) : output_(output), style_(style) {}

  void Show(const DefinitionView& view, std::uint64_t record) {
    const std::string id = view.IsElementary() ? "" : fmt::format(", id {}", view.id);
    const std::string layout =
        view.type == kStructure ? (view.is_fixed ? ", fixed layout" : ", varying layout") : "";
    output_.Write(fmt::format(
        "{} {}\n", style_.Title(Printable(view.Title())),
        style_.Quiet(Printable(fmt::format("{}{}, {}{}, record {}", TypeName(static_cast<USHORT>(view.type)),
                                           id, Counted(view.data_size, "byte"), layout, record)))));
    Children(view, "");
  }

 private:
  void Children(const DefinitionView& view, const std::string& indent) {
    for (std::size_t i = 0; i < view.members.size(); ++i) {
      Member(view.members[i], indent, i + 1 == view.members.size());
    }
    for (std::size_t i = 0; i < view.elements.size(); ++i) {
      const ElementView& element = view.elements[i];
      Line(indent, i + 1 == view.elements.size(), fmt::format("{} = {}", element.name, element.number), "");
    }
    if (view.element) {
      Line(indent, true, "element", TypeNote(*view.element));
      Children(*view.element, indent + "   ");
    }
  }

  void Member(const MemberView& member, const std::string& indent, bool is_last) {
    const std::string place = member.is_field()
                                  ? fmt::format("offset {}, {}", member.place, Counted(member.size, "byte"))
                                  : fmt::format("piece {} of varying size", member.place + 1);
    Line(indent, is_last, member.name + (member.can_be_null ? "?" : ""),
         fmt::format("{}, {}{}", TypeNote(*member.definition), place,
                     member.can_be_null ? ", can be null" : ""));
    Children(*member.definition, indent + (is_last ? "   " : "│  "));
  }

  static std::string TypeNote(const DefinitionView& view) {
    std::string note = view.TypeText();
    if (!view.has_range) return note;
    if (!view.least.empty()) note += fmt::format(", from {} to {}", view.least, view.greatest);
    if (!view.script.empty()) note += fmt::format(", script '{}'", view.script);
    return note;
  }

  void Line(const std::string& indent, bool is_last, const std::string& name, const std::string& note) {
    output_.Write(fmt::format("{}{}{}{}\n", style_.Quiet(indent + (is_last ? "└─ " : "├─ ")), Printable(name),
                              note.empty() ? "" : "  ", style_.Quiet(Printable(note))));
  }

  Output& output_;
  const Style& style_;
};

// The structures whose layout is drawn: the definition itself, or what its elements are.
DefinitionPtr DrawnPart(DefinitionPtr definition) {
  while (definition->type == kArray) definition = definition->element;
  return definition->type == kStructure ? definition : nullptr;
}

void WritePicture(const std::string& name, const std::vector<DefinitionPtr>& drawn, const std::string& file) {
  if (drawn.empty())
    throw Failure(ExitCode::kUsage, file + ": there is no structure whose layout could be drawn");
  Output picture(name);
  picture.Write(MapPicture(drawn));
  picture.Finish();
}

ExitCode Run(const Options& options) {
  Input input(options.file);
  RecordReader reader(input);
  UnitDecoder decoder;
  const Style style(kStandardOutput);
  Output output("-");
  DefinitionTree tree(output, style);
  Progress progress(input.name(), input.size());
  std::vector<DefinitionPtr> drawn;
  ExitCode code = ExitCode::kFine;
  std::uint64_t records = 0;
  bool has_chosen = false;
  while (const auto record = reader.Next()) {
    records = record->number;
    progress.At(record->offset);
    if (!record->head.IsInfo() || options.selection.IsOver(record->number)) continue;
    const auto unit = reader.Unit();
    if (!unit) break;
    const DecodedUnit decoded = decoder.DecodeInfo(*unit);
    if (decoded.verdict != Verdict::kWhole) {
      Remark(fmt::format("{}: offset {}, record {}: {}", input.name(),
                         Grouped(record->offset + kLengthBytes + decoded.offset), Grouped(record->number),
                         decoded.what));
      code = ExitCode::kFaults;
      continue;
    }
    if (!options.selection.HasNumber(record->number) || !options.selection.HasDefinition(*decoded.definition))
      continue;
    const bool is_first = !std::exchange(has_chosen, true);
    const DefinitionPtr part = DrawnPart(decoded.definition);
    if (part) drawn.push_back(part);
    if (options.picture == kStandardStream) continue;
    if (!is_first) output.Write("\n");
    tree.Show(*decoded.definition, record->number);
    if (options.shows_layout && part) output.Write("\n" + MapText(*part, style));
  }
  output.Finish();
  if (!options.picture.empty()) WritePicture(options.picture, drawn, input.name());
  RequireProperEnd(reader);
  options.selection.Close(input.name(), records, has_chosen || code != ExitCode::kFine);
  return code;
}

}  // namespace

Verb AddDefs(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(program, "defs",
                  "Show definitions as trees: members, types, places, sizes, ranges, elements",
                  {{"halyard defs soundings.orm", "all definitions of a file"},
                   {"halyard defs --layout -d Sounding soundings.orm",
                    "one of them, with a map of the bytes of its values"},
                   {"halyard defs --svg layout.svg soundings.orm", "the maps as a picture"}});
  command.Need({"FILE", "", "The file, or - for standard input"}, options->file);
  options->selection.AddOptions(command, "Only this definition");
  command.Flag({"--layout", "", "Draw the bytes of each structure, 16 a row"}, options->shows_layout);
  command.Option({"--svg", "OUT", "Draw them as a picture into this file, or - for standard output"},
                 options->picture);
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
