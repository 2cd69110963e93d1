#include "time_zones/zone_record.h"

#include <iomanip>
#include <sstream>

#include "time_zones/client.h"

namespace time_zones {

using namespace halyard;

namespace {

constexpr float kDegreesAnHour = 15.0F;

// The content that each member of the row's record must have.
Variant RowNumber(const ZoneRow& row) { return Variant(static_cast<LONG>(row.number)); }
Variant CountryCount(const ZoneRow& row) { return Variant(static_cast<BYTE>(row.country_count)); }
Variant SolarOffset(const ZoneRow& row) {
  return Variant(static_cast<float>(row.longitude) / kDegreesAnHour);
}
Variant Comment(const ZoneRow& row) { return row.comment ? TextVariant(*row.comment) : Variant::Null(); }

bool Same(const Variant& a, const Variant& b) {
  if (a.type() != b.type()) return false;
  switch (a.type()) {
    case VT_NULL:
      return true;
    case VT_UI1:
      return a->bVal == b->bVal;
    case VT_I4:
      return a->lVal == b->lVal;
    case VT_R4:
      return a->fltVal == b->fltVal;
    case VT_R8:
      return a->dblVal == b->dblVal;
    case VT_BSTR:
      return ViewOf(a->bstrVal) == ViewOf(b->bstrVal);
    default:
      return false;
  }
}

// Compares the members of one record and collects what differs.
class Comparison {
 public:
  void Member(const Ptr<IValueBase>& record, const char* name, const Variant& expected) {
    const Variant found = GetMember(record, name);
    if (Same(found, expected)) return;
    differences_.push_back(std::string("the member ") + name + " is '" + Readable(found) +
                           "' in the file and '" + Readable(expected) + "' in the table");
  }
  std::vector<std::string> Take() { return std::move(differences_); }

 private:
  std::vector<std::string> differences_;
};

}  // namespace

Ptr<IValueBase> MakeRecord(const Ptr<IStructureDef>& definition, const ZoneRow& row) {
  Ptr<IValueBase> record;
  Check(definition->CreateDataObject(record.Out()), definition);
  PutMember(record, kRow, RowNumber(row));
  PutMember(record, kName, TextVariant(row.name));
  PutMember(record, kCountries, TextVariant(row.countries));
  PutMember(record, kCountryCount, CountryCount(row));
  const auto position = MemberObject(record, kPosition);
  PutMember(position, kLatitude, Variant(row.latitude));
  PutMember(position, kLongitude, Variant(row.longitude));
  PutMember(record, kSolarOffset, SolarOffset(row));
  PutMember(record, kComment, Comment(row));
  return record;
}

std::vector<std::string> DifferencesFrom(const Ptr<IValueBase>& record, const ZoneRow& row) {
  Comparison comparison;
  comparison.Member(record, kRow, RowNumber(row));
  comparison.Member(record, kName, TextVariant(row.name));
  comparison.Member(record, kCountries, TextVariant(row.countries));
  comparison.Member(record, kCountryCount, CountryCount(row));
  const auto position = MemberObject(record, kPosition);
  comparison.Member(position, kLatitude, Variant(row.latitude));
  comparison.Member(position, kLongitude, Variant(row.longitude));
  comparison.Member(record, kSolarOffset, SolarOffset(row));
  comparison.Member(record, kComment, Comment(row));
  return comparison.Take();
}

std::string Readable(const Variant& value) {
  std::ostringstream text;
  switch (value.type()) {
    case VT_NULL:
      return "-";
    case VT_UI1:
      text << static_cast<int>(value->bVal);
      break;
    case VT_I4:
      text << value->lVal;
      break;
    case VT_R4:
      text << std::fixed << std::setprecision(2) << value->fltVal;
      break;
    case VT_R8:
      text << std::fixed << std::setprecision(4) << value->dblVal;
      break;
    case VT_BSTR:
      return FromLibrary(ViewOf(value->bstrVal));
    default:
      text << "(variant type " << value.type() << ")";
  }
  return text.str();
}

}  // namespace time_zones
