// What the text of a table's cell becomes in the member that it is for.
#pragma once

#include <string>

#include "tools/halyard/definition_view.h"

namespace halyard::tool {

// A text that its member cannot hold; the end of a sentence.
struct Misfit {
  std::string why;
};

// The content of a member of that definition. Throws Misfit where the text is none that
// the member can hold.
Variant CellContent(const std::string& text, const DefinitionView& definition);

}  // namespace halyard::tool
