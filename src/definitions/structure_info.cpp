#include "definitions/structure_info.h"

#include <string>
#include <utility>

#include "definitions/value_creation.h"
#include "halyard/classes.h"
#include "halyard/definitions/array_def.h"
#include "halyard/definitions/simple_value_def.h"
#include "halyard/object/variant.h"
#include "object/class_table.h"

namespace halyard {
namespace {

constexpr char kNoMember[] = "the structure has no such member";

Ptr<ISimpleValueDef> NewSimpleDefinition(SHORT type) {
  Ptr<ISimpleValueDef> definition = ConstructAs<ISimpleValueDef>(kSimpleValueInfoClass);
  Check(definition->put_Validation(VARIANT_FALSE), definition);
  Check(definition->put_Type(type), definition);
  return definition;
}

Ptr<IArrayDef> NewArrayDefinition(SHORT element_type, LONG count) {
  Ptr<IArrayDef> definition = ConstructAs<IArrayDef>(kArrayInfoClass);
  Check(definition->put_DataType(element_type), definition);
  Check(definition->put_ElementCount(count), definition);
  Check(definition->put_Id(0), definition);
  return definition;
}

}  // namespace

HRESULT StructureInfo::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = static_cast<LONG>(layout_.WholeCount()); });
}

HRESULT StructureInfo::get_DataSize(ULONG* pdwSize) {
  return Call("DataSize", [&] { Out(pdwSize) = layout_.data_size; });
}

HRESULT StructureInfo::CalculateDataSize(ULONG* pdwSize) {
  return Call("CalculateDataSize", [&] {
    ULONG& size = Out(pdwSize);
    CalculateLayout();
    size = layout_.data_size;
  });
}

HRESULT StructureInfo::CreateDataObject(IValueBase** ppResult) {
  return Call("CreateDataObject",
              [&] { HandOut(ppResult, [&] { return CreateValueOf(this, *ValueClass()); }); });
}

const CLSID* StructureInfo::ValueClass() noexcept {
  return layout_.fixed ? &kSimpleFixedStructureClass : &kStructureClass;
}

HRESULT StructureInfo::get_MemberCount(LONG* pnCount) { return get_Count(pnCount); }

HRESULT StructureInfo::get_MemberName(LONG nIndex, BSTR* psName) {
  return Call("MemberName", [&] {
    if (psName == nullptr) return;
    HandOut(psName, [&] { return MemberAt(nIndex).name.NewCopy(); });
  });
}

HRESULT StructureInfo::put_MemberName(LONG nIndex, BSTR sName) {
  return Call("MemberName", [&] {
    FindForChange(Variant(nIndex).get())->name.Set(sName);
    layout_.ForgetNames();
  });
}

HRESULT StructureInfo::get_Members(VARIANT vIndex, IValueDefBase** ppDef) {
  return Call("Members", [&] {
    EmptyOut(ppDef);
    if (const auto position = FindMember(vIndex))
      *ppDef = Ptr(MemberAt(*position).definition.object).Detach();
  });
}

HRESULT StructureInfo::put_Members(VARIANT vIndex, IValueDefBase* pDef) {
  return Call("Members", [&] {
    if (pDef == nullptr) throw Error(E_INVALIDARG, "a member's definition cannot be replaced by none");
    if (!FindMember(vIndex)) return;  // the object is asked only where there is a place for it
    HeldDefinition definition(QueryFor<IValueDefBase>(pDef));
    // Looked up anew, as asking may have run a client's code; swapped, so that the old
    // definition ends when the table is whole again.
    if (MemberLayout* member = FindForChange(vIndex)) std::swap(member->definition, definition);
  });
}

HRESULT StructureInfo::AddMember(BSTR sName, IDispatch* pValueType, VARIANT_BOOL* pbResult) {
  return Call("AddMember", [&] {
    VARIANT_BOOL& result = Out(pbResult);
    Append(sName, QueryFor<IValueDefBase>(pValueType));
    result = VARIANT_TRUE;
  });
}

HRESULT StructureInfo::AddSimpleMember(BSTR sName, SHORT DataType, VARIANT_BOOL* pbResult) {
  return Call("AddSimpleMember", [&] {
    Out(pbResult) = VARIANT_FALSE;
    if (DataType > kLastElementaryType) return;
    Append(sName, NewSimpleDefinition(DataType));
    *pbResult = VARIANT_TRUE;
  });
}

