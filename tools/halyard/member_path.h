// Paths to members, as the numeric transfer takes them: "Depth", "Position.X",
// "Samples[3]", "Grid[2][5]". "[X,Y]" names several members of one structure, and so does
// "X[Y,Z]", which names X as well; what follows applies to each of them. Of several
// numbers in one bracket the first is the index, the others are only checked. The empty
// path is the value itself.
//
// Paths lead on from the rows that a value stands for: from each element of an array, from
// any other value itself. An index of the array in front ("[3].Depth") is checked and
// changes nothing.
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
  bool can_be_null = false;  // the part is a member that can be left out
};

// The parts of a row that a path names, for values of the definition. Throws Failure
// (usage) where it names none.
std::vector<MemberPath> ParsePath(const std::string& text, const DefinitionPtr& definition);

// A path for each part of a row that fits a cell: members of nested structures by
// themselves, everything else as a whole.
std::vector<MemberPath> AllPaths(const DefinitionPtr& row);

// The part of a row; null where it, or something on the way, was left out or where an
// array has fewer elements.
Node Follow(Node row, const MemberPath& path);

}  // namespace halyard::tool
