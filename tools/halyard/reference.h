// The manual page and the shell completion, made from the program's own verbs and
// options, so that they say what the program does.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/verb.h"

namespace halyard::tool {

// A manual page (section 1) and a completion script for bash.
std::string ManualPage(const CLI::App& program);
std::string BashCompletion(const CLI::App& program);

// The verbs that print them.
std::vector<Verb> ReferenceVerbs(CLI::App& program);

}  // namespace halyard::tool
