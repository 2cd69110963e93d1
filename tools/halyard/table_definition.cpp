#include "tools/halyard/table_definition.h"

#include <fmt/format.h>

#include "tools/halyard/client.h"
#include "tools/halyard/decoder.h"
#include "tools/halyard/failure.h"
#include "tools/halyard/record_reader.h"
#include "tools/halyard/table_notes.h"
#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

constexpr SHORT kRowId = 1;
constexpr SHORT kArrayId = 1;
constexpr std::size_t kLongestText = 65535;
constexpr ULONG kLargestSize = 65535;

// What has a name, for people, and what they can do where it cannot be stored.
struct Named {
  const char* what;
  const char* remedy;
};

constexpr Named kDefinition = {"the name of the definition", "; --name gives it another name"};
constexpr Named kColumn = {"the name of a column", ""};
constexpr Named kElement = {"an element of an enumeration", ""};

Bstr Name(const std::string& text, const Named& named) {
  const auto name = ToLibrary(text);
  if (!name && !Encoded(text, TextForm::kUtf8))
    throw Failure(ExitCode::kUsage, fmt::format("{}, '{}', is not UTF-8{}", named.what, text, named.remedy));
  if (!name) {
    throw Failure(ExitCode::kUsage,
                  fmt::format("{}, '{}', has no place in {}; --encoding utf-8 has one for every text{}",
                              named.what, text, TextFormName(), named.remedy));
  }
  if (name->size() > kLongestText)
    throw Failure(ExitCode::kUsage,
                  fmt::format("{} is longer than 65,535 bytes{}", named.what, named.remedy));
  return Bstr(*name);
}

SHORT NumberTypeFor(std::size_t elements) {
  if (elements <= 0x80) return kChar;
  return elements <= 0x8000 ? kShort : kLong;
}

Ptr<IDispatch> DefineEnumeration(const std::string& name, const std::vector<std::string>& elements) {
  const auto enumeration = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  Check(enumeration->put_Name(Name(name, kColumn).get()), enumeration);
  Check(enumeration->put_DataType(NumberTypeFor(elements.size())), enumeration);
  VARIANT_BOOL done = VARIANT_FALSE;
  for (std::size_t i = 0; i < elements.size(); ++i) {
    Check(enumeration->AddMember(Name(elements[i], kElement).get(), static_cast<LONG>(i), &done),
          enumeration);
  }
  return enumeration;
}

void AddColumn(const Ptr<IStructureDef>& row, const std::string& name, const ColumnType& type, LONG index) {
  VARIANT_BOOL done = VARIANT_FALSE;
  if (type.type == kEnumeration) {
    Check(row->AddMember(Name(name, kColumn).get(), DefineEnumeration(name, type.elements).get(), &done),
          row);
  } else {
    Check(row->AddSimpleMemberSized(Name(name, kColumn).get(), type.type,
                                    static_cast<SHORT>(static_cast<USHORT>(type.size)), &done),
          row);
  }
  if (type.can_be_null) Check(row->put_CanBeNull(Variant(index).get(), VARIANT_TRUE), row);
}

}  // namespace

Ptr<IValueDefBase> DefineRows(const std::string& name, const std::vector<std::string>& columns,
                              const std::vector<ColumnType>& types) {
  const auto row = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(row->put_Name(Name(name, kDefinition).get()), row);
  Check(row->put_Id(kRowId), row);
  ULONG size = 0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    AddColumn(row, columns[i], types[i], static_cast<LONG>(i));
    ULONG width = 0;
    Ptr<IValueDefBase> member;
    Check(row->get_Members(Variant(static_cast<LONG>(i)).get(), member.Out()), row);
    Check(member->CalculateDataSize(&width), member);
    size += width;
  }
  if (size > kLargestSize) {
    throw Failure(ExitCode::kUsage,
                  "the columns take more than 65,535 bytes in a row; import fewer at a time");
  }
  Check(row->CalculateDataSize(&size), row);
  return row;
}

Ptr<IValueDefBase> DefineArray(const std::string& name, const Ptr<IValueDefBase>& row) {
  const auto array = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(array->put_Name(Name(name, kDefinition).get()), array);
  Check(array->put_Id(kArrayId), array);
  Check(array->put_ValueType(row.get()), array);
  ULONG size = 0;
  Check(array->CalculateDataSize(&size), array);
  return array;
}

DefinitionPtr TakeDefinition(const std::string& file, const Selection& selection) {
  Input input(file);
  RecordReader reader(input);
  UnitDecoder decoder;
  DefinitionPtr result;
  while (const auto record = reader.Next()) {
    if (!record->head.IsInfo()) continue;
    const auto unit = reader.Unit();
    if (!unit) break;
    const DecodedUnit decoded = decoder.DecodeInfo(*unit);
    if (decoded.verdict != Verdict::kWhole || TableNotes::Of(*decoded.definition)) continue;
    const bool is_usable = decoded.head.type == kStructure || decoded.head.type == kArray;
    if (!is_usable || !selection.HasDefinition(*decoded.definition)) continue;
    if (result) {
      throw Failure(ExitCode::kUsage,
                    fmt::format("{}: there are several definitions, {} and {} among them; choose one with "
                                "--definition",
                                input.name(), result->Title(), decoded.definition->Title()));
    }
    result = decoded.definition;
  }
  RequireProperEnd(reader);
  selection.RequireMet(input.name());
  if (!result)
    throw Failure(ExitCode::kUsage, input.name() + ": there is no definition of a structure or an array");
  return result;
}

}  // namespace halyard::tool
