#include "tools/halyard/member_path.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <string_view>

#include "tools/halyard/ascii.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/framing.h"

namespace halyard::tool {
namespace {

constexpr std::size_t kLongestPath = 510;  // what the library takes
constexpr int kDeepestColumns = 64;

class PathParser {
 public:
  PathParser(const std::string& text, const DefinitionPtr& definition) : text_(text), rest_(text) {
    if (text.size() > kLongestPath) Fail("it is longer than 510 characters");
    paths_.push_back({"", {}, definition});
  }

  std::vector<MemberPath> Parse() {
    if (!rest_.empty() && rest_.front() == '.') rest_.remove_prefix(1);
    bool is_first = true;
    while (!rest_.empty()) {
      if (rest_.front() == '[') {
        TakeBrackets();
      } else {
        if (!is_first) TakeDot();
        StepToMember(paths_.front(), TakeUntil(".["));
      }
      is_first = false;
    }
    return std::move(paths_);
  }

 private:
  [[noreturn]] void Fail(const std::string& why) const {
    throw Failure(ExitCode::kUsage, fmt::format("the member path '{}' cannot be followed: {}", text_, why));
  }

  std::string_view TakeUntil(std::string_view ends) {
    const std::string_view part = rest_.substr(0, rest_.find_first_of(ends));
    rest_.remove_prefix(part.size());
    return part;
  }

  void TakeDot() {
    if (paths_.size() > 1) Fail("nothing can follow a list of members");
    if (rest_.front() != '.') Fail("a dot or a bracket is missing");
    rest_.remove_prefix(1);
  }

  void TakeBrackets() {
    if (paths_.size() > 1) Fail("nothing can follow a list of members");
    rest_.remove_prefix(1);
    std::string_view inside = TakeUntil("]");
    if (rest_.empty()) Fail("a closing bracket is missing");
    rest_.remove_prefix(1);
    const MemberPath start = paths_.front();
    bool has_names = false;
    for (bool is_last = false; !is_last;) {
      const std::size_t comma = inside.find(',');
      const std::string_view part = inside.substr(0, comma);
      is_last = comma == std::string_view::npos;
      if (!is_last) inside.remove_prefix(comma + 1);
      LONG index = 0;
      const auto number = std::from_chars(part.data(), part.data() + part.size(), index);
      if (number.ec == std::errc() && number.ptr == part.data() + part.size()) {
        if (has_names) Fail("a list names members or elements, not both");
        StepToElement(paths_.front(), index);
      } else {
        if (has_names) paths_.push_back(start);
        has_names = true;
        StepToMember(paths_.back(), part);
      }
    }
  }

  void StepToElement(MemberPath& path, LONG index) {
    if (path.definition->type != kArray) Fail(fmt::format("{} is no array", Described(path)));
    const LONG count = path.definition->element_count;
    if (index < 0 || (count != 0 && index >= count)) Fail(fmt::format("there is no element {}", index));
    path.steps.push_back(index);
    path.title += fmt::format("[{}]", index);
    path.definition = path.definition->element;
  }

  void StepToMember(MemberPath& path, std::string_view name) {
    if (path.definition->type != kStructure) Fail(fmt::format("{} is no structure", Described(path)));
    const auto& members = path.definition->members;
    const auto member = std::find_if(members.begin(), members.end(), [&](const MemberView& candidate) {
      return EqualIgnoringCase(candidate.name, name);
    });
    if (member == members.end()) Fail(fmt::format("there is no member '{}'", name));
    path.steps.push_back(static_cast<LONG>(member - members.begin()));
    path.title += path.title.empty() ? member->name : "." + member->name;
    path.definition = member->definition;
  }

  static std::string Described(const MemberPath& path) {
    return path.title.empty() ? "the value" : "'" + path.title + "'";
  }

  std::string text_;
  std::string_view rest_;
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
    AddPaths(next, depth + 1, paths);
  }
}

}  // namespace

std::vector<MemberPath> ParsePath(const std::string& text, const DefinitionPtr& definition) {
  auto paths = PathParser(text, definition).Parse();
  if (paths.size() == 1 && paths.front().title.empty()) paths.front().title = definition->Title();
  return paths;
}

std::vector<MemberPath> AllPaths(const DefinitionPtr& definition) {
  std::vector<MemberPath> paths;
  AddPaths({"", {}, definition}, 0, paths);
  for (MemberPath& path : paths) {
    if (path.title.empty() && path.steps.empty()) {
      path.title = IsComposite(static_cast<USHORT>(definition->type)) ? definition->Title() : "value";
    }
  }
  return paths;
}

Node Follow(Node value, const MemberPath& path) {
  for (const LONG step : path.steps) {
    const bool is_missing = value.IsNull() || (value.definition().type == kArray && step >= value.Count());
    if (is_missing) return Node::Null(*path.definition);
    value = value.Child(step);
  }
  return value;
}

}  // namespace halyard::tool
