// Paths to members, as the numeric transfer takes them: "Depth", "Position.X",
// "Samples[3]", "Grid[2,5]"; "Position[X,Y]" names several members of one structure. The
// empty path is the value itself.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/node.h"

namespace halyard::tool {

// A way from a value of a definition to one part of it.
struct MemberPath {
  std::string title;         // the path as people read it
  std::vector<LONG> steps;   // a member's position, or an element's
  DefinitionPtr definition;  // of the part
};

// The parts that a path names. Throws Failure (usage) where it names none.
std::vector<MemberPath> ParsePath(const std::string& text, const DefinitionPtr& definition);

// A path for each part that fits a cell: members of nested structures by themselves,
// everything else as a whole.
std::vector<MemberPath> AllPaths(const DefinitionPtr& definition);

// The part of a value; null where it, or something on the way, was left out or where an
// array has fewer elements.
Node Follow(Node value, const MemberPath& path);

}  // namespace halyard::tool
