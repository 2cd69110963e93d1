#include "tests/fuzz/support/sizes.h"

#include "tests/fuzz/support/encoding.h"
#include "tests/fuzz/support/soundness.h"

namespace halyard::fuzz {
namespace {

constexpr std::size_t kInfoHead = 4;  // kind and type code
constexpr std::size_t kDataHead = 6;  // and the id of the definition
constexpr ULONG kCountBytes = 4;
constexpr std::size_t kLongestIdentity = 0xFFFF;

template <class I>
ULONG SizeOf(const Ptr<I>& object) {
  ULONG size = 0;
  Hold(SUCCEEDED(object->get_PacketSize(&size)), "what can be written has a size");
  return size;
}

SHORT ElementType(const Ptr<IArrayDef>& array) {
  SHORT type = kInvalid;
  Check(array->get_DataType(&type));
  return type;
}

// Whether values of the definition say exactly what they write.
bool IsExact(const Ptr<IValueDefBase>& definition);

bool MembersAreExact(const Ptr<IStructureDef>& structure) {
  LONG count = 0;
  Check(structure->get_MemberCount(&count));
  for (LONG i = 0; i < count; ++i) {
    Ptr<IValueDefBase> member;
    Check(structure->get_Members(Variant(i).get(), member.Out()));
    if (!member || !IsExact(member)) return false;
  }
  return true;
}

bool IsExact(const Ptr<IValueDefBase>& definition) {
  if (const auto structure = definition.As<IStructureDef>()) return MembersAreExact(structure);
  if (const auto array = definition.As<IArrayDef>()) {
    const SHORT type = ElementType(array);
    return type != kString && type <= kLastElementaryType;
  }
  return true;
}

template <class I>
void HoldExact(const Ptr<I>& object, std::size_t written) {
  const ULONG size = SizeOf(object);
  Hold(size == written, "PacketSize is what is written");
  Hold(size == 0 || !WriteInto(object, size - 1), "a buffer of a byte less is too small");
}

void HoldTexts(const Ptr<IValueBase>& texts, const Ptr<IArrayDef>& definition, std::size_t written) {
  LONG fixed = 0;
  Check(definition->get_ElementCount(&fixed));
  if (fixed == 0)
    Hold(SizeOf(texts) == written + kCountBytes, "a string array says 4 bytes more than it writes");
}

void HoldElements(const Ptr<IValueBase>& array, const Ptr<IArrayDef>& definition) {
  Ptr<IValueDefBase> element;
  Check(definition->get_ValueType(element.Out()));
  ULONG data_size = 0;
  LONG fixed = 0;
  LONG count = 0;
  Check(element->get_DataSize(&data_size));
  Check(definition->get_ElementCount(&fixed));
  Check(array->get_Count(&count));
  const ULONG counted = data_size & 0xFFFF;
  if (counted == 0) return;
  Hold(SizeOf(array) == (fixed == 0 ? kCountBytes : 0) + counted * static_cast<ULONG>(count),
       "an array counts the data size of its elements");
}

}  // namespace

void HoldSize(const Ptr<IValueBase>& value, std::size_t written) {
  Ptr<IValueDefBase> definition;
  if (FAILED(value->get_Info(definition.Out())) || !definition) return;
  if (IsExact(definition)) return HoldExact(value, written);
  const auto array = definition.As<IArrayDef>();
  if (!array) return;
  ElementType(array) == kString ? HoldTexts(value, array, written) : HoldElements(value, array);
}

void HoldSize(const Ptr<IValueDefBase>& definition, std::size_t written) {
  if (written <= kLongestIdentity && NumbersTravel(definition)) HoldExact(definition, written);
}

void HoldSize(const Ptr<IUnit>& unit, std::size_t written) {
  Ptr<IValueBase> value;
  Check(unit->get_Value(value.Out()));
  if (value) {
    Hold(SizeOf(unit) == SizeOf(value) + kDataHead, "a data unit adds 6 bytes to its value");
    return HoldSize(value, written - kDataHead);
  }
  Ptr<IValueDefBase> definition;
  Check(unit->get_Info(definition.Out()));
  Hold(static_cast<bool>(definition), "a unit that can be written holds something");
  Hold(SizeOf(unit) == SizeOf(definition) + kInfoHead, "an info unit adds 4 bytes to its definition");
  HoldSize(definition, written - kInfoHead);
}

}  // namespace halyard::fuzz
