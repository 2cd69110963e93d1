#include "tests/misuse/subjects.h"

#include "halyard/stream/orm_help.h"
#include "halyard/stream/orm_session.h"
#include "tests/support/encoding.h"
#include "tests/support/trees.h"

namespace halyard::test {
namespace {

Ptr<IUnknown> Of(const Ptr<IValueBase>& value) { return value.As<IUnknown>(); }

Ptr<IStructureDef> Mixed() {
  return StructureDefinition({{OLESTR("Number"), kLong}, {OLESTR("Label"), kString}}, 1, OLESTR("Mixed"));
}

Ptr<IStructureDef> Fixed() {
  return StructureDefinition({{OLESTR("Number"), kLong}, {OLESTR("Small"), kShort}}, 1, OLESTR("Fixed"));
}

Ptr<IUnknown> NewArrayOf(const Ptr<IArrayDef>& definition, std::initializer_list<Variant> elements) {
  const auto array = NewArray(definition);
  for (const Variant& element : elements) Add(array, element);
  return array.As<IUnknown>();
}

Ptr<IUnknown> NewShorts(LONG fixed) {
  const auto array = NewArray(SimpleArrayDefinition(kShort, fixed));
  if (fixed == 0) AddAll(array, {4, 5, 6});
  return array.As<IUnknown>();
}

Ptr<IUnknown> NewArrayOfStructures() {
  const auto array = NewArray(ArrayDefinition(Fixed()));
  for (int i = 0; i < 2; ++i) Add(array, Object(NewValue(Fixed())));
  return array.As<IUnknown>();
}

Ptr<IUnknown> NewSession() {
  const auto session = CreateObject<IOrmSession>(kOrmSessionClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  static_cast<void>(session->AddType(Mixed().get(), &added));
  return session.As<IUnknown>();
}

Ptr<IUnknown> NewRange() {
  const auto definition = SimpleDefinition(kLong);
  static_cast<void>(definition->put_MinValue(I4(1).get()));
  static_cast<void>(definition->put_MaxValue(I4(9).get()));
  return definition.As<IUnknown>();
}

template <class I>
std::string BytesOf(const Ptr<I>& object) {
  const Written written = WriteTo(object, 128);
  return ToHex(written.bytes);
}

std::string BoundsOf(const Ptr<ISimpleValueDef>& definition) {
  return Describe(Get(definition, &ISimpleValueDef::get_MinValue)) + " " +
         Describe(Get(definition, &ISimpleValueDef::get_MaxValue));
}

}  // namespace

Ptr<IUnknown> NewSubject(const std::string& name) {
  if (name == "SimpleValue") return Of(SimpleValue(kLong));
  if (name == "Enumeration") return Of(NewValue(EnumerationDefinition(kShort, {{OLESTR("Red"), 1}})));
  if (name == "Structure") return Of(NewValue(Mixed()));
  if (name == "SimpleFixedStructure") return Of(NewValue(Fixed()));
  if (name == "Collection") return CreateObject<IUnknown>(kCollectionClass);
  if (name == "Array") return NewArrayOfStructures();
  if (name == "SimpleArray") return NewShorts(0);
  if (name == "SimpleFixedArray") return NewShorts(3);
  if (name == "StringArray")
    return NewArrayOf(SimpleArrayDefinition(kString), {Text(OLESTR("a")), Text(OLESTR("b"))});
  if (name == "SimpleValueInfo") return NewRange();
  if (name == "StructureInfo") return Mixed().As<IUnknown>();
  if (name == "OrmSession") return NewSession();
  if (name == "OrmHelp") return CreateObject<IUnknown>(kOrmHelpClass);
  return {};
}

void Exercise(IUnknown* object) {
  const Ptr<IUnknown> any(object);
  ULONG size = 0;
  if (const auto value = any.As<IValueBase>()) {
    Ptr<IValueBase> copy;
    static_cast<void>(value->get_PacketSize(&size));
    static_cast<void>(WriteTo(value, 256));
    static_cast<void>(value->Copy(copy.Out()));
  } else if (const auto definition = any.As<IValueDefBase>()) {
    static_cast<void>(definition->CalculateDataSize(&size));
    static_cast<void>(definition->get_PacketSize(&size));
    static_cast<void>(WriteTo(definition, 256));
  }
}

std::string Holdings(IUnknown* object) {
  const Ptr<IUnknown> any(object);
  if (const auto value = any.As<ICollection>()) return "collection";
  if (const auto value = any.As<IValueBase>()) return ShowTree(value) + " " + BytesOf(value);
  if (const auto simple = any.As<ISimpleValueDef>()) return BoundsOf(simple) + " " + BytesOf(simple);
  if (const auto definition = any.As<IValueDefBase>()) return BytesOf(definition);
  if (const auto session = any.As<IOrmSession>()) {
    Ptr<IStructureDef> found;
    static_cast<void>(session->GetStructureByName(Bstr(OLESTR("Mixed")).get(), found.Out()));
    return found ? "Mixed" : "nothing";
  }
  return {};
}

}  // namespace halyard::test
