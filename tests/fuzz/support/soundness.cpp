#include "tests/fuzz/support/soundness.h"

#include "types/elementary.h"
#include "types/type_names.h"

namespace halyard::fuzz {
namespace {

using Property = bool (*)(const Ptr<IValueDefBase>& part);

bool EveryPart(const Ptr<IValueDefBase>& definition, Property has);

bool EveryMember(const Ptr<IStructureDef>& structure, Property has) {
  LONG count = 0;
  Check(structure->get_MemberCount(&count));
  for (LONG i = 0; i < count; ++i) {
    Ptr<IValueDefBase> member;
    Check(structure->get_Members(Variant(i).get(), member.Out()));
    if (member && !EveryPart(member, has)) return false;
  }
  return true;
}

// Whether all definitions that are no structure and no array have the property.
bool EveryPart(const Ptr<IValueDefBase>& definition, Property has) {
  if (const auto structure = definition.As<IStructureDef>()) return EveryMember(structure, has);
  if (const auto array = definition.As<IArrayDef>()) {
    Ptr<IValueDefBase> element;
    Check(array->get_ValueType(element.Out()));
    return !element || EveryPart(element, has);
  }
  return has(definition);
}

SHORT TypeOf(const Ptr<IValueDefBase>& definition) {
  SHORT type = kInvalid;
  Check(definition->get_Type(&type));
  return type;
}

bool IsOfType(const Variant& bound, SHORT type) {
  Variant converted;
  return SUCCEEDED(
      VariantChangeType(converted.Out(), const_cast<VARIANT*>(&bound.get()), 0, VariantTypeOf(type)));
}

bool HasFittingBounds(const Ptr<IValueDefBase>& part) {
  const auto simple = part.As<ISimpleValueDef>();
  VARIANT_BOOL has_range = VARIANT_FALSE;
  if (!simple) return true;
  Check(simple->get_Validation(&has_range));
  const SHORT type = TypeOf(part);
  if (has_range == VARIANT_FALSE || ElementarySize(type) == 0) return true;
  Variant least;
  Variant most;
  Check(simple->get_MinValue(least.Out()));
  Check(simple->get_MaxValue(most.Out()));
  return IsOfType(least, type) && IsOfType(most, type);
}

bool HasTravellingNumbers(const Ptr<IValueDefBase>& part) {
  const auto enumeration = part.As<IEnumerationDef>();
  if (!enumeration) return true;
  SHORT type = kInvalid;
  Check(enumeration->get_DataType(&type));
  return type == kChar || type == kShort || type == kLong;
}

}  // namespace

bool HasOwnTypes(const Ptr<IValueDefBase>& definition) {
  return EveryPart(definition, [](const Ptr<IValueDefBase>& part) {
    const SHORT type = TypeOf(part);
    return !part.As<ISimpleValueDef>() || (type >= 0 && type <= kLastElementaryType);
  });
}

bool BoundsFit(const Ptr<IValueDefBase>& definition) { return EveryPart(definition, HasFittingBounds); }

bool NumbersTravel(const Ptr<IValueDefBase>& definition) {
  return EveryPart(definition, HasTravellingNumbers);
}

bool HasDates(const Ptr<IValueDefBase>& definition) {
  return !EveryPart(definition, [](const Ptr<IValueDefBase>& part) { return TypeOf(part) != kDate; });
}

}  // namespace halyard::fuzz
