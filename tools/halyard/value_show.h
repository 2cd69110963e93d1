// The ways in which cat shows values: as a table, as trees, as JSON.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tools/halyard/decoder.h"
#include "tools/halyard/output.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/style.h"

namespace halyard::tool {

class ValueShow {
 public:
  ValueShow() = default;
  ValueShow(const ValueShow&) = delete;
  ValueShow& operator=(const ValueShow&) = delete;
  virtual ~ValueShow() = default;

  // Shows a whole data unit. Throws Failure (usage) where a member cannot be found in it.
  virtual void Value(const Record& record, const DecodedUnit& unit) = 0;

  // Shows what is still held back.
  virtual void Finish() {}
};

// The ways. `members` are the paths to show, none for everything; nothing is owned or
// copied. Cells of a table are cut to `widest` columns, 0 leaves them whole.
std::unique_ptr<ValueShow> ShowAsJson(Output& output, const std::vector<std::string>& members);
std::unique_ptr<ValueShow> ShowAsTrees(Output& output, const Style& style,
                                       const std::vector<std::string>& members);
std::unique_ptr<ValueShow> ShowAsTable(Output& output, const Style& style,
                                       const std::vector<std::string>& members, std::size_t widest);

}  // namespace halyard::tool
