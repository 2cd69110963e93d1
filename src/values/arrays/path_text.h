// The text of a member path, cut into its parts before any definition is looked at.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "halyard/platform/automation.h"

namespace halyard {

// A name behind a ".", or what a bracket holds.
struct PathPart {
  enum class Kind { kName, kIndices, kNames };
  Kind kind;

  // kName: the name. kNames: the names, none of them empty.
  std::vector<std::string> names;

  // kIndices: the numbers; none for an empty bracket.
  std::vector<LONG> indices;
};

// Cuts a path at each "." and "[". None where the path is too long.
std::optional<std::vector<PathPart>> CutMemberPath(const std::string& path);

}  // namespace halyard
