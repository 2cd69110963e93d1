// The rows of a table that a value stands for: an array of anything has one for each
// element, any other value is one.
#pragma once

#include <string>

#include "tools/halyard/node.h"

namespace halyard::tool {

// The definition of the rows that values of a definition have.
DefinitionPtr RowDefinition(const DefinitionPtr& definition);

class Rows {
 public:
  // Neither is copied; both must outlive the rows.
  Rows(const Ptr<IValueBase>& value, const DefinitionView& definition);

  [[nodiscard]] LONG Count() const noexcept { return count_; }
  [[nodiscard]] Node Row(LONG index) const;

  // "7", or "7[3]" for the rows of an array in record 7.
  [[nodiscard]] std::string Label(std::uint64_t record, LONG index) const;

 private:
  const Ptr<IValueBase>& value_;
  const DefinitionView& definition_;
  bool is_array_;
  LONG count_;
};

}  // namespace halyard::tool
