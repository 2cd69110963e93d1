#include "tests/differential/hostile_reading.h"

#include <map>

#include "tests/support/files.h"
#include "tests/support/handles.h"

namespace halyard::differential {
namespace {

constexpr int kMostCalls = 40;
constexpr ULONG kLargestUnit = 70000;  // that is written again; more than a file's own buffer holds
constexpr std::size_t kShownBytes = 200;
constexpr char kReadName[] = "hostile.orm";
constexpr char kWrittenName[] = "again.orm";

Bstr WideName(std::string_view name) { return Bstr(WideString(name.begin(), name.end())); }

// Bytes as they are, long ones by their beginning, size and sum (FNV-1a).
std::string ShowBytes(const Bytes& bytes) {
  std::uint32_t sum = 0x811C9DC5;
  for (const unsigned char byte : bytes) sum = (sum ^ byte) * 0x01000193;
  return "[" + test::ToHex(test::Prefix(bytes, kShownBytes)) + "] " +
         ShowNumber(static_cast<long long>(bytes.size())) + " " + ShowNumber(sum);
}

// Status, result and count of a call on a buffer.
template <class Call>
std::string Moved(Call&& call) {
  constexpr ULONG kUntouched = 0x5A5A5A5A;
  VARIANT_BOOL result = 77;
  ULONG count = kUntouched;
  const HRESULT status = call(&count, &result);
  return Joined({Status(status), ShowNumber(result), count == kUntouched ? "-" : ShowNumber(count)});
}

std::string Shape(const Ptr<IValueDefBase>& definition) {
  return Joined({Number<SHORT>([&](SHORT* out) { return definition->get_Type(out); }),
                 Number<SHORT>([&](SHORT* out) { return definition->get_Id(out); }),
                 Words([&](BSTR* out) { return definition->get_Name(out); }),
                 Words([&](BSTR* out) { return definition->get_TypeString(out); }),
                 Number<LONG>([&](LONG* out) { return definition->get_Count(out); }),
                 Number<ULONG>([&](ULONG* out) { return definition->get_DataSize(out); }),
                 Number<ULONG>([&](ULONG* out) { return definition->get_PacketSize(out); })});
}

// Writes an object into just enough room, and into one byte less; what it wrote into the
// first.
template <class I>
Bytes WriteBack(World& world, const Ptr<I>& object) {
  ULONG size = 0;
  const HRESULT status = object->get_PacketSize(&size);
  world.Tell("PacketSize", Joined({Status(status), ShowNumber(size)}));
  if (FAILED(status) || size > kLargestUnit) return {};
  Bytes bytes(size);
  ULONG written = 0;
  world.Tell("write", Moved([&](ULONG* count, VARIANT_BOOL* result) {
               const HRESULT hr = object->WriteToBuffer(bytes.data(), size, count, result);
               written = *count;
               return hr;
             }));
  world.Tell("bytes", ShowBytes(bytes));
  if (size > 0) {
    Bytes less(size - 1);
    world.Tell("write into less", Moved([&](ULONG* count, VARIANT_BOOL* result) {
                 return object->WriteToBuffer(less.data(), size - 1, count, result);
               }));
  }
  bytes.resize(written <= size ? written : 0);
  return bytes;
}

void TellUnit(World& world, const Ptr<IUnit>& unit) {
  Ptr<IValueBase> value;
  Ptr<IValueDefBase> info;
  world.Tell("unit", Joined({Number<VARIANT_BOOL>([&](auto* out) { return unit->get_IsDataUnit(out); }),
                             Number<VARIANT_BOOL>([&](auto* out) { return unit->get_IsInfoUnit(out); }),
                             Number<SHORT>([&](SHORT* out) { return unit->get_Type(out); }),
                             Words([&](BSTR* out) { return unit->get_TypeString(out); }),
                             Made(&value, [&](IValueBase** out) { return unit->get_Value(out); }),
                             Made(&info, [&](IValueDefBase** out) { return unit->get_Info(out); })}));
  if (info) world.Tell("definition", Shape(info));
  if (value) world.Tell("value", Tree(value));
}

// Reads the bytes that a unit wrote with another unit of the same session, and writes them
// once more.
void ReadAgain(World& world, const Ptr<IUnit>& unit, const Ptr<IUnit>& next, Bytes bytes) {
  Ptr<IOrmSession> session;
  static_cast<void>(unit->get_Session(session.Out()));
  static_cast<void>(next->put_Session(session.get()));
  world.Tell("read again", Moved([&](ULONG* count, VARIANT_BOOL* result) {
               return next->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), count, result);
             }));
  WriteBack(world, next);
}

