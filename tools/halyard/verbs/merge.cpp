// merge: several files as one stream. Definitions that are equal but for their id become
// one; where an id means different things, the later one is renumbered.
#include <fmt/format.h>

#include <map>
#include <memory>
#include <set>

#include "tools/halyard/counts.h"
#include "tools/halyard/decoder.h"
#include "tools/halyard/little_endian.h"
#include "tools/halyard/output.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/record_writer.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::vector<std::string> files;
  std::string output;
};

// The definitions of the new file: their bytes without the id, and the id of each.
class IdTable {
 public:
  struct Place {
    SHORT id = 0;
    bool is_new = false;
  };

  // The id of a definition in the new file, its own wherever that is free; none where all
  // ids of its type are taken.
  std::optional<Place> PlaceFor(std::span<const unsigned char> unit, const UnitHead& head) {
    std::string content(reinterpret_cast<const char*>(unit.data()), unit.size());
    if (IsComposite(head.type)) content.replace(kIdOffset, sizeof(SHORT), sizeof(SHORT), '\0');
    const auto known = ids_.find(content);
    if (known != ids_.end()) return Place{known->second, false};
    const SHORT id = head.id == 0 ? SHORT{0} : FreeId(head);
    if (head.id != 0 && id == 0) return std::nullopt;
    ids_.emplace(std::move(content), id);
    return Place{id, true};
  }

 private:
  SHORT FreeId(const UnitHead& head) {
    auto& taken = taken_[head.type];
    if (taken.insert(head.id).second) return head.id;
    for (int candidate = 1; candidate <= 0xFFFF; ++candidate) {
      const auto id = static_cast<SHORT>(static_cast<USHORT>(candidate));
      if (taken.insert(id).second) return id;
    }
    return 0;
  }

  std::map<std::string, SHORT> ids_;
  std::map<USHORT, std::set<SHORT>> taken_;
};

// One file on its way into the new one.
class Source {
 public:
  Source(const std::string& file, IdTable& ids, RecordWriter& writer)
      : input_(file), reader_(input_), ids_(ids), writer_(writer) {}

  void CopyAll();

 private:
  void Copy(const Record& record, std::span<const unsigned char> unit);
  void CopyDefinition(const Record& record, std::span<const unsigned char> unit, const DecodedUnit& decoded);
  [[noreturn]] void Refuse(const Record& record, const std::string& why) const {
    ThrowFault(input_.name(), {record.offset, record.number, why}, "; nothing was merged");
  }

  Input input_;
  RecordReader reader_;
  IdTable& ids_;
  RecordWriter& writer_;
  UnitDecoder decoder_;
  std::map<DefinitionKey, SHORT> new_ids_;  // of the definitions of this file
};

void Source::CopyAll() {
  Progress progress(input_.name(), input_.size());
  while (const auto record = reader_.Next()) {
    const auto unit = reader_.Unit();
    if (!unit) break;
    Copy(*record, *unit);
    progress.At(record->offset);
  }
  RequireProperEnd(reader_);
}

void Source::Copy(const Record& record, std::span<const unsigned char> unit) {
  const DecodedUnit decoded = decoder_.DecodeInfo(unit);
  switch (decoded.verdict) {
    case Verdict::kUnknown:
      writer_.Write(unit);
      return;
    case Verdict::kUnresolved:
      Refuse(record, decoded.what + ", and in one file with others it could meet a wrong one");
    case Verdict::kBroken:
      Refuse(record, decoded.what + "; 'halyard recover' saves what is whole");
    default:
      break;
  }
  if (decoded.head.IsInfo()) {
    CopyDefinition(record, unit, decoded);
  } else {
    writer_.WriteWithId(unit, new_ids_.at({decoded.head.type, decoded.head.id}));
  }
}

void Source::CopyDefinition(const Record& record, std::span<const unsigned char> unit,
                            const DecodedUnit& decoded) {
  const auto place = ids_.PlaceFor(unit.first(decoded.used), decoded.head);
  if (!place) {
    Refuse(record, fmt::format("the definition {} needs another id, and all 65,535 ids of its type are taken",
                               decoded.definition->Title()));
  }
  if (decoded.head.id != 0) {
    new_ids_[{decoded.head.type, decoded.head.id}] = place->id;
    if (place->id != decoded.head.id) {
      Remark(fmt::format("{}: record {}: the definition {} has the id {} in the new file instead of {}",
                         input_.name(), Grouped(record.number), decoded.definition->Title(), place->id,
                         decoded.head.id));
    }
  }
  if (!place->is_new) return;
  if (decoded.head.id == 0) {
    writer_.Write(unit);
  } else {
    writer_.WriteWithId(unit, place->id);
  }
}

ExitCode Run(const Options& options) {
  RequireOneStandardInput(options.files);
  RequireNoTerminal(options.output);
  Output output(options.output);
  RecordWriter writer(output);
  IdTable ids;
  for (const std::string& file : options.files) Source(file, ids, writer).CopyAll();
  output.Finish();
  return ExitCode::kFine;
}

}  // namespace

Verb AddMerge(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(program, "merge", "Put several files into one, equal definitions once",
                  {{"halyard merge monday.orm tuesday.orm -o week.orm",
                    "clashing ids are renumbered; a file with faults is refused, and nothing is written"}});
  command.Need({"FILE", "", "The files, in this order; - is standard input"}, options->files);
  command.NeedOption({"-o,--output", "OUT", "The new file, or - for standard output"}, options->output);
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
