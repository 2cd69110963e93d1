#include "time_zones/zone_definition.h"

#include "time_zones/client.h"

namespace time_zones {

using namespace halyard;

namespace {

// A definition must have an id other than 0 for its values to be read from a file.
constexpr SHORT kZoneId = 1;
constexpr SHORT kPositionId = 2;

Ptr<IStructureDef> NewStructure(const char* name, SHORT id) {
  const auto definition = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(definition->put_Name(Text(name).get()), definition);
  Check(definition->put_Id(id), definition);
  return definition;
}

void AddSimple(const Ptr<IStructureDef>& definition, const char* name, TypeCode type) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(definition->AddSimpleMember(Text(name).get(), type, &added), definition);
  Demand(added, std::string("cannot add the member ") + name);
}

void AddStructure(const Ptr<IStructureDef>& definition, const char* name, const Ptr<IStructureDef>& member) {
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(definition->AddMember(Text(name).get(), member.get(), &added), definition);
  Demand(added, std::string("cannot add the member ") + name);
}

Ptr<IStructureDef> DefinePosition() {
  const auto position = NewStructure("Position", kPositionId);
  AddSimple(position, kLatitude, kReal);
  AddSimple(position, kLongitude, kReal);
  return position;
}

}  // namespace

Ptr<IStructureDef> DefineZone() {
  const auto zone = NewStructure("TimeZone", kZoneId);
  AddSimple(zone, kRow, kLong);
  AddSimple(zone, kName, kString);
  AddSimple(zone, kCountries, kString);
  AddSimple(zone, kCountryCount, kByte);
  AddStructure(zone, kPosition, DefinePosition());
  AddSimple(zone, kSolarOffset, kShortReal);
  AddSimple(zone, kComment, kString);
  Check(zone->put_CanBeNull(TextVariant(kComment).get(), VARIANT_TRUE), zone);
  ULONG size = 0;
  Check(zone->CalculateDataSize(&size), zone);
  return zone;
}

}  // namespace time_zones
