// Member paths: which numbers a client means when it moves one number of every element
// of an array. "Depth" is a member of the elements, "Position.X" a member of a nested
// structure, "Samples[3]" an element of a nested array, "" the element itself.
//
// A path is a row of steps, each a name behind a "." (which may be left out at the
// start) or a bracket. A bracket that begins with a number is an index; its further
// numbers are checked like the first and have no other effect. Any other bracket is a
// list of names:
//   - directly behind a name it adds members of the same structure: "X[Y,Z]" selects X,
//     Y and Z;
//   - at the start, or behind an index, it selects members of the structure there.
// What follows a list applies to each of its members, and the selected members follow
// one another for each element.
//
// Brackets at the start may begin with an index of the array itself. It is checked but
// changes nothing, because every element is visited; so it may be left out, and is taken
// to be there only where there are more indices than arrays inside the array.
//
// The parser walks definitions only, never values.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "halyard/definitions/array_def.h"
#include "halyard/object/ptr.h"
#include "halyard/platform/wide_text.h"

namespace halyard {

// What can be wrong with a path.
enum class PathFault {
  kStringArray,        // the array itself holds texts
  kArrayIndex,         // a negative index, or one beyond a fixed element count
  kNoStructure,        // a name where there is no structure
  kMemberName,         // a name that the structure lacks; also a path that is too long,
                       // or selects too many members
  kListedName,         // the same, for a name in a list
  kNoArray,            // an index where there is no array
  kIndexOutOfRange,    // reserved
  kNestedStringArray,  // an index into an array of texts
};

// The message for a fault, in which the first %s stands for `name`, the second for
// `type`, as far as they occur.
std::string PathFaultText(PathFault fault, const std::string& name, const std::string& type);

// One step from a value into a member or element of it.
struct PathStep {
  enum class Kind { kMember, kElement };
  Kind kind;

  // The position of the member in its structure, or of the element in its array.
  LONG position;
};

// The way from an element of the array to one selected number.
struct SelectedMember {
  std::vector<PathStep> steps;

  // The type code at the end of the way, which need not be a number's.
  SHORT type;
};

struct MemberPath {
  // One or more members; none where the path has a fault.
  std::vector<SelectedMember> members;

  // The message that tells the fault; empty without one.
  std::string fault;
};

// Resolves a path against the definition of the array. Raises what the definitions
// raise, and E_POINTER where a definition on the way is missing.
MemberPath ParseMemberPath(const std::string& path, IArrayDef& definition);

// The short way to the same answer, for a path that is the name of a member, in letters,
// digits and "_", of a structure definition of this library; none where it is not, or
// where the long way would find a fault.
std::optional<MemberPath> FindPlainMember(WideView path, const Ptr<IValueDefBase>& element);

}  // namespace halyard
