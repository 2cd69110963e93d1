// A value, a member or an element together with its definition: what tables, trees and
// exported files walk through.
#pragma once

#include <string>

#include "tools/halyard/definition_view.h"

namespace halyard::tool {

class Node {
 public:
  // A value that stands for itself. Neither is copied; the definition must outlive the node.
  Node(const Ptr<IValueBase>& value, const DefinitionView& definition);

  Node(const Node& other);
  Node(Node&&) noexcept = default;
  Node& operator=(Node&&) noexcept = default;

  // A part that was left out.
  static Node Null(const DefinitionView& definition);

  [[nodiscard]] const DefinitionView& definition() const noexcept { return *definition_; }

  [[nodiscard]] bool IsNull() const noexcept { return content_.type() == VT_NULL; }

  // A structure or an array: it has children. Everything else has text.
  [[nodiscard]] bool HasChildren() const noexcept;

  // Members of a structure, elements of an array.
  [[nodiscard]] LONG Count() const;
  [[nodiscard]] Node Child(LONG index) const;

  // A number, date or text as it stands, an enumeration as the name of its element where
  // there is one, bytes in hexadecimal; empty for null. UTF-8, not fit for a terminal.
  [[nodiscard]] std::string Text() const;

  // A number rather than a text, for people and for JSON.
  [[nodiscard]] bool IsNumber() const noexcept;

  [[nodiscard]] const Variant& content() const noexcept { return content_; }
  [[nodiscard]] const Ptr<IValueBase>& object() const noexcept { return object_; }

 private:
  Node(Variant content, const DefinitionView& definition);

  [[nodiscard]] Node Member(LONG index) const;

  Variant content_;
  Ptr<IValueBase> object_;  // of a structure or array
  std::string bytes_;       // of a ByteArray
  const DefinitionView* definition_;
};

}  // namespace halyard::tool
