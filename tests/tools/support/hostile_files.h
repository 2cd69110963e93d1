// Files of units that promise more than they hold.
#pragma once

#include <string>
#include <vector>

namespace halyard::test {

struct HostileFile {
  std::string name;
  std::string content;
  bool is_in_value = false;  // its definitions are sound
};

// Counts and lengths that nothing backs, nesting without end, elements without bytes.
// Every one of them is a file with faults.
const std::vector<HostileFile>& HostileFiles();

}  // namespace halyard::test
