// What a verb of the program is: a command with its arguments, and what it does.
//
// A verb is one file in verbs/. Its results go to standard output, its remarks to standard
// error. It answers kFine, or kFaults where the file has faults but the work was done;
// it throws Failure where it has to stop.
#pragma once

#include <functional>

#include "tools/halyard/command.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/remark.h"

namespace halyard::tool {

struct Verb {
  Command command;
  std::function<ExitCode()> run;
};

// Each adds its command to the program.
Verb AddInfo(CLI::App& program);
Verb AddDefs(CLI::App& program);
Verb AddCat(CLI::App& program);
Verb AddExport(CLI::App& program);
Verb AddImport(CLI::App& program);
Verb AddDoctor(CLI::App& program);
Verb AddRecover(CLI::App& program);
Verb AddMerge(CLI::App& program);
Verb AddFilter(CLI::App& program);

}  // namespace halyard::tool
