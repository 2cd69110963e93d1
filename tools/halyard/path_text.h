// The text of a member path, cut into its parts.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "halyard/halyard.h"

namespace halyard::tool {

// A name behind a dot, or what stands in a pair of brackets: names or indices.
struct PathPart {
  enum class Kind { kName, kNames, kIndices };
  Kind kind = Kind::kName;
  std::vector<std::string> names;
  std::vector<LONG> indices;
};

// The parts of a path, or what is wrong with it: the end of a sentence.
struct CutPath {
  std::vector<PathPart> parts;
  std::optional<std::string> fault;
};

CutPath CutMemberPath(const std::string& text);

}  // namespace halyard::tool
