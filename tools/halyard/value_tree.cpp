#include "tools/halyard/value_tree.h"

#include <fmt/format.h>

#include "tools/halyard/unicode.h"

namespace halyard::tool {
namespace {

// What hangs on a node: its children, or its text where it has none.
class Branches {
 public:
  Branches(Output& output, const Style& style) : output_(output), style_(style) {}

  void Children(const Node& node, const std::string& indent) {
    const LONG count = node.HasChildren() ? node.Count() : 0;
    for (LONG i = 0; i < count; ++i) {
      const bool is_last = i + 1 == count;
      const bool is_structure = node.definition().type == kStructure;
      const std::string name =
          is_structure ? node.definition().members[static_cast<std::size_t>(i)].name : fmt::format("[{}]", i);
      Branch(name, node.Child(i), indent, is_last);
    }
  }

  void Branch(const std::string& name, const Node& node, const std::string& indent, bool is_last) {
    output_.Write(fmt::format("{}{} {}\n", style_.Quiet(indent + (is_last ? "└─ " : "├─ ")), Printable(name),
                              Content(node)));
    Children(node, indent + (is_last ? "   " : "│  "));
  }

 private:
  std::string Content(const Node& node) const {
    if (node.IsNull()) return style_.Quiet("null");
    if (node.HasChildren()) return style_.Quiet(Printable(node.definition().TypeText()));
    return style_.Title(Printable(node.Text()));
  }

  Output& output_;
  const Style& style_;
};

}  // namespace

void WriteTree(Output& output, const Style& style, const Node& node) {
  Branches branches(output, style);
  if (node.HasChildren()) {
    branches.Children(node, "");
  } else {
    branches.Branch("value", node, "", true);
  }
}

void WriteBranch(Output& output, const Style& style, const std::string& name, const Node& node,
                 bool is_last) {
  Branches(output, style).Branch(name, node, "", is_last);
}

}  // namespace halyard::tool
