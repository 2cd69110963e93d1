// Steps on arrays of structures of fixed layout, which keep what they have read in rows:
// an array is made and read at once, so that other steps find it with elements.
#include "tests/differential/world.h"

namespace halyard::differential {
namespace {

constexpr SHORT kFieldTypes[] = {kChar, kByte, kShort, kWord, kLong, kDWord, kShortReal, kReal};
constexpr LONG kMostElements = 5;

Ptr<IStructureDef> MakeStructure(World& world, ULONG* size) {
  const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
  static_cast<void>(structure->put_Id(static_cast<SHORT>(world.random.Below(3))));
  for (auto members = world.random.Below(3) + 1; members > 0; --members) {
    VARIANT_BOOL done = VARIANT_FALSE;
    const SHORT type = world.random.Of(kFieldTypes);
    static_cast<void>(structure->AddSimpleMember(Bstr(AnyName(world)).get(), type, &done));
  }
  static_cast<void>(structure->CalculateDataSize(size));
  return structure;
}

// The encoding of so many elements, of small numbers of any width.
Bytes EncodingOf(World& world, LONG count, bool with_count, ULONG size) {
  Bytes bytes = with_count ? test::LittleEndian(static_cast<std::uint64_t>(count), 4) : Bytes();
  for (ULONG i = 0; i < static_cast<ULONG>(count) * size; ++i)
    bytes.push_back(static_cast<unsigned char>(world.random.Below(3) * 32));
  return bytes;
}

}  // namespace

void RowsStep(World& world) {
  ULONG size = 0;
  const auto structure = MakeStructure(world, &size);
  const LONG count = world.random.Between(1, kMostElements);
  const bool fixed = world.random.OneIn(3);
  const auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  static_cast<void>(definition->put_ValueType(structure.get()));
  static_cast<void>(definition->put_ElementCount(fixed ? count : 0));
  Ptr<IValueBase> array;
  static_cast<void>(definition->CreateDataObject(array.Out()));
  Bytes bytes = EncodingOf(world, count, !fixed, size);
  world.Keep(bytes);
  if (world.random.OneIn(4)) bytes = world.Damaged(std::move(bytes));
  VARIANT_BOOL result = 77;
  ULONG taken = 0;
  const auto room = static_cast<ULONG>(bytes.size());
  const HRESULT status = Answered([&] { return array->ReadFromBuffer(bytes.data(), room, &taken, &result); });
  world.Tell("rows " + ShowNumber(count) + " of " + ShowNumber(size),
             Status(status) + " " + ShowNumber(result) + " " + ShowNumber(taken));
  world.Keep(Ptr<IValueDefBase>(structure));
  world.Keep(Ptr<IValueDefBase>(definition));
  world.Keep(array);
}

}  // namespace halyard::differential