HRESULT StructureInfo::AddSimpleMemberSized(BSTR sName, SHORT DataType, SHORT DataSize,
                                            VARIANT_BOOL* pbResult) {
  return Call("AddSimpleMemberSized", [&] {
    Out(pbResult) = VARIANT_FALSE;
    if (DataType > kLastElementaryType) return;
    const Ptr<ISimpleValueDef> definition = NewSimpleDefinition(DataType);
    Check(definition->SetDataSize(DataSize), definition);
    Append(sName, definition);
    *pbResult = VARIANT_TRUE;
  });
}

HRESULT StructureInfo::Remove(VARIANT vIndex) {
  return Call("Remove", [&] {
    MemberLayout* member = FindForChange(vIndex);
    if (member == nullptr) return;
    std::vector<MemberLayout>& members = Whole().members;
    // Held until the table is whole again: a member's end may look at it.
    const HeldDefinition definition = std::move(member->definition);
    members.erase(members.begin() + (member - members.data()));
    layout_.ForgetNames();
  });
}

HRESULT StructureInfo::RemoveAll() {
  // Emptied before the members go, so that a member's end finds a whole definition.
  layout_.announced = 0;
  layout_.ForgetNames();
  const std::vector<MemberLayout> old = std::exchange(layout_.members, {});
  return S_OK;
}

HRESULT StructureInfo::MemberIndex(BSTR sName, LONG* pnIndex) {
  return Call("MemberIndex", [&] { Out(pnIndex) = layout_.Find(ViewOf(sName)); });
}

HRESULT StructureInfo::MemberInfo(LONG nIndex, SHORT* pDataType, LONG* pOffset, ULONG* pDataSize,
                                  VARIANT_BOOL* pbResult) {
  return Call("MemberInfo", [&] {
    SHORT& type = Out(pDataType);
    LONG& offset = Out(pOffset);
    ULONG& size = Out(pDataSize);
    Out(pbResult) = VARIANT_FALSE;
    const MemberLayout& member = MemberAt(nIndex);
    type = static_cast<SHORT>(member.type);
    offset = member.offset;
    size = member.size;
    *pbResult = VARIANT_TRUE;
  });
}

HRESULT StructureInfo::get_CanBeNull(VARIANT vIndex, VARIANT_BOOL* pbCanBeNull) {
  return Call("CanBeNull", [&] {
    VARIANT_BOOL& result = Out(pbCanBeNull);
    const auto position = FindMember(vIndex);
    if (!position) throw Error(E_INVALIDARG, kNoMember);
    result = MemberAt(*position).can_be_null ? VARIANT_TRUE : VARIANT_FALSE;
  });
}

HRESULT StructureInfo::put_CanBeNull(VARIANT vIndex, VARIANT_BOOL bCanBeNull) {
  return Call("CanBeNull", [&] {
    MemberLayout* member = FindForChange(vIndex);
    if (member == nullptr) throw Error(E_INVALIDARG, kNoMember);
    member->can_be_null = bCanBeNull != VARIANT_FALSE;
  });
}

HRESULT StructureInfo::AddSimpleArrayMember(BSTR sName, SHORT DataType, LONG nElemCount,
                                            VARIANT_BOOL* pbResult) {
  return Call("AddSimpleArrayMember", [&] {
    Out(pbResult) = VARIANT_FALSE;
    if (DataType > kLastElementaryType) return;
    Append(sName, NewArrayDefinition(DataType, nElemCount));
    *pbResult = VARIANT_TRUE;
  });
}

const MemberLayout& StructureInfo::MemberAt(LONG position) const {
  static const MemberLayout kNeverCame;
  if (position < 0 || static_cast<std::size_t>(position) >= layout_.WholeCount()) {
    throw Error(E_INVALIDARG, "the structure has " + std::to_string(layout_.WholeCount()) +
                                  " members and none at position " + std::to_string(position));
  }
  const MemberLayout* member = layout_.At(position);
  return member != nullptr ? *member : kNeverCame;
}

std::optional<LONG> StructureInfo::FindMember(const VARIANT& index) const {
  LONG position = -1;
  if (index.vt == VT_BSTR) {
    position = layout_.Find(ViewOf(index.bstrVal));
    if (position < 0) return std::nullopt;
  } else {
    position = Variant::Converted(index, VT_I4)->lVal;
    static_cast<void>(MemberAt(position));
  }
  return position;
}

MemberLayout* StructureInfo::FindForChange(const VARIANT& index) {
  const auto position = FindMember(index);
  return position ? &Whole().members[static_cast<std::size_t>(*position)] : nullptr;
}

void StructureInfo::Append(BSTR name, Ptr<IValueDefBase> definition) {
  MemberLayout member;
  member.name.Set(name);
  member.definition = HeldDefinition(std::move(definition));
  Whole().members.push_back(std::move(member));
}

}  // namespace halyard
