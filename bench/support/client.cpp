#include "support/client.h"

#include "support/demand.h"

namespace bench {

using namespace halyard;

Bstr Name(std::string_view ascii) { return Bstr(WideString(ascii.begin(), ascii.end())); }

Variant TextValue(std::string_view ascii) {
  return Variant(WideView(WideString(ascii.begin(), ascii.end())));
}

Ptr<IStructureDef> NewStructure(SHORT id) {
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(definition->put_Id(id));
  return definition;
}

void AddMember(const Ptr<IStructureDef>& definition, std::string_view name, TypeCode type) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(definition->AddSimpleMember(Name(name).get(), type, &added));
  DemandTrue(added, "a member cannot be added");
}

void Calculate(const Ptr<IValueDefBase>& definition) {
  ULONG size = 0;
  Check(definition->CalculateDataSize(&size));
}

Ptr<IValueBase> NewValue(const Ptr<IValueDefBase>& definition) {
  Ptr<IValueBase> value;
  Check(definition->CreateDataObject(value.Out()));
  return value;
}

Ptr<IOrmFile> NewFile(const std::string& path, const Ptr<IValueDefBase>& definition) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForWrite(Name(path).get(), &done));
  if (done == VARIANT_FALSE) Fail("cannot write " + path);
  Check(file->WriteInfo(definition.get(), &done));
  DemandTrue(done, "cannot write the definition");
  return file;
}

Ptr<IOrmFile> NewBufferedFile(const std::string& path, const Ptr<IValueDefBase>& definition,
                              LONG buffer_size) {
  auto file = NewFile(path, definition);
  Check(QueryFor<IOrmFileBuffering>(file.get())->put_BufferSize(buffer_size));
  return file;
}

Ptr<IOrmFile> OpenFile(const std::string& path) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(Name(path).get(), VARIANT_TRUE, &done));
  if (done == VARIANT_FALSE) Fail("cannot read " + path);
  Ptr<IValueDefBase> definition;
  Check(file->ReadInfo(definition.Out()));
  if (!definition) Fail(path + " does not begin with a definition");
  return file;
}

Ptr<IValueBase> ReadValue(const Ptr<IOrmFile>& file) {
  Ptr<IValueBase> value;
  Check(file->ReadData(value.Out()));
  Demand(static_cast<bool>(value), "a record holds no value");
  return value;
}

}  // namespace bench
