#include "tests/support/definitions.h"

namespace halyard::test {

Ptr<ISimpleValueDef> SimpleDefinition(SHORT type, LONG field_size) {
  auto definition = CreateObject<ISimpleValueDef>(kSimpleValueInfoClass);
  Check(definition->put_Type(type));
  Check(definition->SetDataSize(field_size));
  return definition;
}

Ptr<IStructureDef> StructureDefinition(std::initializer_list<Member> members, SHORT id, const OLECHAR* name) {
  auto structure = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(structure->put_Id(id));
  if (name != nullptr) Check(structure->put_Name(Bstr(name).get()));
  for (const Member& member : members) {
    const Variant index(member.name);
    VARIANT_BOOL added = VARIANT_FALSE;
    Check(structure->AddSimpleMemberSized(index->bstrVal, member.type, member.field_size, &added));
    EXPECT_EQ(added, VARIANT_TRUE);
    if (member.can_be_null) Check(structure->put_CanBeNull(index.get(), VARIANT_TRUE));
  }
  Calculate(structure);
  return structure;
}

void AddMember(const Ptr<IStructureDef>& structure, const OLECHAR* name, IDispatch* definition,
               bool can_be_null) {
  const Variant index(name);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(structure->AddMember(index->bstrVal, definition, &added));
  EXPECT_EQ(added, VARIANT_TRUE);
  if (can_be_null) Check(structure->put_CanBeNull(index.get(), VARIANT_TRUE));
}

Ptr<IValueBase> SimpleValue(SHORT type, LONG field_size) {
  return NewValue(SimpleDefinition(type, field_size));
}

std::string Item(const Ptr<IValueBase>& value, const OLECHAR* member) {
  return Describe(Get(value, &IValueBase::get_Item, Text(member)));
}

void PutItem(const Ptr<IValueBase>& value, const OLECHAR* member, const Variant& content) {
  EXPECT_EQ(TryPutItem(value, member, content), S_OK);
}

HRESULT TryPutItem(const Ptr<IValueBase>& value, const OLECHAR* member, const Variant& content) {
  return value->put_Item(Text(member).get(), content.get());
}

std::string ValueOf(const Ptr<IValueBase>& value) { return Describe(Get(value, &IValueBase::get_Value)); }

void PutValue(const Ptr<IValueBase>& value, const Variant& content) {
  EXPECT_EQ(value->put_Value(content.get()), S_OK);
}

bool SameObject(IUnknown* a, IUnknown* b) {
  return Ptr<IUnknown>(a).As<IUnknown>() == Ptr<IUnknown>(b).As<IUnknown>();
}

}  // namespace halyard::test
