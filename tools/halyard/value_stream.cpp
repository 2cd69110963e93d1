#include "tools/halyard/value_stream.h"

#include <fmt/format.h>

#include <memory>

#include "tools/halyard/counts.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/remark.h"

namespace halyard::tool {
namespace {

constexpr std::uint64_t kShownFaults = 10;

// Collects what could not be read.
class Losses {
 public:
  explicit Losses(std::string file) : file_(std::move(file)) {}

  void Add(const Record& record, const DecodedUnit& unit) {
    if (++count_ > kShownFaults) return;
    Remark(fmt::format("{}: offset {}, record {}: {}", file_,
                       Grouped(record.offset + kLengthBytes + unit.offset), Grouped(record.number),
                       unit.what));
  }

  // A closing remark; whether there were any.
  bool Close() const {
    if (count_ > kShownFaults) {
      Remark(fmt::format("{}: {} cannot be read in all; 'halyard doctor' lists them", file_,
                         Counted(count_, "record")));
    }
    return count_ != 0;
  }

 private:
  std::string file_;
  std::uint64_t count_ = 0;
};

}  // namespace

ExitCode ReadValues(const std::string& file, const Selection& selection, bool shows_progress,
                    const ValueHandlers& handlers) {
  Input input(file);
  RecordReader reader(input);
  UnitDecoder decoder;
  Losses losses(input.name());
  std::unique_ptr<Progress> progress;
  if (shows_progress) progress = std::make_unique<Progress>(input.name(), input.size());
  std::uint64_t records = 0;
  bool has_values = false;
  while (const auto record = reader.Next()) {
    records = record->number;
    if (selection.IsOver(records)) break;
    if (progress) progress->At(record->offset);
    // Definitions count wherever they stand, values only where they were chosen.
    const bool is_chosen = selection.HasNumber(record->number);
    if (!is_chosen && !record->head.IsInfo()) continue;
    if (record->head.IsData()) {
      const DefinitionPtr definition = decoder.Find({record->head.type, record->head.id});
      if (definition && !selection.HasDefinition(*definition)) continue;
    }
    const auto unit = reader.Unit();
    if (!unit) break;
    const DecodedUnit decoded = decoder.Decode(*unit);
    if (decoded.verdict != Verdict::kWhole) {
      losses.Add(*record, decoded);
    } else if (decoded.head.IsData()) {
      has_values = true;
      handlers.value(*record, decoded);
    } else {
      selection.Meet(*decoded.definition);
      handlers.definition(decoded.definition);
    }
  }
  const bool has_losses = losses.Close();
  progress.reset();
  handlers.finish();
  RequireProperEnd(reader);
  selection.Close(input.name(), records, has_values || has_losses);
  return has_losses ? ExitCode::kFaults : ExitCode::kFine;
}

}  // namespace halyard::tool