// Every unit up to the end; a call behind the end is made once more.
std::vector<Ptr<IUnit>> TellUnits(World& world, const Ptr<IOrmFile>& file) {
  std::vector<Ptr<IUnit>> units;
  // One for all of them: on Windows a new object costs a search in the registry.
  const auto next = CreateObject<IUnit>(kUnitClass);
  int ends = 0;
  for (int call = 0; call < kMostCalls && ends < 2; ++call) {
    Ptr<IUnit> unit;
    world.Tell("ReadUnit", Made(&unit, [&](IUnit** out) { return file->ReadUnit(out); }));
    ends += unit ? 0 : 1;
    if (!unit) continue;
    TellUnit(world, unit);
    ReadAgain(world, unit, next, WriteBack(world, unit));
    units.push_back(unit);
  }
  return units;
}

void WriteAgain(World& world, const std::vector<Ptr<IUnit>>& units) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  static_cast<void>(file->OpenForWrite(WideName(kWrittenName).get(), &done));
  for (const auto& unit : units) {
    ULONG size = 0;
    if (FAILED(unit->get_PacketSize(&size)) || size > kLargestUnit) continue;
    world.Tell("WriteUnit",
               Number<VARIANT_BOOL>([&](auto* out) { return file->WriteUnit(unit.get(), out); }));
  }
  static_cast<void>(file->Close());
  world.Tell("written", ShowBytes(test::ContentOf(kWrittenName)));
}

void ReadByName(World& world, const char* name, bool writes_again) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  world.Tell("OpenForRead", Number<VARIANT_BOOL>([&](auto* out) {
               return file->OpenForRead(WideName(name).get(), VARIANT_TRUE, out);
             }));
  const auto units = TellUnits(world, file);
  static_cast<void>(file->Close());
  if (writes_again) WriteAgain(world, units);
}

// Writes what the unit carries by the call for it.
std::string WriteBody(const Ptr<IOrmFile>& file, const Ptr<IUnit>& unit) {
  ULONG size = 0;
  if (FAILED(unit->get_PacketSize(&size)) || size > kLargestUnit) return "left out";
  Ptr<IValueBase> value;
  static_cast<void>(unit->get_Value(value.Out()));
  if (value) return Number<VARIANT_BOOL>([&](auto* out) { return file->WriteData(value.get(), out); });
  Ptr<IValueDefBase> info;
  static_cast<void>(unit->get_Info(info.Out()));
  return Number<VARIANT_BOOL>([&](auto* out) { return file->WriteInfo(info.get(), out); });
}

// Every unit by name, let go before the next one is read, as most readers do: the file may
// use the same objects again.
void ReadLettingGo(World& world) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  const auto copy = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  static_cast<void>(file->OpenForRead(WideName(kReadName).get(), VARIANT_TRUE, &done));
  static_cast<void>(copy->OpenForWrite(WideName(kWrittenName).get(), &done));
  int ends = 0;
  for (int call = 0; call < kMostCalls && ends < 2; ++call) {
    Ptr<IUnit> unit;
    world.Tell("ReadUnit, letting go", Made(&unit, [&](IUnit** out) { return file->ReadUnit(out); }));
    ends += unit ? 0 : 1;
    if (!unit) continue;
    TellUnit(world, unit);
    world.Tell("write body", WriteBody(copy, unit));
  }
  static_cast<void>(copy->Close());
  world.Tell("written, letting go", ShowBytes(test::ContentOf(kWrittenName)));
}

