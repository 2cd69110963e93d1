#include "tests/misuse/client_scenario.h"

#include "halyard/stream/orm_help.h"
#include "tests/support/encoding.h"
#include "tests/support/raised.h"

namespace halyard::test {
namespace {

constexpr std::size_t kRoom = 256;

// Whoever calls an object holds it, so the calls hold what a mischief may let go of.
class Log {
 public:
  std::vector<std::string> lines;

  // "name 0x00000000", and what the call handed out, if it succeeded.
  void Tell(const std::string& name, HRESULT status, const std::string& what = {}) {
    lines.push_back(name + " " + StatusText(status) + (SUCCEEDED(status) && !what.empty() ? " " + what : ""));
  }

  template <class I>
  void Bytes(const std::string& name, Ptr<I> object) {
    ULONG size = 0;
    const HRESULT status = object->get_PacketSize(&size);
    Tell(name + ".PacketSize", status, std::to_string(size));
    const Written written = WriteTo(object, kRoom);
    Tell(name + ".WriteToBuffer", written.outcome.status,
         written.outcome.result != VARIANT_FALSE ? ToHex(written.bytes) : "too short");
    const Outcome read = ReadFrom(object, written.bytes);
    Tell(name + ".ReadFromBuffer", read.status, std::to_string(read.result));
  }

  void Size(const std::string& name, Ptr<IValueDefBase> definition) {
    ULONG size = 0;
    const HRESULT calculated = definition->CalculateDataSize(&size);
    Tell(name + ".CalculateDataSize", calculated, std::to_string(size));
    const HRESULT status = definition->get_DataSize(&size);
    Tell(name + ".DataSize", status, std::to_string(size));
  }

