// Steps on definitions: making them, changing them, asking them, moving them to and from
// bytes.
#include "tests/differential/world.h"

namespace halyard::differential {
namespace {

constexpr SHORT kTypes[] = {kString, kFixedString, kByteArray, kChar,      kByte, kShort, kWord,
                            kLong,   kDWord,       kInt64,     kShortReal, kReal, kDate};
constexpr LONG kFieldSizes[] = {0, 1, 3, 4, 8, 20, -1};
constexpr LONG kElementCounts[] = {0, 0, 1, 2, 3, 5};

SHORT AnyType(Random& random) {
  return random.OneIn(10) ? static_cast<SHORT>(random.Between(-1, 19)) : random.Of(kTypes);
}

SHORT AnyId(Random& random) { return static_cast<SHORT>(random.OneIn(3) ? 0 : random.Between(1, 6)); }

void NewSimple(World& world) {
  const auto definition = CreateObject<ISimpleValueDef>(kSimpleValueInfoClass);
  const SHORT type = AnyType(world.random);
  const LONG size = world.random.Of(kFieldSizes);
  world.Tell("simple " + ShowNumber(type) + " " + ShowNumber(size),
             Joined({Status([&] { return definition->put_Type(type); }),
                     Status([&] { return definition->SetDataSize(size); })}));
  if (world.random.OneIn(3)) {
    const Variant low = AnyVariant(world);
    const Variant high = AnyVariant(world);
    const Bstr script(AnyText(world));
    world.Tell("range " + Show(low.get()) + " " + Show(high.get()) + " " + Show(script.get()),
               Joined({Status([&] { return definition->put_Validation(VARIANT_TRUE); }),
                       Status([&] { return definition->put_MinValue(low.get()); }),
                       Status([&] { return definition->put_MaxValue(high.get()); }),
                       Status([&] { return definition->put_ValidationScript(script.get()); })}));
  }
  world.Keep(Ptr<IValueDefBase>(definition));
}

void AddElement(World& world, const Ptr<IEnumerationDef>& definition) {
  const Bstr name(AnyText(world));
  const LONG value =
      world.random.OneIn(3) ? LONG{world.random.Between(-70000, 70000)} : LONG{world.random.Between(-3, 9)};
  world.Tell("enumeration.AddMember " + Show(name.get()) + " " + ShowNumber(value),
             Number<VARIANT_BOOL>([&](auto* out) { return definition->AddMember(name.get(), value, out); }));
}

void NewEnumeration(World& world) {
  const auto definition = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  const SHORT type =
      world.random.OneIn(4) ? AnyType(world.random) : static_cast<SHORT>(4 + 2 * world.random.Below(3));
  world.Tell("enumeration " + ShowNumber(type), Status([&] { return definition->put_DataType(type); }));
  static_cast<void>(definition->put_Id(AnyId(world.random)));
  for (auto count = world.random.Below(4); count > 0; --count) AddElement(world, definition);
  world.Keep(Ptr<IValueDefBase>(definition));
}

void AddMember(World& world, const Ptr<IStructureDef>& structure) {
  Random& random = world.random;
  const Bstr name(AnyName(world));
  const SHORT type = AnyType(random);
  const auto definition = random.OneIn(2) ? world.AnyDefinition() : Ptr<IValueDefBase>();
  const LONG number = random.OneIn(2) ? random.Of(kFieldSizes) : random.Of(kElementCounts);
  const auto added = [&](VARIANT_BOOL* out) {
    if (definition) return structure->AddMember(name.get(), definition.get(), out);
    if (random.OneIn(3))
      return structure->AddSimpleArrayMember(name.get(), type, random.Of(kElementCounts), out);
    return structure->AddSimpleMemberSized(name.get(), type, static_cast<SHORT>(number), out);
  };
  world.Tell("structure.AddMember " + Show(name.get()) + " " + ShowNumber(type), Number<VARIANT_BOOL>(added));
  if (random.OneIn(3)) {
    const Variant index(ViewOf(name.get()));
    world.Tell("structure.CanBeNull",
               Status([&] { return structure->put_CanBeNull(index.get(), VARIANT_TRUE); }));
  }
}

void NewStructure(World& world) {
  const auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
  static_cast<void>(structure->put_Id(AnyId(world.random)));
  static_cast<void>(structure->put_Name(Bstr(AnyText(world)).get()));
  for (auto count = world.random.Below(6); count > 0; --count) AddMember(world, structure);
  if (!world.random.OneIn(8)) {
    world.Tell("structure.CalculateDataSize",
               Number<ULONG>([&](ULONG* out) { return structure->CalculateDataSize(out); }));
  }
  world.Keep(Ptr<IValueDefBase>(structure));
}

void NewArray(World& world) {
  const auto array = CreateObject<IArrayDef>(kArrayInfoClass);
  const auto element = world.random.OneIn(3) ? Ptr<IValueDefBase>() : world.AnyDefinition();
  const SHORT type = AnyType(world.random);
  const LONG count = world.random.Of(kElementCounts);
  world.Tell("array " + ShowNumber(type) + " x " + ShowNumber(count),
             Joined({Status([&] {
                       return element ? array->put_ValueType(element.get()) : array->put_DataType(type);
                     }),
                     Status([&] { return array->put_ElementCount(count); })}));
  static_cast<void>(array->put_Id(AnyId(world.random)));
  if (!world.random.OneIn(8)) {
    world.Tell("array.CalculateDataSize",
               Number<ULONG>([&](ULONG* out) { return array->CalculateDataSize(out); }));
  }
  world.Keep(Ptr<IValueDefBase>(array));
}

// What every definition answers about itself.
void Ask(World& world, const Ptr<IValueDefBase>& definition) {
  world.Tell("definition.Type", Joined({Number<SHORT>([&](SHORT* out) { return definition->get_Type(out); }),
                                        Words([&](BSTR* out) { return definition->get_TypeString(out); })}));
  world.Tell("definition.Id", Joined({Number<SHORT>([&](SHORT* out) { return definition->get_Id(out); }),
                                      Words([&](BSTR* out) { return definition->get_Name(out); })}));
  world.Tell("definition.Count", Number<LONG>([&](LONG* out) { return definition->get_Count(out); }));
  world.Tell("definition.DataSize", Number<ULONG>([&](ULONG* out) { return definition->get_DataSize(out); }));
  world.Tell("definition.PacketSize",
             Number<ULONG>([&](ULONG* out) { return definition->get_PacketSize(out); }));
}

void ChangeEnumeration(World& world, const Ptr<IEnumerationDef>& definition) {
  const LONG position = world.random.Between(-1, 4);
  if (world.random.OneIn(3)) {
    world.Tell("enumeration.Remove " + ShowNumber(position),
               Status([&] { return definition->Remove(position); }));
  } else if (world.random.OneIn(2)) {
    world.Tell("enumeration.ElementValue " + ShowNumber(position),
               Joined({Number<LONG>([&](LONG* out) { return definition->get_ElementValue(position, out); }),
                       Words([&](BSTR* out) { return definition->get_ElementName(position, out); })}));
  } else {
    AddElement(world, definition);
  }
}

void ChangeStructure(World& world, const Ptr<IStructureDef>& structure) {
  const Variant index = AnyIndex(world);
  const std::string call = "structure " + Show(index.get());
  switch (world.random.Below(5)) {
    case 0:
      return world.Tell(call + " Remove", Status([&] { return structure->Remove(index.get()); }));
    case 1:
      return world.Tell(call + " CanBeNull", Number<VARIANT_BOOL>([&](VARIANT_BOOL* out) {
                          return structure->get_CanBeNull(index.get(), out);
                        }));
    case 2: {
      SHORT type = 77;
      LONG offset = 77;
      ULONG size = 77;
      const std::string result = Number<VARIANT_BOOL>([&](VARIANT_BOOL* out) {
        return structure->MemberInfo(world.random.Between(-1, 5), &type, &offset, &size, out);
      });
      return world.Tell("structure.MemberInfo",
                        result + " " + ShowNumber(type) + " " + ShowNumber(offset) + " " + ShowNumber(size));
    }
    case 3: {
      Ptr<IValueDefBase> member;
      world.Tell(call + " Members", Made(&member, [&](IValueDefBase** out) {
                   return structure->get_Members(index.get(), out);
                 }));
      return world.Keep(member);
    }
    default:
      AddMember(world, structure);
  }
}

void ChangeArray(World& world, const Ptr<IArrayDef>& array) {
  const SHORT type = AnyType(world.random);
  const LONG count = world.random.Of(kElementCounts);
  switch (world.random.Below(4)) {
    case 0:
      return world.Tell("array.DataType " + ShowNumber(type),
                        Status([&] { return array->put_DataType(type); }));
    case 1:
      return world.Tell("array.ElementCount " + ShowNumber(count),
                        Status([&] { return array->put_ElementCount(count); }));
    case 2:
      return world.Tell("array.DataTypeString",
                        Joined({Words([&](BSTR* out) { return array->get_DataTypeString(out); }),
                                Number<SHORT>([&](SHORT* out) { return array->get_DataType(out); })}));
    default: {
      Ptr<IValueDefBase> element;
      world.Tell("array.ValueType",
                 Made(&element, [&](IValueDefBase** out) { return array->get_ValueType(out); }));
      world.Keep(element);
    }
  }
}

void Change(World& world, const Ptr<IValueDefBase>& definition) {
  if (const auto enumeration = definition.As<IEnumerationDef>()) return ChangeEnumeration(world, enumeration);
  if (const auto structure = definition.As<IStructureDef>()) return ChangeStructure(world, structure);
  if (const auto array = definition.As<IArrayDef>()) return ChangeArray(world, array);
  const SHORT type = AnyType(world.random);
  world.Tell("definition.Type " + ShowNumber(type), Status([&] { return definition->put_Type(type); }));
}

}  // namespace

void DefinitionStep(World& world) {
  using Maker = void (*)(World&);
  constexpr Maker kMakers[] = {NewSimple, NewEnumeration, NewStructure, NewStructure, NewArray, NewArray};
  const auto definition = world.AnyDefinition();
  if (!definition || world.random.OneIn(3)) return world.random.Of(kMakers)(world);
  switch (world.random.Below(6)) {
    case 0:
      return Ask(world, definition);
    case 1:
      return Change(world, definition);
    case 2:
      return world.Tell("definition.CalculateDataSize",
                        Number<ULONG>([&](ULONG* out) { return definition->CalculateDataSize(out); }));
    case 3:
      return ReadAnything(world, "definition", definition.get());
    default:
      return WriteAnything(world, "definition", definition.get());
  }
}

}  // namespace halyard::differential