// Any of the reading calls from a handle, whose position shows how far each went.
void ReadByHandle(World& world) {
  const LONG handle = test::OpenHandleForRead(kReadName);
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  world.Tell("AttachForRead",
             Number<VARIANT_BOOL>([&](auto* out) { return file->AttachForRead(handle, VARIANT_TRUE, out); }));
  int ends = 0;
  for (int call = 0; call < kMostCalls && ends < 2; ++call) {
    Ptr<IUnit> unit;
    Ptr<IValueBase> value;
    Ptr<IValueDefBase> info;
    std::string outcome;
    switch (world.random.Below(3)) {
      case 0:
        outcome = Made(&unit, [&](IUnit** out) { return file->ReadUnit(out); });
        break;
      case 1:
        outcome = Made(&value, [&](IValueBase** out) { return file->ReadData(out); });
        break;
      default:
        outcome = Made(&info, [&](IValueDefBase** out) { return file->ReadInfo(out); });
    }
    ends += unit || value || info ? 0 : 1;
    world.Tell("read by handle", Joined({outcome, ShowNumber(test::PositionOf(handle))}));
    if (value) world.Tell("value", Tree(value));
  }
}

// An object of each definition class, made when it is asked for.
class Definitions {
 public:
  const Ptr<IValueDefBase>& Of(SHORT type) {
    const CLSID& clsid = ClassOf(type);
    auto& definition = made_[&clsid];
    if (!definition) definition = CreateObject<IValueDefBase>(clsid);
    return definition;
  }

 private:
  static const CLSID& ClassOf(SHORT type) {
    switch (type) {
      case kStructure:
        return kStructureInfoClass;
      case kArray:
        return kArrayInfoClass;
      case kEnumeration:
        return kEnumerationInfoClass;
      default:
        return kSimpleValueInfoClass;
    }
  }

  std::map<const CLSID*, Ptr<IValueDefBase>> made_;
};

// The unit's definition, read by an object of its class and not by a unit.
void ReadDefinition(World& world, Definitions& definitions, const Bytes& unit) {
  constexpr std::size_t kHead = 4;
  if (unit.size() < kHead || unit[0] != 101) return;
  const auto& definition = definitions.Of(unit[2]);
  Bytes bytes(unit.begin() + kHead, unit.end());
  world.Tell("definition.ReadFromBuffer", Moved([&](ULONG* count, VARIANT_BOOL* result) {
               return definition->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), count,
                                                 result);
             }));
  world.Tell("definition", Shape(definition));
  WriteBack(world, definition);
  world.Tell("CalculateDataSize",
             Number<ULONG>([&](ULONG* out) { return definition->CalculateDataSize(out); }));
}

void ReadFromMemory(World& world, const Bytes& stream) {
  const auto unit = CreateObject<IUnit>(kUnitClass);
  if (!world.random.OneIn(4))
    static_cast<void>(unit->put_Session(CreateObject<IOrmSession>(kOrmSessionClass).get()));
  Definitions definitions;
  int calls = 0;
  for (Bytes bytes : UnitsOf(stream)) {
    if (++calls > kMostCalls) return;
    ReadDefinition(world, definitions, bytes);
    world.Tell("unit.ReadFromBuffer", Moved([&](ULONG* count, VARIANT_BOOL* result) {
                 return unit->ReadFromBuffer(bytes.data(), static_cast<ULONG>(bytes.size()), count, result);
               }));
    TellUnit(world, unit);
  }
}

}  // namespace

void ReadHostile(World& world, const Bytes& stream) {
  test::MakeFile(kReadName, stream);
  world.Tell("stream", ShowBytes(stream));
  ReadByName(world, kReadName, true);
  ReadByName(world, kWrittenName, false);
  ReadLettingGo(world);
  ReadByHandle(world);
  ReadFromMemory(world, stream);
}

}  // namespace halyard::differential
