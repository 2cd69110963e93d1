// halyard: shows, checks and converts files of units from the shell.
#include <new>

#include "tools/halyard/client.h"
#include "tools/halyard/platform/system.h"
#include "tools/halyard/program.h"

namespace halyard::tool {
namespace {

ExitCode RunGuarded(const std::vector<std::string>& arguments) {
  try {
    return Program().Run(arguments);
  } catch (const Failure& failure) {
    if (*failure.what() != '\0') Remark(failure.what());
    return failure.code();
  } catch (const Error& error) {
    Remark(Explanation(error));
  } catch (const std::bad_alloc&) {
    Remark("there is not enough memory");
  } catch (const std::exception& error) {
    // Nothing is known to come here; if something does, it ends like any other failure.
    Remark(error.what());
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