  void Value(const std::string& name, Ptr<IValueBase> value, LONG part) {
    const Variant index = I4(part);
    Variant content;
    Ptr<IValueBase> object;
    const HRESULT got = value->get_Item(index.get(), content.Out());
    Tell(name + ".Item", got, Describe(content));
    Tell(name + ".Item=", value->put_Item(index.get(), I4(3).get()));
    Tell(name + ".At", value->get_At(index.get(), object.Out()));
    Bytes(name, value);
    Tell(name + ".Copy", value->Copy(object.Out()));
  }
};

void PlayStructure(Stage& stage, Log& log) {
  const auto structure = stage.structure;
  VARIANT_BOOL added = VARIANT_FALSE;
  static_cast<void>(structure->put_Id(5));
  static_cast<void>(structure->AddSimpleMember(Bstr(OLESTR("Own")).get(), kLong, &added));
  log.Tell("structure.AddMember",
           structure->AddMember(Bstr(OLESTR("Theirs")).get(), Ptr(stage.definition).get(), &added));
  log.Size("structure", structure);
  log.Tell("structure.CreateDataObject", structure->CreateDataObject(stage.record.Out()));
  if (stage.record) log.Value("record", stage.record, 1);
  // Null for a while: a record is written only with a value there.
  if (stage.record) log.Tell("record.Item=", Ptr(stage.record)->put_Item(I4(1).get(), Variant::Null().get()));
  if (stage.record) log.Tell("record.Item=", Ptr(stage.record)->put_Item(I4(1).get(), I4(3).get()));
  log.Bytes("structure", structure);
}

void PlayArray(Stage& stage, Log& log) {
  const auto array = stage.array;
  static_cast<void>(array->put_Id(6));
  log.Tell("array.ValueType=", array->put_ValueType(Ptr(stage.definition).get()));
  log.Size("array", array);
  Bstr type;
  log.Tell("array.DataTypeString", array->get_DataTypeString(type.Out()));
  log.Tell("array.CreateDataObject", array->CreateDataObject(stage.elements.Out()));
  if (const auto elements = stage.elements) {
    Ptr<IValueBase> element;
    log.Tell("definition.CreateDataObject", Ptr(stage.definition)->CreateDataObject(element.Out()));
    log.Tell("array.Add", elements->Add(Object(element).get()));
    log.Tell("array.Add", elements->Add(I4(4).get()));
    log.Value("elements", elements, 0);
    LONG count = 0;
    static_cast<void>(elements->get_Count(&count));
    std::vector<double> numbers(static_cast<std::size_t>(count));  // also where a mischief adds elements
    VARIANT_BOOL done = VARIANT_FALSE;
    const auto values = elements.As<IArray>();
    log.Tell("array.BuildNumericArray",
             values->BuildNumericArray(Bstr(OLESTR("")).get(), I4(kReal).get(),
                                       reinterpret_cast<unsigned char*>(numbers.data()), &done));
  }
  log.Bytes("array", array);
}

void PlaySession(Stage& stage, Log& log) {
  VARIANT_BOOL added = VARIANT_FALSE;
  const Ptr<IValueDefBase> definitions[] = {stage.definition, stage.structure, stage.array, stage.definition};
  for (const auto& definition : definitions)
    log.Tell("session.AddType", Ptr(stage.session)->AddType(definition.get(), &added));
  Ptr<IValueDefBase> found;
  log.Tell("session.GetTypeFromId", Ptr(stage.session)->GetTypeFromId(I4(kStructure).get(), 5, found.Out()));
  Ptr<IStructureDef> named;
  log.Tell("session.GetStructureByName",
           Ptr(stage.session)->GetStructureByName(Bstr(OLESTR("nobody's")).get(), named.Out()));
}

void PlayUnit(Stage& stage, Log& log) {
  const auto unit = stage.unit;
  log.Tell("unit.Session=", unit->put_Session(Ptr(stage.session).get()));
  log.Tell("unit.Info=", unit->put_Info(Ptr(stage.definition).get()));
  log.Bytes("info unit", unit);
  if (!stage.record) return;
  log.Tell("unit.Value=", unit->put_Value(Ptr(stage.record).get()));
  log.Bytes("data unit", unit);
}

void PlayFile(Stage& stage, Log& log) {
  const auto file = stage.file;
  VARIANT_BOOL done = VARIANT_FALSE;
  const auto told = [&] { return std::to_string(done); };
  log.Tell("file.OpenForWrite", file->OpenForWrite(stage.place.name(), &done), told());
  HRESULT status = stage.WriteInfo(kRecordNames[0], Ptr(stage.definition).get(), &done);
  log.Tell("file.WriteInfo", status, told());
  status = stage.WriteInfo(kRecordNames[1], Ptr(stage.structure).get(), &done);
  log.Tell("file.WriteInfo", status, told());
  status = file->WriteData(Ptr(stage.record).get(), &done);
  stage.Note(kRecordNames[2], status, done);
  log.Tell("file.WriteData", status, told());
  log.Tell("file.Close", file->Close(), ToHex(stage.place.Contents()));
  log.Tell("file.Session=", file->put_Session(Ptr(stage.session).get()));
  log.Tell("file.OpenForRead", file->OpenForRead(stage.place.name(), VARIANT_FALSE, &done), told());
  for (int i = 0; i < 3; ++i) {
    Ptr<IUnit> unit;
    status = file->ReadUnit(unit.Out());
    log.Tell("file.ReadUnit", status, unit ? "unit" : "none");
  }
  static_cast<void>(file->Close());
}

void PlayFactory(Stage& stage, Log& log) {
  const auto help = CreateObject<IOrmHelp>(kOrmHelpClass);
  Ptr<IDispatch> array;
  const Variant definition(static_cast<IDispatch*>(Ptr(stage.definition).get()));
  log.Tell("help.CreateArray", help->CreateArray(definition.get(), array.Out()));
}

}  // namespace

void Stage::Note(const char* name, HRESULT status, VARIANT_BOOL done) {
  if (SUCCEEDED(status) && done != VARIANT_FALSE) written.emplace_back(name);
}

HRESULT Stage::WriteInfo(const char* name, IValueDefBase* info, VARIANT_BOOL* done) {
  const HRESULT status = Ptr(file)->WriteInfo(info, done);
  Note(name, status, *done);
  return status;
}

std::vector<std::string> Play(Stage& stage) {
  Log log;
  PlayStructure(stage, log);
  PlayArray(stage, log);
  PlaySession(stage, log);
  PlayUnit(stage, log);
  if (stage.has_room) PlayFile(stage, log);
  PlayFactory(stage, log);
  return log.lines;
}

}  // namespace halyard::test
