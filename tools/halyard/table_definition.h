// The definition of the rows of a table: made from the types of its columns, or taken
// from another file.
#pragma once

#include <string>
#include <vector>

#include "tools/halyard/column_guess.h"
#include "tools/halyard/definition_view.h"
#include "tools/halyard/selection.h"

namespace halyard::tool {

// A structure with a member for each column. Throws Failure (usage) where the names or
// the number of the columns make that impossible.
Ptr<IValueDefBase> DefineRows(const std::string& name, const std::vector<std::string>& columns,
                              const std::vector<ColumnType>& types);

// An array of any number of such rows.
Ptr<IValueDefBase> DefineArray(const std::string& name, const Ptr<IValueDefBase>& row);

// The definition of that name or id in a file, or its only one that rows can be made of.
// Throws Failure where there is none, or more than one.
DefinitionPtr TakeDefinition(const std::string& file, const Selection& selection);

}  // namespace halyard::tool
