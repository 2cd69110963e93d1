// halyard: shows, checks and converts files of units from the shell.
#include <CLI/CLI.hpp>
#include <new>
#include <sstream>

#include "tools/halyard/client.h"
#include "tools/halyard/output.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/program.h"
#include "tools/halyard/verb.h"

namespace halyard::tool {
namespace {

// Prints what --help and --version ask for, or what is wrong with the arguments.
ExitCode Answer(const CLI::App& program, const CLI::ParseError& error) {
  std::ostringstream out;
  std::ostringstream err;
  const bool is_fault = program.exit(error, out, err) != 0;
  Output output("-");
  output.Write(out.str());
  output.Finish();
  if (!is_fault) return ExitCode::kFine;
  std::string text = err.str();
  while (!text.empty() && text.back() == '\n') text.pop_back();
  for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos;) text.replace(end, 1, "; ");
  Remark(text);
  return ExitCode::kUsage;
}

ExitCode Run(const std::vector<std::string>& arguments) {
  Program program;
  try {
    program.Parse(arguments);
  } catch (const CLI::ParseError& error) {
    return Answer(program.app(), error);
  }
  return program.Run();
}

ExitCode RunGuarded(const std::vector<std::string>& arguments) {
  try {
    return Run(arguments);
  } catch (const Failure& failure) {
    if (*failure.what() != '\0') Remark(failure.what());
    return failure.code();
  } catch (const Error& error) {
    Remark(Explanation(error));
  } catch (const std::bad_alloc&) {
    Remark("there is not enough memory");
  }
  return ExitCode::kInputOutput;
}

}  // namespace
}  // namespace halyard::tool

int main(int count, char** values) {
  using namespace halyard::tool;
  PrepareProcess();
  return static_cast<int>(RunGuarded(Arguments(count, values)));
}
