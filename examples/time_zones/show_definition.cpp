#include "time_zones/show_definition.h"

#include <iomanip>
#include <sstream>

#include "time_zones/client.h"

namespace time_zones {

using namespace halyard;

namespace {

constexpr int kNameColumn = 22;
constexpr int kTypeColumn = 12;

std::string TypeName(const Ptr<IValueDefBase>& definition) {
  Bstr name;
  Check(definition->get_TypeString(name.Out()), definition);
  return FromLibrary(name.View());
}

// Where the member lies in a value: fixed members in its block, others as objects.
std::string PlaceOf(const Ptr<IStructureDef>& definition, LONG index) {
  SHORT type = kInvalid;
  LONG offset = 0;
  ULONG size = 0;
  VARIANT_BOOL known = VARIANT_FALSE;
  Check(definition->MemberInfo(index, &type, &offset, &size, &known), definition);
  std::ostringstream place;
  if (size != 0) {
    place << size << (size == 1 ? " byte" : " bytes") << " at offset " << offset;
  } else {
    place << "object " << offset;
  }
  if (MemberCanBeNull(definition, index)) place << ", can be null";
  return place.str();
}

void ShowMembers(const Ptr<IStructureDef>& definition, const std::string& stem, std::ostream& out) {
  const LONG count = CountMembers(definition);
  for (LONG i = 0; i < count; ++i) {
    const bool last = i + 1 == count;
    const std::string name = stem + (last ? "`- " : "|- ") + MemberName(definition, i);
    const auto member = MemberDefinition(definition, i);
    out << std::left << std::setw(kNameColumn) << name << std::setw(kTypeColumn) << TypeName(member)
        << PlaceOf(definition, i) << "\n";
    if (const auto structure = member.As<IStructureDef>())
      ShowMembers(structure, stem + (last ? "   " : "|  "), out);
  }
}

}  // namespace

void ShowDefinition(const Ptr<IStructureDef>& definition, std::ostream& out) {
  Bstr name;
  Check(definition->get_Name(name.Out()), definition);
  SHORT id = 0;
  Check(definition->get_Id(&id), definition);
  out << FromLibrary(name.View()) << " (" << TypeName(definition) << ", id " << id << ")\n";
  ShowMembers(definition, "", out);
}

}  // namespace time_zones
