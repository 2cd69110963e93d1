// Steps on values: making them, their members and elements, copies, bytes.
#include <algorithm>

#include "tests/differential/world.h"

namespace halyard::differential {
namespace {

constexpr int kDeepest = 12;
constexpr LONG kShownParts = 6;

// The parts of a value, a few of them.
std::string Parts(const Ptr<IValueBase>& value, int depth) {
  LONG count = 0;
  if (FAILED(value->get_Count(&count))) return "";
  std::string result;
  for (LONG i = 0; i < std::clamp(count, LONG{0}, kShownParts); ++i) {
    Ptr<IValueBase> part;
    const HRESULT status = value->get_At(Variant(i).get(), part.Out());
    if (i != 0) result += ", ";
    result += SUCCEEDED(status) && part
                  ? Tree(part, depth + 1)
                  : Content([&](VARIANT* out) { return value->get_Item(Variant(i).get(), out); });
  }
  return result;
}

void Ask(World& world, const Ptr<IValueBase>& value) {
  Ptr<IValueDefBase> info;
  world.Tell("value.Type", Joined({Number<SHORT>([&](SHORT* out) { return value->get_Type(out); }),
                                   Words([&](BSTR* out) { return value->get_TypeString(out); }),
                                   Number<SHORT>([&](SHORT* out) { return value->get_Id(out); }),
                                   Made(&info, [&](IValueDefBase** out) { return value->get_Info(out); })}));
  world.Tell("value.Count", Joined({Number<LONG>([&](LONG* out) { return value->get_Count(out); }),
                                    Number<ULONG>([&](ULONG* out) { return value->get_PacketSize(out); })}));
}

void GetPart(World& world, const Ptr<IValueBase>& value) {
  const Variant index = AnyIndex(world);
  Ptr<IValueBase> part;
  world.Tell("value " + Show(index.get()),
             Joined({Content([&](VARIANT* out) { return value->get_Item(index.get(), out); }),
                     Words([&](BSTR* out) { return value->get_Name(index.get(), out); }),
                     Made(&part, [&](IValueBase** out) { return value->get_At(index.get(), out); })}));
  world.Keep(part);
}

void PutPart(World& world, const Ptr<IValueBase>& value) {
  const Variant index = AnyIndex(world);
  const Variant content = AnyVariant(world);
  world.Tell("value " + Show(index.get()) + " = " + Show(content.get()),
             Status([&] { return value->put_Item(index.get(), content.get()); }));
}

void AddPart(World& world, const Ptr<IValueBase>& value) {
  Variant content = AnyVariant(world);
  if (world.random.OneIn(2)) {
    // An element of the array's own kind.
    Ptr<IValueDefBase> info;
    Ptr<IValueDefBase> element;
    static_cast<void>(value->get_Info(info.Out()));
    if (const auto array = info.As<IArrayDef>()) static_cast<void>(array->get_ValueType(element.Out()));
    Ptr<IValueBase> fresh;
    if (element) static_cast<void>(element->CreateDataObject(fresh.Out()));
    if (fresh) content = Variant(static_cast<IDispatch*>(fresh.get()));
  }
  world.Tell("value.Add " + Show(content.get()), Status([&] { return value->Add(content.get()); }));
}

void RemovePart(World& world, const Ptr<IValueBase>& value) {
  if (world.random.OneIn(5)) return world.Tell("value.RemoveAll", Status([&] { return value->RemoveAll(); }));
  const Variant index = AnyIndex(world);
  world.Tell("value.Remove " + Show(index.get()), Status([&] { return value->Remove(index.get()); }));
}

void PutWhole(World& world, const Ptr<IValueBase>& value) {
  const Variant content = AnyVariant(world);
  world.Tell("value = " + Show(content.get()),
             Joined({Status([&] { return value->put_Value(content.get()); }),
                     Content([&](VARIANT* out) { return value->get_Value(out); })}));
}

void CopyWhole(World& world, const Ptr<IValueBase>& value) {
  Ptr<IValueBase> copy;
  world.Tell("value.Copy", Made(&copy, [&](IValueBase** out) { return value->Copy(out); }));
  world.Keep(copy);
}

// A type that the value should refuse, having one, or take, having none.
void PutInfo(World& world, const Ptr<IValueBase>& value) {
  const auto definition = world.AnyDefinition();
  world.Tell("value.Info", Status([&] { return value->put_Info(definition.get()); }));
}

// An object made by its class, without a definition.
void MakeUntyped(World& world) {
  constexpr CLSID kClasses[] = {kStringArrayClass, kSimpleFixedArrayClass,     kSimpleArrayClass,
                                kArrayClass,       kSimpleValueClass,          kEnumerationClass,
                                kStructureClass,   kSimpleFixedStructureClass, kCollectionClass};
  world.Keep(CreateObject<IValueBase>(world.random.Of(kClasses)));
  world.Tell("untyped value", "made");
}

}  // namespace

Ptr<IValueBase> FreshValue(World& world) {
  const auto definition = world.AnyDefinition();
  Ptr<IValueBase> value;
  if (definition) static_cast<void>(definition->CreateDataObject(value.Out()));
  return value;
}

std::string Tree(const Ptr<IValueBase>& value, int depth) {
  if (depth > kDeepest) return "...";
  const std::string parts = Parts(value, depth);
  if (!parts.empty()) return "{" + parts + "}";
  return Content([&](VARIANT* out) { return value->get_Value(out); });
}

void ValueStep(World& world) {
  using Step = void (*)(World&, const Ptr<IValueBase>&);
  constexpr Step kSteps[] = {Ask,     GetPart, GetPart, PutPart,    PutPart,  PutPart,   AddPart,
                             AddPart, AddPart, AddPart, RemovePart, PutWhole, CopyWhole, PutInfo};
  const auto value = world.AnyValue();
  if (!value || world.random.OneIn(6)) {
    const auto fresh = FreshValue(world);
    world.Tell("fresh value", fresh ? Tree(fresh) : "none");
    world.Keep(fresh);
    return;
  }
  if (world.random.OneIn(25)) return MakeUntyped(world);
  switch (world.random.Below(8)) {
    case 0:
      return world.Tell("tree", Tree(value));
    case 1:
      return ReadAnything(world, "value", value.get());
    case 2:
      return WriteAnything(world, "value", value.get());
    default:
      world.random.Of(kSteps)(world, value);
  }
}

}  // namespace halyard::differential
