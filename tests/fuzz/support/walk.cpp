#include "tests/fuzz/support/walk.h"

namespace halyard::fuzz {
namespace {

constexpr int kMostItems = 100;
constexpr int kDeepest = 6;

void LookAtValue(const Ptr<IValueBase>& value, int depth, int& left) {
  LONG count = 0;
  static_cast<void>(value->get_Count(&count));
  Variant content;
  static_cast<void>(value->get_Value(content.Out()));
  for (LONG i = 0; i < count && left-- > 0; ++i) {
    Variant item;
    static_cast<void>(value->get_Item(Variant(i).get(), item.Out()));
    Bstr name;
    static_cast<void>(value->get_Name(Variant(i).get(), name.Out()));
    Ptr<IValueBase> part;
    static_cast<void>(value->get_At(Variant(i).get(), part.Out()));
    if (part && !(part == value) && depth < kDeepest) LookAtValue(part, depth + 1, left);
  }
}

void LookAtMembers(const Ptr<IStructureDef>& structure, int depth, int& left);

void LookAtDefinition(const Ptr<IValueDefBase>& definition, int depth, int& left) {
  Bstr name;
  static_cast<void>(definition->get_Name(name.Out()));
  Bstr type;
  static_cast<void>(definition->get_TypeString(type.Out()));
  ULONG size = 0;
  static_cast<void>(definition->get_PacketSize(&size));
  if (depth == kDeepest) return;
  if (const auto structure = definition.As<IStructureDef>()) LookAtMembers(structure, depth, left);
  if (const auto array = definition.As<IArrayDef>()) {
    Ptr<IValueDefBase> element;
    static_cast<void>(array->get_ValueType(element.Out()));
    if (element) LookAtDefinition(element, depth + 1, left);
  }
}

void LookAtMembers(const Ptr<IStructureDef>& structure, int depth, int& left) {
  LONG count = 0;
  static_cast<void>(structure->get_MemberCount(&count));
  for (LONG i = 0; i < count && left-- > 0; ++i) {
    Bstr name;
    static_cast<void>(structure->get_MemberName(i, name.Out()));
    LONG position = 0;
    static_cast<void>(structure->MemberIndex(name.get(), &position));
    Ptr<IValueDefBase> member;
    static_cast<void>(structure->get_Members(Variant(i).get(), member.Out()));
    if (member) LookAtDefinition(member, depth + 1, left);
  }
}

}  // namespace

void LookAt(const Ptr<IValueBase>& value) {
  int left = kMostItems;
  LookAtValue(value, 0, left);
}

void LookAt(const Ptr<IValueDefBase>& definition) {
  int left = kMostItems;
  LookAtDefinition(definition, 0, left);
}

}  // namespace halyard::fuzz
