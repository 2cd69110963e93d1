#include "tests/fuzz/support/own_types.h"

namespace halyard::fuzz {
namespace {

bool MembersHaveOwnTypes(const Ptr<IStructureDef>& structure) {
  LONG count = 0;
  Check(structure->get_MemberCount(&count));
  for (LONG i = 0; i < count; ++i) {
    Ptr<IValueDefBase> member;
    Check(structure->get_Members(Variant(i).get(), member.Out()));
    if (member && !HasOwnTypes(member)) return false;
  }
  return true;
}

}  // namespace

bool HasOwnTypes(const Ptr<IValueDefBase>& definition) {
  if (const auto structure = definition.As<IStructureDef>()) return MembersHaveOwnTypes(structure);
  if (const auto array = definition.As<IArrayDef>()) {
    Ptr<IValueDefBase> element;
    Check(array->get_ValueType(element.Out()));
    return !element || HasOwnTypes(element);
  }
  SHORT type = kInvalid;
  Check(definition->get_Type(&type));
  return !definition.As<ISimpleValueDef>() || type <= kLastElementaryType;
}

}  // namespace halyard::fuzz
