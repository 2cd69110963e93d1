#include "tools/halyard/rows.h"

#include <fmt/format.h>

namespace halyard::tool {

DefinitionPtr RowDefinition(const DefinitionPtr& definition) {
  return definition->type == kArray ? definition->element : definition;
}

Rows::Rows(const Ptr<IValueBase>& value, const DefinitionView& definition)
    : value_(value),
      definition_(definition),
      is_array_(definition.type == kArray),
      count_(is_array_ ? Node(value, definition).Count() : 1) {}

Node Rows::Row(LONG index) const {
  Node node(value_, definition_);
  if (is_array_) return node.Child(index);
  return node;
}

std::string Rows::Label(std::uint64_t record, LONG index) const {
  return is_array_ ? fmt::format("{}[{}]", record, index) : fmt::to_string(record);
}

}  // namespace halyard::tool
