// Types that a person gives to columns: "Price=Real", "Code=FixedString(8)".
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/column_guess.h"

namespace halyard::tool {

class ForcedTypes {
 public:
  // Throws Failure (usage) for texts that are not of that form or name no type.
  explicit ForcedTypes(const std::vector<std::string>& texts);

  // Gives the column its type where it has one; whether it has.
  bool Apply(const std::string& column, ColumnType& type);

  // Throws Failure (usage) where a type was given to a column that the table lacks.
  void RequireUsed(const std::string& table) const;

 private:
  struct Entry {
    std::string column;
    SHORT type = kString;
    LONG size = 0;
    bool is_used = false;
  };
  std::vector<Entry> entries_;
};

}  // namespace halyard::tool
