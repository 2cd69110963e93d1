#include "time_zones/zone_places.h"

#include <ostream>

#include "time_zones/client.h"
#include "time_zones/zone_definition.h"

namespace time_zones {

using namespace halyard;

namespace {

constexpr SHORT kPlacesId = 1;
constexpr SHORT kPlaceId = 2;
constexpr SHORT kQuadrantId = 3;
constexpr char kQuadrant[] = "Quadrant";

Ptr<IEnumerationDef> DefineQuadrant() {
  const auto quadrant = CreateObject<IEnumerationDef>(kEnumerationInfoClass);
  Check(quadrant->put_Name(Text(kQuadrant).get()), quadrant);
  Check(quadrant->put_Id(kQuadrantId), quadrant);
  const struct {
    const char* name;
    Quadrant number;
  } elements[] = {{"NorthEast", kNorthEast},
                  {"NorthWest", kNorthWest},
                  {"SouthEast", kSouthEast},
                  {"SouthWest", kSouthWest}};
  VARIANT_BOOL added = VARIANT_FALSE;
  for (const auto& element : elements) {
    Check(quadrant->AddMember(Text(element.name).get(), element.number, &added), quadrant);
  }
  return quadrant;
}

Ptr<IStructureDef> DefinePlace() {
  const auto place = CreateObject<IStructureDef>(kStructureInfoClass);
  Check(place->put_Name(Text("Place").get()), place);
  Check(place->put_Id(kPlaceId), place);
  VARIANT_BOOL added = VARIANT_FALSE;
  Check(place->AddSimpleMember(Text(kLatitude).get(), kReal, &added), place);
  Check(place->AddSimpleMember(Text(kLongitude).get(), kReal, &added), place);
  Check(place->AddMember(Text(kQuadrant).get(), DefineQuadrant().get(), &added), place);
  return place;
}

Ptr<IArrayDef> DefinePlaces() {
  const auto places = CreateObject<IArrayDef>(kArrayInfoClass);
  Check(places->put_Name(Text("Places").get()), places);
  Check(places->put_Id(kPlacesId), places);
  Check(places->put_ValueType(DefinePlace().get()), places);
  ULONG size = 0;
  Check(places->CalculateDataSize(&size), places);
  return places;
}

Ptr<IValueBase> MakePlace(const Ptr<IValueDefBase>& definition, const ZoneRow& row) {
  Ptr<IValueBase> place;
  Check(definition->CreateDataObject(place.Out()), definition);
  PutMember(place, kLatitude, Variant(row.latitude));
  PutMember(place, kLongitude, Variant(row.longitude));
  PutMember(place, kQuadrant, Variant(LONG{QuadrantOf(row)}));
  return place;
}

Ptr<IValueBase> MakePlaces(const Ptr<IArrayDef>& definition, const std::vector<ZoneRow>& rows) {
  Ptr<IValueDefBase> element;
  Check(definition->get_ValueType(element.Out()), definition);
  Ptr<IValueBase> places;
  Check(definition->CreateDataObject(places.Out()), definition);
  for (const ZoneRow& row : rows) {
    const auto place = MakePlace(element, row);
    Check(places->Add(Variant(static_cast<IDispatch*>(place.get())).get()), places);
  }
  return places;
}

bool SamePlace(const Ptr<IValueBase>& place, const ZoneRow& row) {
  return GetMember(place, kLatitude)->dblVal == row.latitude &&
         GetMember(place, kLongitude)->dblVal == row.longitude &&
         GetMember(place, kQuadrant)->lVal == QuadrantOf(row);
}

std::size_t CountOf(const Ptr<IArray>& places) {
  LONG count = 0;
  Check(places->get_Count(&count), places);
  return static_cast<std::size_t>(count);
}

unsigned char* Bytes(std::vector<double>& numbers) {
  return reinterpret_cast<unsigned char*>(numbers.data());
}

}  // namespace

Quadrant QuadrantOf(const ZoneRow& row) noexcept {
  if (row.latitude >= 0) return row.longitude >= 0 ? kNorthEast : kNorthWest;
  return row.longitude >= 0 ? kSouthEast : kSouthWest;
}

void WritePlaces(const std::filesystem::path& path, const std::vector<ZoneRow>& rows) {
  const auto definition = DefinePlaces();
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForWrite(Bstr(path.u16string()).get(), &done), file);
  Demand(done, "cannot write " + path.string());
  Check(file->WriteInfo(definition.get(), &done), file);
  Demand(done, "cannot write the definition to " + path.string());
  Check(file->WriteData(MakePlaces(definition, rows).get(), &done), file);
  Demand(done, "cannot write the places to " + path.string());
}

Ptr<IArray> ReadPlaces(const std::filesystem::path& path) {
  const auto file = CreateObject<IOrmFile>(kOrmFileClass);
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(file->OpenForRead(Bstr(path.u16string()).get(), VARIANT_TRUE, &done), file);
  Demand(done, "cannot read " + path.string());
  Ptr<IValueDefBase> definition;
  Check(file->ReadInfo(definition.Out()), file);
  Ptr<IValueBase> value;
  Check(file->ReadData(value.Out()), file);
  const auto places = value.As<IArray>();
  Demand(static_cast<bool>(places), path.string() + " holds no array");
  return places;
}

std::size_t CountDifferingPlaces(const Ptr<IArray>& places, const std::vector<ZoneRow>& rows,
                                 std::ostream& faults) {
  Demand(CountOf(places) == rows.size(), "the file holds " + std::to_string(CountOf(places)) +
                                             " places and the table " + std::to_string(rows.size()) +
                                             " rows");
  std::size_t differing = 0;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Ptr<IValueBase> place;
    Check(places->get_At(Variant(static_cast<LONG>(i)).get(), place.Out()), places);
    if (SamePlace(place, rows[i])) continue;
    faults << "the place of row " << rows[i].number << ", " << rows[i].name << ", differs\n";
    ++differing;
  }
  return differing;
}

std::vector<double> TakeLatitudes(const Ptr<IArray>& places) {
  std::vector<double> latitudes(CountOf(places));
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(places->BuildNumericArray(Text(kLatitude).get(), TextVariant("Real").get(), Bytes(latitudes), &done),
        places);
  Demand(done, "the latitudes cannot be taken out of the places");
  return latitudes;
}

void StoreLatitudes(const Ptr<IArray>& places, std::vector<double>& latitudes) {
  Demand(latitudes.size() == CountOf(places), "there is not one latitude for each place");
  VARIANT_BOOL done = VARIANT_FALSE;
  Check(places->ReadNumericArray(Text(kLatitude).get(), TextVariant("Real").get(), Bytes(latitudes), &done),
        places);
  Demand(done, "the latitudes cannot be stored in the places");
}

}  // namespace time_zones
