#include "values/arrays/member_path.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "definitions/structure_layout.h"
#include "halyard/definitions/structure_def.h"
#include "halyard/object/bstr.h"
#include "halyard/object/variant.h"
#include "platform/text.h"
#include "types/type_names.h"
#include "values/arrays/path_text.h"

namespace halyard {
namespace {

struct FaultText {
  PathFault fault;
  const char* text;
};

// The wording, spelling included, is what clients of long standing know.
constexpr FaultText kFaultTexts[] = {
    {PathFault::kStringArray, "Cannot iterate over string array"},
    {PathFault::kArrayIndex, "Invalid array index"},
    {PathFault::kNoStructure, "Invalid structure"},
    {PathFault::kMemberName, "Invalid index"},
    {PathFault::kListedName, "Invalid structure member:%s"},
    {PathFault::kNoArray, "Invalild array %s(type %s)"},
    {PathFault::kIndexOutOfRange, "Index out of range"},
    {PathFault::kNestedStringArray, "Can't iterate over strings"},
};

// Lists multiply: a short path could select millions of members.
constexpr std::size_t kMostMembers = 512;

constexpr LONG kNoMember = -1;

// The longest path that may take the short way. Hardly a name is longer, and the long way
// answers the same.
constexpr std::size_t kLongestPlainName = 64;

// Whether names may have the character without a second thought: it is no sign of a path
// and has no other narrow form.
bool IsPlain(OLECHAR c) noexcept {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

using Definition = Ptr<IValueDefBase>;

SHORT TypeOf(const Definition& definition) {
  SHORT type = kInvalid;
  Check(definition->get_Type(&type), definition);
  return type;
}

SHORT ElementTypeOf(const Ptr<IArrayDef>& array) {
  SHORT type = kInvalid;
  Check(array->get_DataType(&type), array);
  return type;
}

Definition ElementOf(const Ptr<IArrayDef>& array) {
  Definition element;
  Check(array->get_ValueType(element.Out()), array);
  return Require(element, "an array definition on the way has no element definition");
}

// The definition as an array or structure, empty where it is none.
Ptr<IArrayDef> AsArray(const Definition& definition) {
  return TypeOf(definition) == kArray ? QueryFor<IArrayDef>(definition.get()) : nullptr;
}

Ptr<IStructureDef> AsStructure(const Definition& definition) {
  return TypeOf(definition) == kStructure ? QueryFor<IStructureDef>(definition.get()) : nullptr;
}

LONG FindMember(const Ptr<IStructureDef>& structure, const std::string& name) {
  LONG position = kNoMember;
  Check(structure->MemberIndex(Bstr(Widen(name)).get(), &position), structure);
  return position;
}

Definition MemberOf(const Ptr<IStructureDef>& structure, LONG position) {
  Definition member;
  Check(structure->get_Members(Variant(position).get(), member.Out()), structure);
  return Require(member, "a member on the way has no definition");
}

// The member that a path has led through last, if it has led through any.
struct LastMember {
  Ptr<IStructureDef> structure;
  LONG position = kNoMember;

  // As the structure spells it.
  [[nodiscard]] std::string Name() const {
    if (!structure) return {};
    Bstr name;
    Check(structure->get_MemberName(position, name.Out()), structure);
    return NarrowToZero(name.View());
  }
};

class PathParser {
 public:
  explicit PathParser(std::vector<PathPart> parts) : parts_(std::move(parts)) {}

  MemberPath Parse(IArrayDef& definition) {
    const Ptr<IArrayDef> array(&definition);
    if (ElementTypeOf(array) == kString) {
      Fail(PathFault::kStringArray);
    } else {
      const std::size_t start = IndexesItself(array) ? 1 : 0;
      if (start == 0 || CheckIndices(parts_.front(), array)) Walk(start, ElementOf(array));
    }
    return std::move(path_);
  }

 private:
  // Whether the path begins with an index of the array itself: it has more indices in
  // front than there are arrays inside the array.
  bool IndexesItself(const Ptr<IArrayDef>& array) const {
    Ptr<IArrayDef> inner = array;
    for (const PathPart& part : parts_) {
      if (part.kind != PathPart::Kind::kIndices) return false;
      inner = AsArray(ElementOf(inner));
      if (!inner) return true;
    }
    return false;
  }

  // Resolves the parts from `next` on, `definition` being where the way has led so far.
  // False after a fault.
  bool Walk(std::size_t next, const Definition& definition) {
    if (next == parts_.size()) return Select(TypeOf(definition));
    const PathPart& part = parts_[next];
    switch (part.kind) {
      case PathPart::Kind::kName:
        return WalkName(next, definition);
      case PathPart::Kind::kNames:
        return WalkNames(next, definition);
      default:
        return WalkIndices(next, definition);
    }
  }

  bool WalkName(std::size_t next, const Definition& definition) {
    const Ptr<IStructureDef> structure = AsStructure(definition);
    if (!structure) return Fail(PathFault::kNoStructure);
    const std::string& name = parts_[next].names.front();
    std::vector<LONG> members{FindMember(structure, name)};
    const bool has_list = next + 1 < parts_.size() && parts_[next + 1].kind == PathPart::Kind::kNames;
    if (has_list && !FindListed(parts_[next + 1], structure, members)) return false;
    if (members.front() == kNoMember) return Fail(PathFault::kMemberName);
    return WalkMembers(next + (has_list ? 2 : 1), structure, members);
  }

  bool WalkNames(std::size_t next, const Definition& definition) {
    const Ptr<IStructureDef> structure = AsStructure(definition);
    if (!structure) return Fail(PathFault::kNoStructure);
    std::vector<LONG> members;
    return FindListed(parts_[next], structure, members) && WalkMembers(next + 1, structure, members);
  }

  bool FindListed(const PathPart& list, const Ptr<IStructureDef>& structure, std::vector<LONG>& members) {
    for (const std::string& name : list.names) {
      members.push_back(FindMember(structure, name));
      if (members.back() == kNoMember) return Fail(PathFault::kListedName, name);
    }
    return true;
  }

  bool WalkMembers(std::size_t next, const Ptr<IStructureDef>& structure, const std::vector<LONG>& members) {
    for (const LONG position : members) {
      last_member_ = {structure, position};
      way_.push_back({PathStep::Kind::kMember, position});
      if (!Walk(next, MemberOf(structure, position))) return false;
      way_.pop_back();
    }
    return true;
  }

  bool WalkIndices(std::size_t next, const Definition& definition) {
    const PathPart& part = parts_[next];
    const Ptr<IArrayDef> array = AsArray(definition);
    if (!array) return Fail(PathFault::kNoArray, last_member_.Name(), TypeCodeName(TypeOf(definition)));
    if (ElementTypeOf(array) == kString) return Fail(PathFault::kNestedStringArray);
    if (!CheckIndices(part, array)) return false;
    way_.push_back({PathStep::Kind::kElement, part.indices.front()});
    if (!Walk(next + 1, ElementOf(array))) return false;
    way_.pop_back();
    return true;
  }

  bool CheckIndices(const PathPart& part, const Ptr<IArrayDef>& array) {
    LONG fixed = 0;
    Check(array->get_ElementCount(&fixed), array);
    const auto count = static_cast<ULONG>(fixed);
    if (part.indices.empty()) return Fail(PathFault::kArrayIndex);
    for (const LONG index : part.indices) {
      if (index < 0 || (count != 0 && static_cast<ULONG>(index) >= count))
        return Fail(PathFault::kArrayIndex);
    }
    return true;
  }

  bool Select(SHORT type) {
    if (path_.members.size() == kMostMembers) return Fail(PathFault::kMemberName);
    path_.members.push_back({way_, type});
    return true;
  }

  bool Fail(PathFault fault, const std::string& name = {}, const std::string& type = {}) {
    path_.members.clear();
    path_.fault = PathFaultText(fault, name, type);
    return false;
  }

  const std::vector<PathPart> parts_;
  std::vector<PathStep> way_;
  LastMember last_member_;
  MemberPath path_;
};

}  // namespace

std::string PathFaultText(PathFault fault, const std::string& name, const std::string& type) {
  constexpr std::string_view kPlace = "%s";
  for (const FaultText& row : kFaultTexts) {
    if (row.fault != fault) continue;
    std::string text = row.text;
    std::size_t at = 0;
    for (const std::string& argument : {name, type}) {
      at = text.find(kPlace, at);
      if (at == std::string::npos) break;
      text.replace(at, kPlace.size(), argument);
      at += argument.size();
    }
    return text;
  }
  return {};
}

std::optional<MemberPath> FindPlainMember(WideView path, const Ptr<IValueDefBase>& element) {
  path = path.substr(0, path.find(OLECHAR{0}));
  if (path.empty() || path.size() > kLongestPlainName || !std::all_of(path.begin(), path.end(), IsPlain))
    return std::nullopt;
  const Ptr<IStructureLayoutSource> source = QueryFor<IStructureLayoutSource>(element.get());
  if (!source || source->Outside() != element.get()) return std::nullopt;
  const StructureLayout& layout = source->Layout().Whole();
  const LONG position = layout.Find(path);
  const MemberLayout* member = layout.At(position);
  if (member == nullptr || !member->definition.object) return std::nullopt;
  const Definition definition = member->definition.object;
  return MemberPath{{{{{PathStep::Kind::kMember, position}}, TypeOf(definition)}}, {}};
}

MemberPath ParseMemberPath(const std::string& path, IArrayDef& definition) {
  std::optional<std::vector<PathPart>> parts = CutMemberPath(path);
  if (!parts) return {{}, PathFaultText(PathFault::kMemberName, {}, {})};
  return PathParser(std::move(*parts)).Parse(definition);
}

}  // namespace halyard
