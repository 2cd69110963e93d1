// doctor: reads every byte of files with suspicion and says what is wrong, where, a line
// each.
//
// Faults are what makes a reader lose or misread something; remarks are legal but worth
// knowing. Only faults count for the exit code.
#include <fmt/format.h>

#include <map>
#include <memory>

#include "tools/halyard/client.h"
#include "tools/halyard/counts.h"
#include "tools/halyard/decoder.h"
#include "tools/halyard/findings.h"
#include "tools/halyard/output.h"
#include "tools/halyard/progress.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

struct Options {
  std::vector<std::string> files;
  FindingsForm form;
};

class Examination {
 public:
  Examination(Output& output, const FindingsForm& form, const std::string& file)
      : input_(file), findings_(output, form, input_.name()) {}

  bool Run();

 private:
  bool HasHeader();
  void Look(const Record& record, std::span<const unsigned char> unit);
  void LookAtInfo(const Record& record, std::span<const unsigned char> unit, const DecodedUnit& decoded);
  void LookAtSurplus(const Record& record, std::size_t used, std::span<const unsigned char> unit);

  void Fault(const Record& record, std::size_t offset_in_unit, const std::string& what) {
    findings_.Add(Severity::kFault, record.offset + kLengthBytes + offset_in_unit, record.number, what);
  }
  void Remark(const Record& record, const std::string& what) {
    findings_.Add(Severity::kRemark, record.offset, record.number, what);
  }

  Input input_;
  Findings findings_;
  UnitDecoder decoder_;
  std::map<DefinitionKey, std::size_t> digests_;  // of the definitions met
};

bool Examination::HasHeader() {
  std::array<unsigned char, kFileHeaderBytes> header{};
  const std::size_t count = input_.Read(header);
  const auto fault = HeaderFault(std::span(header).first(count));
  if (!fault) return true;
  findings_.Add(Severity::kFault, 0, 0, HeaderText(*fault, count));
  findings_.Close(0, input_.size().value_or(count));
  return false;
}

bool Examination::Run() {
  if (!HasHeader()) return false;
  RecordReader reader(input_, 0);
  Progress progress(input_.name(), input_.size());
  std::uint64_t records = 0;
  while (const auto record = reader.Next()) {
    const auto unit = reader.Unit();
    if (!unit) break;
    ++records;
    Look(*record, *unit);
    progress.At(record->offset);
  }
  if (const auto& fault = reader.fault()) {
    findings_.Add(Severity::kFault, fault->offset, fault->record,
                  fault->what + EndRemedy(input_.IsBeingWritten()));
  }
  return findings_.Close(records, input_.size().value_or(input_.position()));
}

void Examination::Look(const Record& record, std::span<const unsigned char> unit) {
  const DecodedUnit decoded = decoder_.Decode(unit);
  if (decoded.verdict != Verdict::kWhole) {
    Fault(record, decoded.offset, decoded.what);
    return;
  }
  if (decoded.head.IsInfo()) {
    LookAtInfo(record, unit, decoded);
  } else {
    LookAtSurplus(record, decoded.used, unit);
  }
}

void Examination::LookAtInfo(const Record& record, std::span<const unsigned char> unit,
                             const DecodedUnit& decoded) {
  LookAtSurplus(record, decoded.used, unit);
  const std::string title = decoded.definition->Title();
  if (!IsComposite(decoded.head.type)) {
    Remark(record, fmt::format("a definition of {} by itself: no value can refer to it",
                               TypeName(decoded.head.type)));
    return;
  }
  if (decoded.head.id == 0) {
    Remark(record, fmt::format("the definition {} has no id: no value can refer to it", title));
    return;
  }
  const std::string_view bytes(reinterpret_cast<const char*>(unit.data()), decoded.used);
  const std::size_t digest = std::hash<std::string_view>{}(bytes);
  const auto [known, is_new] = digests_.try_emplace({decoded.head.type, decoded.head.id}, digest);
  if (is_new) return;
  if (known->second == digest) {
    Remark(record, fmt::format("the definition {} is repeated", title));
  } else {
    Fault(record, 0,
          fmt::format("the id {} gets another definition, {}: values before and after it differ",
                      decoded.head.id, title));
  }
  known->second = digest;
}

void Examination::LookAtSurplus(const Record& record, std::size_t used, std::span<const unsigned char> unit) {
  if (used >= unit.size()) return;
  const auto surplus = unit.subspan(used);
  const bool is_empty =
      std::all_of(surplus.begin(), surplus.end(), [](unsigned char byte) { return byte == 0; });
  // Arrays of texts announce four bytes more than they take, and fill them with zeros.
  if (is_empty && decoder_.PacketSize() == unit.size()) return;
  Fault(record, used,
        fmt::format("{} stand behind the end of the unit, which needs {} of {}",
                    Counted(surplus.size(), "byte"), Grouped(used), Grouped(unit.size())));
}

ExitCode Run(const Options& options) {
  RequireOneStandardInput(options.files);
  Output output("-");
  ExitCode code = ExitCode::kFine;
  for (const std::string& file : options.files) {
    try {
      if (!Examination(output, options.form, file).Run()) code = std::max(code, ExitCode::kFaults);
    } catch (const Failure& failure) {
      if (options.files.size() == 1 || *failure.what() == '\0') throw;
      Remark(failure.what());
      code = std::max(code, failure.code());
    }
  }
  output.Finish();
  return code;
}

}  // namespace

Verb AddDoctor(CLI::App& program) {
  const auto options = std::make_shared<Options>();
  Command command(program, "doctor", "Read every byte with suspicion and say what is wrong, and where",
                  {{"halyard doctor soundings.orm", "list faults and remarks; the exit code is 1 for faults"},
                   {"halyard doctor --json *.orm", "a JSON document for each finding and each file"}});
  command.Need({"FILE", "", "The files, or - for standard input"}, options->files);
  command.Flag({"--json", "", "A JSON document for each finding and a last one for each file"},
               options->form.as_json);
  command.Option({"--limit", "N", "List that many findings of a file and count the others (1000)"},
                 options->form.limit);
  return {command, [options] { return Run(*options); }};
}

}  // namespace halyard::tool
