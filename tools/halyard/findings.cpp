#include "tools/halyard/findings.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/halyard/counts.h"
#include "tools/halyard/json.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/unicode.h"

namespace halyard::tool {

Findings::Findings(Output& output, const FindingsForm& form, std::string file)
    : output_(output), form_(form), style_(kStandardOutput), file_(std::move(file)) {}

void Findings::Add(Severity severity, std::uint64_t offset, std::uint64_t record, const std::string& what) {
  ++(severity == Severity::kFault ? faults_ : remarks_);
  if (faults_ + remarks_ > form_.limit) return;
  if (form_.as_json) {
    ShowJson(severity, offset, record, what);
  } else {
    Show(severity, offset, record, what);
  }
}

void Findings::Show(Severity severity, std::uint64_t offset, std::uint64_t record, const std::string& what) {
  const std::string place = record == 0 ? "" : fmt::format(", record {}", Grouped(record));
  const std::string mark = severity == Severity::kFault ? style_.Bad("fault") : style_.Quiet("remark");
  output_.Write(fmt::format("{}: offset {}{}: {}: {}\n", Printable(file_), Grouped(offset), place, mark,
                            Printable(what)));
}

void Findings::ShowJson(Severity severity, std::uint64_t offset, std::uint64_t record,
                        const std::string& what) {
  output_.Write(Dumped({{"file", file_},
                        {"offset", offset},
                        {"record", record},
                        {"severity", severity == Severity::kFault ? "fault" : "remark"},
                        {"what", what}}) +
                "\n");
}

bool Findings::Close(std::uint64_t records, std::uint64_t bytes) {
  const std::uint64_t hidden = faults_ + remarks_ - std::min(faults_ + remarks_, form_.limit);
  if (form_.as_json) {
    output_.Write(Dumped({{"file", file_},
                          {"records", records},
                          {"bytes", bytes},
                          {"faults", faults_},
                          {"remarks", remarks_},
                          {"not_listed", hidden}}) +
                  "\n");
    return faults_ == 0;
  }
  if (hidden != 0)
    output_.Write(fmt::format("{}: {} more, see --limit\n", Printable(file_), Grouped(hidden)));
  const std::string state = faults_ == 0 ? style_.Good("sound") : style_.Bad(Counted(faults_, "fault"));
  const std::string remarks = remarks_ == 0 ? "" : ", " + Counted(remarks_, "remark");
  output_.Write(fmt::format("{}: {}{} in {}, {}\n", Printable(file_), state, remarks,
                            Counted(records, "record"), SizeText(bytes)));
  return faults_ == 0;
}

}  // namespace halyard::tool
