// halyard_exchange write FILE | read FILE: writes a file of units with one of everything,
// or prints what such a file holds. Built for both platforms, so that the files of one
// can be compared with those of the other and read there.
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

#include "halyard/halyard.h"

namespace halyard {
namespace {

WideString Wide(std::string_view ascii) { return WideString(ascii.begin(), ascii.end()); }

Bstr Text(std::string_view ascii) { return Bstr(Wide(ascii)); }

// Text outside ASCII: its narrow form is the same on both platforms.
constexpr OLECHAR kForeignText[] = {'H', 0x00F6, 'h', 'e', ' ', 0x20AC, 0};

void Add(const Ptr<IStructureDef>& structure, const char* name, SHORT type, SHORT field_size = 0) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(structure->AddSimpleMemberSized(Text(name).get(), type, field_size, &added), structure);
}

void Add(const Ptr<IStructureDef>& structure, const char* name, IDispatch* definition) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(structure->AddMember(Text(name).get(), definition, &added), structure);
}

void AddArray(const Ptr<IStructureDef>& structure, const char* name, SHORT type, LONG count) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(structure->AddSimpleArrayMember(Text(name).get(), type, count, &added), structure);
}

void Calculate(const Ptr<IStructureDef>& structure) {
  ULONG size = 0;
  Check(structure->CalculateDataSize(&size), structure);
}

Ptr<IEnumerationDef> DefineQuality() {
  auto quality = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(quality->put_Id(3), quality);
  Check(quality->put_Name(Text("Quality").get()), quality);
  Check(quality->AddMember(Text("good").get(), 1, &added), quality);
  Check(quality->AddMember(Text("doubtful").get(), -2, &added), quality);
  return quality;
}

Ptr<IStructureDef> DefinePoint() {
  auto point = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(point->put_Id(2), point);
  Check(point->put_Name(Text("Point").get()), point);
  Add(point, "X", kReal);
  Add(point, "Y", kShortReal);
  Calculate(point);
  return point;
}

Ptr<IStructureDef> DefineRecord() {
  auto record = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(record->put_Id(1), record);
  Check(record->put_Name(Bstr(kForeignText).get()), record);
  Add(record, "String", kString);
  Add(record, "FixedString", kFixedString, 12);
  Add(record, "ByteArray", kByteArray, 3);
  Add(record, "Char", kChar);
  Add(record, "Byte", kByte);
  Add(record, "Short", kShort);
  Add(record, "Word", kWord);
  Add(record, "Long", kLong);
  Add(record, "DWord", kDWord);
  Add(record, "ShortReal", kShortReal);
  Add(record, "Real", kReal);
  Add(record, "Date", kDate);
  Add(record, "Missing", kLong);
  Check(record->put_CanBeNull(Variant(Wide("Missing")).get(), VARIANT_TRUE), record);
  Add(record, "Quality", DefineQuality().get());
  Add(record, "Point", DefinePoint().get());
  AddArray(record, "Fixed", kShort, 3);
  AddArray(record, "Growing", kReal, 0);
  AddArray(record, "Texts", kString, 0);
  Calculate(record);
  return record;
}

void Put(const Ptr<IValueBase>& record, const char* name, const Variant& content) {
  Check(record->put_Item(Variant(Wide(name)).get(), content.get()), record);
}

Ptr<IValueBase> Part(const Ptr<IValueBase>& record, const char* name) {
  Ptr<IValueBase> part;
  Check(record->get_At(Variant(Wide(name)).get(), part.Out()), record);
  return Require(part, "the record lacks a part");
}

void Append(const Ptr<IValueBase>& array, const Variant& content) { Check(array->Add(content.get()), array); }

