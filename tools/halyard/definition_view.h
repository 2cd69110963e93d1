// A definition as this program looks at it: read once through the library's interfaces,
// then at hand without further calls.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "halyard/halyard.h"

namespace halyard::tool {

struct DefinitionView;
using DefinitionPtr = std::shared_ptr<const DefinitionView>;

struct MemberView {
  std::string name;
  bool can_be_null = false;
  LONG place = 0;  // byte offset of a field of fixed size, ordinal of any other member
  ULONG size = 0;  // bytes of a field of fixed size, 0 of any other member
  DefinitionPtr definition;

  [[nodiscard]] bool is_field() const noexcept { return size != 0; }
};

struct ElementView {
  std::string name;
  LONG number = 0;
};

struct DefinitionView {
  Ptr<IValueDefBase> object;
  SHORT type = kInvalid;
  SHORT id = 0;
  std::string name;  // of composite definitions
  ULONG data_size = 0;

  bool has_range = false;       // of a simple definition
  std::string least, greatest;  // its bounds, empty where it has none
  std::string script;

  std::vector<MemberView> members;  // of a structure
  bool is_fixed = false;            // every member is a field: values are blocks

  std::vector<ElementView> elements;  // of an enumeration
  SHORT number_type = kInvalid;

  DefinitionPtr element;   // of an array
  LONG element_count = 0;  // 0: as many as the value has

  // "Long", "FixedString(10)", "Array of Short [8]", "Structure Position".
  [[nodiscard]] std::string TypeText() const;

  // The name as people tell definitions apart: "TimeZone", or "Array 3" without a name.
  [[nodiscard]] std::string Title() const;

  // The name of an enumeration's first element with that number; null where none has it.
  [[nodiscard]] const std::string* ElementName(LONG number) const noexcept;

  [[nodiscard]] bool IsElementary() const noexcept { return type <= kLastElementaryType; }
};

// Looks at a definition and all that it holds. Raises Error where a call fails.
DefinitionPtr ViewOfDefinition(const Ptr<IValueDefBase>& definition);

}  // namespace halyard::tool
