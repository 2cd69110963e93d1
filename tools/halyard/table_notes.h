// What a file remembers of the table that it was imported from: how columns write their
// numbers and dates, and how lines end. It travels as an enumeration definition, which
// other readers register and never need: each element is a note, its number the column
// that it is about, -1 for the whole table.
#pragma once

#include <map>

#include "tools/halyard/column_form.h"
#include "tools/halyard/definition_view.h"

namespace halyard::tool {

struct TableNotes {
  std::map<LONG, ColumnForm> columns;  // by position; those that are missing are usual
  bool has_bare_line_feeds = false;

  // Whether there is anything to remember.
  [[nodiscard]] bool IsEmpty() const noexcept { return columns.empty() && !has_bare_line_feeds; }

  [[nodiscard]] ColumnForm FormOf(LONG column) const;

  // The notes as a definition, and those of a definition; none where it is another one.
  [[nodiscard]] Ptr<IValueDefBase> Definition() const;
  static std::optional<TableNotes> Of(const DefinitionView& definition);
};

}  // namespace halyard::tool
