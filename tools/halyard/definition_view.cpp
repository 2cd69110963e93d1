#include "tools/halyard/definition_view.h"

#include <fmt/format.h>

#include "tools/halyard/client.h"
#include "tools/halyard/framing.h"
#include "tools/halyard/scalar_text.h"
#include "tools/halyard/text.h"

namespace halyard::tool {
namespace {

Variant Bound(const Ptr<ISimpleValueDef>& simple,
              HRESULT (STDMETHODCALLTYPE ISimpleValueDef::*method)(VARIANT*)) {
  Variant bound;
  Check((simple.get()->*method)(bound.Out()), simple);
  return bound;
}

void LookAtSimple(const Ptr<ISimpleValueDef>& simple, DefinitionView& view) {
  view.has_range = Get<VARIANT_BOOL>(simple, &ISimpleValueDef::get_Validation) != VARIANT_FALSE;
  if (!view.has_range) return;
  // A text has no bounds: its type has no size.
  if (view.type != kString) {
    view.least = ScalarText(Bound(simple, &ISimpleValueDef::get_MinValue));
    view.greatest = ScalarText(Bound(simple, &ISimpleValueDef::get_MaxValue));
  }
  view.script = FromLibrary(GetText(simple, &ISimpleValueDef::get_ValidationScript));
}

MemberView LookAtMember(const Ptr<IStructureDef>& structure, LONG index) {
  MemberView member;
  Bstr name;
  Check(structure->get_MemberName(index, name.Out()), structure);
  member.name = FromLibrary(name);
  VARIANT_BOOL can_be_null = VARIANT_FALSE;
  Check(structure->get_CanBeNull(Variant(index).get(), &can_be_null), structure);
  member.can_be_null = can_be_null != VARIANT_FALSE;
  SHORT type = kInvalid;
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(structure->MemberInfo(index, &type, &member.place, &member.size, &done), structure);
  Ptr<IValueDefBase> definition;
  Check(structure->get_Members(Variant(index).get(), definition.Out()), structure);
  member.definition = ViewOfDefinition(Require(definition, "a member has no definition"));
  return member;
}

void LookAtStructure(const Ptr<IStructureDef>& structure, DefinitionView& view) {
  const LONG count = Get<LONG>(structure, &IStructureDef::get_MemberCount);
  view.is_fixed = true;
  for (LONG i = 0; i < count; ++i) {
    view.members.push_back(LookAtMember(structure, i));
    view.is_fixed = view.is_fixed && view.members.back().is_field();
  }
}

void LookAtEnumeration(const Ptr<IEnumerationDef>& enumeration, DefinitionView& view) {
  view.number_type = Get<SHORT>(enumeration, &IEnumerationDef::get_DataType);
  const LONG count = Get<LONG>(enumeration, &IEnumerationDef::get_ElementCount);
  for (LONG i = 0; i < count; ++i) {
    ElementView element;
    Bstr name;
    Check(enumeration->get_ElementName(i, name.Out()), enumeration);
    Check(enumeration->get_ElementValue(i, &element.number), enumeration);
    element.name = FromLibrary(name);
    view.elements.push_back(std::move(element));
  }
}

void LookAtArray(const Ptr<IArrayDef>& array, DefinitionView& view) {
  view.element_count = Get<LONG>(array, &IArrayDef::get_ElementCount);
  Ptr<IValueDefBase> element;
  Check(array->get_ValueType(element.Out()), array);
  view.element = ViewOfDefinition(Require(element, "an array has no element definition"));
}

}  // namespace

DefinitionPtr ViewOfDefinition(const Ptr<IValueDefBase>& definition) {
  auto view = std::make_shared<DefinitionView>();
  view->object = definition;
  view->type = Get<SHORT>(definition, &IValueDefBase::get_Type);
  view->id = Get<SHORT>(definition, &IValueDefBase::get_Id);
  view->name = FromLibrary(GetText(definition, &IValueDefBase::get_Name));
  view->data_size = Get<ULONG>(definition, &IValueDefBase::get_DataSize);
  if (const auto structure = definition.As<IStructureDef>()) LookAtStructure(structure, *view);
  if (const auto enumeration = definition.As<IEnumerationDef>()) LookAtEnumeration(enumeration, *view);
  if (const auto array = definition.As<IArrayDef>()) LookAtArray(array, *view);
  if (const auto simple = definition.As<ISimpleValueDef>()) LookAtSimple(simple, *view);
  return view;
}

std::string DefinitionView::TypeText() const {
  const std::string type_name = TypeName(static_cast<USHORT>(type));
  switch (type) {
    case kFixedString:
    case kByteArray:
      return fmt::format("{}({})", type_name, data_size);
    case kStructure:
      return name.empty() ? type_name : fmt::format("{} {}", type_name, name);
    case kEnumeration: {
      const std::string number = TypeName(static_cast<USHORT>(number_type));
      return name.empty() ? fmt::format("{} as {}", type_name, number)
                          : fmt::format("{} {} as {}", type_name, name, number);
    }
    case kArray:
      return fmt::format("{} of {} [{}]", type_name, element->TypeText(),
                         element_count == 0 ? "any number" : std::to_string(element_count));
    default:
      return type_name;
  }
}

std::string DefinitionView::Title() const {
  return name.empty() ? fmt::format("{} {}", TypeName(static_cast<USHORT>(type)), id) : name;
}

const std::string* DefinitionView::ElementName(LONG number) const noexcept {
  for (const ElementView& element_view : elements) {
    if (element_view.number == number) return &element_view.name;
  }
  return nullptr;
}

}  // namespace halyard::tool
