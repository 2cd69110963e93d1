// Values as trees, a line for each member and element.
#pragma once

#include <string>

#include "tools/halyard/node.h"
#include "tools/halyard/output.h"
#include "tools/halyard/style.h"

namespace halyard::tool {

// The branches of a value, below a line that the caller wrote.
void WriteTree(Output& output, const Style& style, const Node& node);

// A branch with a name, the last one or not, and what hangs on it.
void WriteBranch(Output& output, const Style& style, const std::string& name, const Node& node, bool is_last);

}  // namespace halyard::tool
