// filter: a file with chosen values only, and the definitions that they need.
#include <fmt/format.h>

#include <map>
#include <memory>

#include "tools/halyard/counts.h"
#include "tools/halyard/decoder.h"
#include "tools/halyard/output.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/record_writer.h"
#include "tools/halyard/selection.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::string file;
  std::string output;
  Selection selection;
};

class Filter {
 public:
  Filter(const Options& options, Input& input)
      : options_(options), input_(input), reader_(input), output_(options.output), writer_(output_) {}

  ExitCode Run();

 private:
  // A definition that was met, held back until a value needs it.
  struct Pending {
    std::vector<unsigned char> unit;
    bool is_written = false;
  };

  void Take(const Record& record, std::span<const unsigned char> unit);
  void TakeDefinition(const Record& record, std::span<const unsigned char> unit, const DecodedUnit& decoded);
  void TakeValue(std::span<const unsigned char> unit, const DecodedUnit& decoded);

  const Options& options_;
  Input& input_;
  RecordReader reader_;
  Output output_;
  RecordWriter writer_;
  UnitDecoder decoder_;
  std::map<DefinitionKey, Pending> definitions_;
  std::uint64_t unreadable_ = 0;
};

void Filter::Take(const Record& record, std::span<const unsigned char> unit) {
  const DecodedUnit decoded = decoder_.DecodeInfo(unit);
  if (decoded.verdict != Verdict::kWhole) {
    if (!options_.selection.HasNumber(record.number)) return;
    ++unreadable_;
    Remark(fmt::format("{}: offset {}, record {}: left out: {}", input_.name(),
                       Grouped(record.offset + kLengthBytes + decoded.offset), Grouped(record.number),
                       decoded.what));
  } else if (decoded.head.IsInfo()) {
    TakeDefinition(record, unit, decoded);
  } else if (options_.selection.HasNumber(record.number) &&
             options_.selection.HasDefinition(*decoded.definition)) {
    TakeValue(unit, decoded);
  }
}

void Filter::TakeDefinition(const Record& record, std::span<const unsigned char> unit,
                            const DecodedUnit& decoded) {
  const bool is_chosen = options_.selection.HasDefinition(*decoded.definition);
  const bool is_written = is_chosen && options_.selection.HasNumber(record.number);
  if (is_written) writer_.Write(unit);
  if (decoded.head.id != 0) {
    definitions_[{decoded.head.type, decoded.head.id}] = {{unit.begin(), unit.end()}, is_written};
  }
}

void Filter::TakeValue(std::span<const unsigned char> unit, const DecodedUnit& decoded) {
  Pending& definition = definitions_.at({decoded.head.type, decoded.head.id});
  if (!definition.is_written) writer_.Write(definition.unit);
  definition.is_written = true;
  writer_.Write(unit);
}

ExitCode Filter::Run() {
  Progress progress(input_.name(), input_.size());
  std::uint64_t records = 0;
  while (const auto record = reader_.Next()) {
    records = record->number;
    if (options_.selection.IsOver(records)) break;
    progress.At(record->offset);
    // Only definitions count before the range begins.
    if (!record->head.IsInfo() && !options_.selection.HasNumber(record->number)) continue;
    const auto unit = reader_.Unit();
    if (!unit) break;
    Take(*record, *unit);
  }
  RequireProperEnd(reader_);
  options_.selection.Close(input_.name(), records, writer_.records() + unreadable_ != 0);
  input_.Close();
  output_.Finish();
  return unreadable_ == 0 ? ExitCode::kFine : ExitCode::kFaults;
}

ExitCode Run(const Options& options) {
  RequireNoTerminal(options.output);
  Input input(options.file);
  return Filter(options, input).Run();
}

}  // namespace

Verb AddFilter(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(program, "filter", "Keep chosen definitions and records",
                  {{"halyard filter -d Sounding all.orm -o soundings.orm", "the values of one definition"},
                   {"halyard filter -r 1000-1999 all.orm -o - | halyard cat -",
                    "a range of records, with the definitions that they need"}});
  command.Need({"FILE", "", "The file, or - for standard input"}, options->file);
  command.NeedOption({"-o,--output", "OUT", "The new file, or - for standard output"}, options->output);
  options->selection.AddOptions(command);
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
