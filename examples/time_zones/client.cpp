#include "time_zones/client.h"

#include <stdexcept>

namespace time_zones {

using namespace halyard;

void KeepBytesOfTexts() {
  Demand(SetNarrowEncoding(NarrowEncoding::kLatin1),
         "texts were converted before their narrow form was chosen");
}

WideString ToLibrary(std::string_view utf8) {
  WideString result;
  for (const char byte : utf8) result += static_cast<OLECHAR>(static_cast<unsigned char>(byte));
  return result;
}

std::string FromLibrary(WideView text) {
  std::string result;
  for (const OLECHAR character : text) result += static_cast<char>(character);
  return result;
}

Bstr Text(std::string_view utf8) { return Bstr(ToLibrary(utf8)); }

Variant TextVariant(std::string_view utf8) { return Variant(WideView(ToLibrary(utf8))); }

void Demand(bool outcome, const std::string& otherwise) {
  if (!outcome) throw std::runtime_error(otherwise);
}

Variant GetMember(const Ptr<IValueBase>& record, std::string_view name) {
  Variant value;
  Check(record->get_Item(TextVariant(name).get(), value.Out()), record);
  return value;
}

void PutMember(const Ptr<IValueBase>& record, std::string_view name, const Variant& value) {
  Check(record->put_Item(TextVariant(name).get(), value.get()), record);
}

Ptr<IValueBase> MemberObject(const Ptr<IValueBase>& record, std::string_view name) {
  Ptr<IValueBase> member;
  Check(record->get_At(TextVariant(name).get(), member.Out()), record);
  Demand(static_cast<bool>(member), "the record has no member object " + std::string(name));
  return member;
}

LONG CountMembers(const Ptr<IStructureDef>& definition) {
  LONG count = 0;
  Check(definition->get_MemberCount(&count), definition);
  return count;
}

std::string MemberName(const Ptr<IStructureDef>& definition, LONG index) {
  Bstr name;
  Check(definition->get_MemberName(index, name.Out()), definition);
  return FromLibrary(name.View());
}

Ptr<IValueDefBase> MemberDefinition(const Ptr<IStructureDef>& definition, LONG index) {
  Ptr<IValueDefBase> member;
  Check(definition->get_Members(Variant(index).get(), member.Out()), definition);
  Demand(static_cast<bool>(member), "the member " + MemberName(definition, index) + " has no definition");
  return member;
}

bool MemberCanBeNull(const Ptr<IStructureDef>& definition, LONG index) {
  VARIANT_BOOL can_be_null = VARIANT_FALSE;
  Check(definition->get_CanBeNull(Variant(index).get(), &can_be_null), definition);
  return can_be_null != VARIANT_FALSE;
}

SHORT TypeOf(const Ptr<IValueDefBase>& definition) {
  SHORT type = kInvalid;
  Check(definition->get_Type(&type), definition);
  return type;
}

}  // namespace time_zones