Ptr<IValueBase> MakeRecord(const Ptr<IStructureDef>& definition, LONG number) {
  Ptr<IValueBase> record;
  Check(definition->CreateDataObject(record.Out()), definition);
  Put(record, "String", Variant(kForeignText));
  Put(record, "FixedString", Variant(Wide("fixed")));
  Put(record, "Char", Variant(LONG{65}));
  Put(record, "Byte", Variant(LONG{200}));
  Put(record, "Short", Variant(LONG{-1234}));
  Put(record, "Word", Variant(LONG{4321}));
  Put(record, "Long", Variant(number));
  Put(record, "DWord", Variant(LONG{70000}));
  Put(record, "ShortReal", Variant(1.25));
  Put(record, "Real", Variant(0.1));
  Put(record, "Date", Variant::FromDate(46000.75));
  Put(record, "Missing", Variant::Null());
  Put(record, "Quality", Variant(LONG{-2}));
  Put(Part(record, "Point"), "X", Variant(-0.5));
  Put(Part(record, "Fixed"), "1", Variant(LONG{7}));
  Append(Part(record, "Growing"), Variant(2.5));
  Append(Part(record, "Texts"), Variant(kForeignText));
  Append(Part(record, "Texts"), Variant(Wide("")));
  return record;
}

void Write(const Bstr& file_name) {
  auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForWrite(file_name.get(), &done), file);
  if (done == VARIANT_FALSE) throw Error(E_FAIL, "the file cannot be written");
  const Ptr<IStructureDef> definition = DefineRecord();
  Check(file->WriteInfo(definition.get(), &done), file);
  for (const LONG number : {0, 1, -1})
    Check(file->WriteData(MakeRecord(definition, number).get(), &done), file);
  Check(file->Close(), file);
}

// The value in one line, texts as the numbers of their characters.
void Show(const VARIANT& value) {
  if (value.vt != VT_BSTR && value.vt != VT_DISPATCH && value.vt != VT_NULL) {
    std::printf(" %d:%.17g", value.vt, Variant::Converted(value, VT_R8)->dblVal);
    return;
  }
  std::printf(" %d", value.vt);
  if (value.vt == VT_BSTR) {
    for (const OLECHAR c : ViewOf(value.bstrVal)) std::printf(":%X", static_cast<unsigned>(c));
  }
}

void ShowValue(const Ptr<IValueBase>& value) {
  LONG count = 0;
  Check(value->get_Count(&count), value);
  for (LONG i = 0; i != count; ++i) {
    Variant item;
    Check(value->get_Item(Variant(i).get(), item.Out()), value);
    Show(item.get());
    if (item.type() == VT_DISPATCH)
      ShowValue(Require(QueryFor<IValueBase>(item->pdispVal), "a member is no value"));
  }
}

void ShowUnit(const Ptr<IUnit>& unit) {
  SHORT type = 0;
  ULONG size = 0;
  Check(unit->get_Type(&type), unit);
  Check(unit->get_PacketSize(&size), unit);
  Ptr<IValueBase> value;
  Check(unit->get_Value(value.Out()), unit);
  std::printf("%s of type %d, %u bytes:", value ? "value" : "definition", type, static_cast<unsigned>(size));
  if (value) ShowValue(value);
  std::printf("\n");
}

void Read(const Bstr& file_name) {
  auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(file_name.get(), VARIANT_TRUE, &done), file);
  if (done == VARIANT_FALSE) throw Error(E_FAIL, "the file cannot be read");
  Ptr<IUnit> unit;
  for (Check(file->ReadUnit(unit.Out()), file); unit; Check(file->ReadUnit(unit.Out()), file)) ShowUnit(unit);
}

int Run(std::string_view verb, std::string_view file_name) {
  try {
    verb == "write" ? Write(Text(file_name)) : Read(Text(file_name));
    return EXIT_SUCCESS;
  } catch (const Error& error) {
    std::printf("failed with 0x%08X %s\n", static_cast<unsigned>(error.code()), error.reason().c_str());
    return EXIT_FAILURE;
  }
}

}  // namespace
}  // namespace halyard

int main(int argc, char** argv) {
  if (argc != 3) return EXIT_FAILURE;
#ifdef _WIN32
  if (FAILED(OleInitialize(nullptr))) return EXIT_FAILURE;
#endif
  return halyard::Run(argv[1], argv[2]);
}
