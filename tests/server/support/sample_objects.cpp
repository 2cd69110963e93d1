#include "tests/server/support/sample_objects.h"

#include "tests/support/definitions.h"

namespace halyard::test {
namespace {

constexpr SHORT kId = 7;

Ptr<IStructureDef> SampleStructure() {
  auto structure = StructureDefinition({{L"Depth", kReal}, {L"Count", kLong}}, kId, L"Sample");
  return structure;
}

Ptr<IArrayDef> SampleArrayDefinition(IValueDefBase* element, LONG count) {
  auto definition = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(definition->put_Id(kId));
  Check(definition->put_ValueType(element));
  Check(definition->put_ElementCount(count));
  Calculate(definition);
  return definition;
}

Ptr<IEnumerationDef> SampleEnumeration() {
  auto definition = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(definition->AddMember(Bstr(L"Red").get(), 1, &added));
  Check(definition->put_Id(kId));
  return definition;
}

Ptr<IDispatch> SampleUnit() {
  auto unit = CreateObject<IUnit>(kUnitClass);
  Check(unit->put_Session(CreateObject<IOrmSession>(kOrmSessionClass).get()));
  Check(unit->put_Info(SampleStructure().get()));
  return unit;
}

Ptr<IDispatch> WithText() {
  auto array = NewValue(SampleArrayDefinition(SimpleDefinition(kString).get(), 0));
  Check(array->Add(Text(L"one").get()));
  return array;
}

Ptr<IDispatch> WithNumber() {
  auto array = NewValue(SampleArrayDefinition(SimpleDefinition(kLong).get(), 0));
  Check(array->Add(I4(3).get()));
  return array;
}

struct Maker {
  const OLECHAR* class_name;
  Ptr<IDispatch> (*make)();
};

const Maker kMakers[] = {
    {L"ArrayInfo", [] { return Ptr<IDispatch>(SampleArrayDefinition(SimpleDefinition(kLong).get(), 2)); }},
    {L"SimpleValueInfo", [] { return Ptr<IDispatch>(SimpleDefinition(kLong)); }},
    {L"EnumerationInfo", [] { return Ptr<IDispatch>(SampleEnumeration()); }},
    {L"StructureInfo", [] { return Ptr<IDispatch>(SampleStructure()); }},
    {L"StringArray", WithText},
    {L"SimpleFixedArray",
     [] { return Ptr<IDispatch>(NewValue(SampleArrayDefinition(SimpleDefinition(kLong).get(), 2))); }},
    {L"SimpleArray", WithNumber},
    {L"Array", [] { return Ptr<IDispatch>(NewValue(SampleArrayDefinition(SampleStructure().get(), 2))); }},
    {L"SimpleValue", [] { return Ptr<IDispatch>(SimpleValue(kLong)); }},
    {L"Enumeration", [] { return Ptr<IDispatch>(NewValue(SampleEnumeration())); }},
    {L"SimpleFixedStructure", [] { return Ptr<IDispatch>(NewValue(SampleStructure())); }},
    {L"Structure",
     [] {
       return Ptr<IDispatch>(NewValue(StructureDefinition({{L"Depth", kReal}, {L"Label", kString}})));
     }},
    {L"Collection", [] { return Ptr<IDispatch>(CreateObject<ICollectionImpl>(kCollectionClass)); }},
    {L"Unit", SampleUnit},
    {L"OrmSession", [] { return Ptr<IDispatch>(CreateObject<IOrmSession>(kOrmSessionClass)); }},
    {L"OrmFile", [] { return Ptr<IDispatch>(CreateObject<IOrmFile>(kOrmFileClass)); }},
    {L"OrmHelp", [] { return Ptr<IDispatch>(CreateObject<IOrmHelp>(kOrmHelpClass)); }},
};

}  // namespace

Ptr<IDispatch> SampleObject(WideView class_name) {
  for (const Maker& maker : kMakers) {
    if (class_name == maker.class_name) return maker.make();
  }
  throw Error(E_INVALIDARG, "there is no sample of that class");
}

Ptr<IUnknown> SampleArgument(REFIID iid) {
  if (iid == IidOf<IValueDefBase>) return SampleStructure();
  if (iid == IidOf<IValueBase>) return SimpleValue(kLong);
  if (iid == IidOf<IUnit>) return SampleUnit();
  if (iid == IidOf<IOrmSession>) return CreateObject<IOrmSession>(kOrmSessionClass);
  return nullptr;
}

}  // namespace halyard::test
