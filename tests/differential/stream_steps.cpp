// Steps with sessions, units and files.
#include <filesystem>

#include "tests/differential/world.h"
#include "tests/support/files.h"

namespace halyard::differential {
namespace {

const Bstr& FileName() {
  static const Bstr name(OLESTR("differential.orm"));
  return name;
}

Ptr<IOrmSession> Session(World& world) {
  if (!world.session || world.random.OneIn(20)) world.session = CreateObject<IOrmSession>(kOrmSessionClass);
  return world.session;
}

void Register(World& world) {
  const auto session = Session(world);
  const auto definition = world.AnyDefinition();
  world.Tell("AddType",
             Number<VARIANT_BOOL>([&](auto* out) { return session->AddType(definition.get(), out); }));
}

void Find(World& world) {
  const auto session = Session(world);
  const Variant type =
      world.random.OneIn(3) ? AnyVariant(world) : Variant(static_cast<SHORT>(world.random.Between(13, 18)));
  const auto id = static_cast<SHORT>(world.random.Below(7));
  Ptr<IValueDefBase> found;
  world.Tell("GetTypeFromId " + Show(type.get()) + " " + ShowNumber(id),
             Made(&found, [&](IValueDefBase** out) { return session->GetTypeFromId(type.get(), id, out); }));
  world.Keep(found);
  const Bstr name(AnyText(world));
  Ptr<IStructureDef> structure;
  world.Tell("GetStructureByName " + Show(name.get()), Made(&structure, [&](IStructureDef** out) {
               return session->GetStructureByName(name.get(), out);
             }));
}

void UseUnit(World& world) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  if (!world.random.OneIn(8)) static_cast<void>(unit->put_Session(Session(world).get()));
  if (world.random.OneIn(2)) {
    world.Tell("unit.Value", Status([&] { return unit->put_Value(world.AnyValue().get()); }));
  } else {
    world.Tell("unit.Info", Status([&] { return unit->put_Info(world.AnyDefinition().get()); }));
  }
  world.Tell("unit.PacketSize", Number<ULONG>([&](ULONG* out) { return unit->get_PacketSize(out); }));
  WriteAnything(world, "unit", unit.get());
  ReadAnything(world, "unit", unit.get());
  Ptr<IValueBase> value;
  Ptr<IValueDefBase> info;
  world.Tell("unit", Joined({Number<SHORT>([&](SHORT* out) { return unit->get_Type(out); }),
                             Words([&](BSTR* out) { return unit->get_TypeString(out); }),
                             Made(&value, [&](IValueBase** out) { return unit->get_Value(out); }),
                             Made(&info, [&](IValueDefBase** out) { return unit->get_Info(out); })}));
  world.Keep(value);
  world.Keep(info);
}

// Whether the record is of a size that a test wants to write: an array that was cut while
// it was read keeps its count and would fill the file with zeros.
bool IsSmall(const Ptr<IValueBase>& value) {
  constexpr ULONG kLargestRecord = 100000;
  ULONG size = 0;
  return !value || FAILED(value->get_PacketSize(&size)) || size <= kLargestRecord;
}

void WriteFile(World& world) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  world.Tell("OpenForWrite",
             Number<VARIANT_BOOL>([&](auto* out) { return file->OpenForWrite(FileName().get(), out); }));
  for (auto records = world.random.Below(5); records > 0; --records) {
    if (world.random.OneIn(2)) {
      const auto definition = world.AnyDefinition();
      world.Tell("WriteInfo",
                 Number<VARIANT_BOOL>([&](auto* out) { return file->WriteInfo(definition.get(), out); }));
    } else {
      const auto value = world.AnyValue();
      if (!IsSmall(value)) continue;
      world.Tell("WriteData",
                 Number<VARIANT_BOOL>([&](auto* out) { return file->WriteData(value.get(), out); }));
    }
  }
  static_cast<void>(file->Close());
}

// Shows the file's bytes; at times cuts them.
void ShowAndCutFile(World& world) {
  const Bytes bytes = test::ContentOf("differential.orm");
  world.Tell("file", test::ToHex(test::Prefix(bytes, 600)) + " of " +
                         ShowNumber(static_cast<long long>(bytes.size())));
  if (!world.random.OneIn(4)) return;
  const auto kept = world.random.Below(static_cast<std::uint32_t>(bytes.size()) + 1);
  std::filesystem::resize_file("differential.orm", kept);
  world.Tell("cut", ShowNumber(kept));
}

void ReadFile(World& world) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  static_cast<void>(file->put_Session(Session(world).get()));
  const VARIANT_BOOL fresh = world.random.OneIn(2) ? VARIANT_TRUE : VARIANT_FALSE;
  world.Tell("OpenForRead", Number<VARIANT_BOOL>(
                                [&](auto* out) { return file->OpenForRead(FileName().get(), fresh, out); }));
  static_cast<void>(file->get_Session(world.session.Out()));
  for (int records = 0; records < 6; ++records) {
    Ptr<IUnit> unit;
    world.Tell("ReadUnit", Made(&unit, [&](IUnit** out) { return file->ReadUnit(out); }));
    if (!unit) break;
    Ptr<IValueBase> value;
    Ptr<IValueDefBase> info;
    static_cast<void>(unit->get_Value(value.Out()));
    static_cast<void>(unit->get_Info(info.Out()));
    if (value) world.Tell("read", Tree(value));
    world.Keep(value);
    world.Keep(info);
  }
  Ptr<IValueBase> value;
  world.Tell("ReadData", Made(&value, [&](IValueBase** out) { return file->ReadData(out); }));
}

}  // namespace

void StreamStep(World& world) {
  switch (world.random.Below(6)) {
    case 0:
      return Register(world);
    case 1:
      return Find(world);
    case 2:
      WriteFile(world);
      ShowAndCutFile(world);
      return ReadFile(world);
    default:
      UseUnit(world);
  }
}

}  // namespace halyard::differential
