#include "tools/halyard/input.h"
#include "tools/halyard/output.h"
#include "tools/halyard/reference.h"

namespace halyard::tool {
namespace {

ExitCode Print(const std::string& text) {
  Output output(kStandardStream);
  output.Write(text);
  output.Finish();
  return ExitCode::kFine;
}

}  // namespace

std::vector<Verb> ReferenceVerbs(CLI::App& program) {
  const Command manual(program, "manual", "Print the manual page",
                       {{"halyard manual | man -l -", "read it without installing it"}});
  const Command completion(
      program, "completion", "Print the completion script for bash",
      {{"source <(halyard completion)", "complete verbs, options and files in this shell"}});
  return {{manual, [&program] { return Print(ManualPage(program)); }},
          {completion, [&program] { return Print(BashCompletion(program)); }}};
}

}  // namespace halyard::tool
