#include "tools/halyard/member_path.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/halyard/ascii.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/framing.h"
#include "tools/halyard/path_text.h"
#include "tools/halyard/rows.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kMostParts = 512;  // what the library takes; lists multiply
constexpr int kDeepestColumns = 64;

class PathWalker {
 public:
  explicit PathWalker(const std::string& text) : text_(text) {
    CutPath cut = CutMemberPath(text);
    if (cut.fault) Fail(*cut.fault);
    parts_ = std::move(cut.parts);
  }

  std::vector<MemberPath> Walk(const DefinitionPtr& definition) {
    const bool skips_first = IndexesItself(definition);
    if (skips_first) CheckIndices(parts_.front(), *definition);
    Walk(skips_first ? 1 : 0, {"", {}, RowDefinition(definition)});
    return std::move(paths_);
  }

 private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw Failure(ExitCode::kUsage, fmt::format("the member path '{}' cannot be followed: {}", text_, why));
  }

  // Whether the path begins with an index of the array itself: it has more indices in
  // front than there are arrays inside the array.
  bool IndexesItself(const DefinitionPtr& definition) const {
    if (definition->type != kArray) return false;
    const DefinitionView* inner = definition.get();
    for (const PathPart& part : parts_) {
      if (part.kind != PathPart::Kind::kIndices) return false;
      inner = inner->element.get();
      if (inner->type != kArray) return true;
    }
    return false;
  }

  void CheckIndices(const PathPart& part, const DefinitionView& array) const {
    for (const LONG index : part.indices) {
      if (index < 0 || (array.element_count != 0 && index >= array.element_count))
        Fail(fmt::format("there is no element {}", index));
    }
  }

  // Follows the parts from `next` on and adds the ways that they lead.
  void Walk(std::size_t next, const MemberPath& here) {
    if (next == parts_.size()) {
      if (paths_.size() == kMostParts) Fail(fmt::format("it names more than {} members", kMostParts));
      paths_.push_back(here);
      return;
    }
    const PathPart& part = parts_[next];
    if (part.kind == PathPart::Kind::kIndices) {
      Walk(next + 1, Element(here, part));
      return;
    }
    std::vector<std::string> names = part.names;
    std::size_t behind = next + 1;
    // A list behind a name adds members of the same structure.
    const bool has_list = part.kind == PathPart::Kind::kName && behind < parts_.size() &&
                          parts_[behind].kind == PathPart::Kind::kNames;
    if (has_list) {
      names.insert(names.end(), parts_[behind].names.begin(), parts_[behind].names.end());
      ++behind;
    }
    for (const std::string& name : names) Walk(behind, Member(here, name));
  }

  MemberPath Element(const MemberPath& here, const PathPart& part) const {
    if (here.definition->type != kArray) Fail(Described(here) + " is no array");
    CheckIndices(part, *here.definition);
    MemberPath next = here;
    next.steps.push_back(part.indices.front());
    next.title += fmt::format("[{}]", part.indices.front());
    next.definition = here.definition->element;
    next.can_be_null = false;
    return next;
  }

  MemberPath Member(const MemberPath& here, const std::string& name) const {
    if (here.definition->type != kStructure) Fail(Described(here) + " is no structure");
    const auto& members = here.definition->members;
    const auto member = std::find_if(members.begin(), members.end(), [&](const MemberView& candidate) {
      return EqualIgnoringCase(candidate.name, name);
    });
    if (member == members.end()) Fail(fmt::format("there is no member '{}'", name));
    MemberPath next = here;
    next.steps.push_back(static_cast<LONG>(member - members.begin()));
    next.title += here.title.empty() ? member->name : "." + member->name;
    next.definition = member->definition;
    next.can_be_null = member->can_be_null;
    return next;
  }

  static std::string Described(const MemberPath& path) {
    return path.title.empty() ? "the value" : "'" + path.title + "'";
  }

  std::string text_;
  std::vector<PathPart> parts_;
  std::vector<MemberPath> paths_;
};

void AddPaths(const MemberPath& path, int depth, std::vector<MemberPath>& paths) {
  if (path.definition->type != kStructure || depth > kDeepestColumns) {
    paths.push_back(path);
    return;
  }
  const auto& members = path.definition->members;
  for (std::size_t i = 0; i < members.size(); ++i) {
    MemberPath next = path;
    next.steps.push_back(static_cast<LONG>(i));
    next.title += path.title.empty() ? members[i].name : "." + members[i].name;
    next.definition = members[i].definition;
    next.can_be_null = members[i].can_be_null;
    AddPaths(next, depth + 1, paths);
  }
}

// A row as a whole has no path; people read the name of its definition.
void NameWholes(std::vector<MemberPath>& paths) {
  for (MemberPath& path : paths) {
    if (!path.title.empty() || !path.steps.empty()) continue;
    const bool has_name = IsComposite(static_cast<USHORT>(path.definition->type));
    path.title = has_name ? path.definition->Title() : "value";
  }
}

}  // namespace

std::vector<MemberPath> ParsePath(const std::string& text, const DefinitionPtr& definition) {
  auto paths = PathWalker(text).Walk(definition);
  NameWholes(paths);
  return paths;
}

std::vector<MemberPath> AllPaths(const DefinitionPtr& row) {
  std::vector<MemberPath> paths;
  AddPaths({"", {}, row}, 0, paths);
  NameWholes(paths);
  return paths;
}

Node Follow(Node row, const MemberPath& path) {
  for (const LONG step : path.steps) {
    const bool is_missing = row.IsNull() || (row.definition().type == kArray && step >= row.Count());
    if (is_missing) return Node::Null(*path.definition);
    row = row.Child(step);
  }
  return row;
}

}  // namespace halyard::tool
