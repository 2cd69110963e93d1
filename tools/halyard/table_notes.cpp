#include "tools/halyard/table_notes.h"

#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

constexpr char kName[] = "halyard table";
constexpr SHORT kId = -1;
constexpr LONG kWholeTable = -1;
constexpr char kBareLineFeeds[] = "line feeds";

void AddNote(const Ptr<IEnumerationDef>& notes, const std::string& note, LONG column) {
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(notes->AddMember(Bstr(*ToLibrary(note)).get(), column, &done), notes);
}

}  // namespace

ColumnForm TableNotes::FormOf(LONG column) const {
  const auto form = columns.find(column);
  return form == columns.end() ? ColumnForm{} : form->second;
}

Ptr<IValueDefBase> TableNotes::Definition() const {
  const auto notes = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  Check(notes->put_Name(Bstr(*ToLibrary(kName)).get()), notes);
  Check(notes->put_Id(kId), notes);
  Check(notes->put_DataType(kLong), notes);
  if (has_bare_line_feeds) AddNote(notes, kBareLineFeeds, kWholeTable);
  for (const auto& [column, form] : columns) AddNote(notes, form.Name(), column);
  return notes;
}

std::optional<TableNotes> TableNotes::Of(const DefinitionView& definition) {
  if (definition.type != kEnumeration || definition.id != kId || definition.name != kName)
    return std::nullopt;
  TableNotes notes;
  for (const ElementView& element : definition.elements) {
    if (element.number == kWholeTable) {
      notes.has_bare_line_feeds = notes.has_bare_line_feeds || element.name == kBareLineFeeds;
    } else if (const auto form = ColumnForm::Named(element.name)) {
      notes.columns[element.number] = *form;
    }
  }
  return notes;
}

}  // namespace halyard::tool
