#include "values/structure_type.h"

#include "halyard/object/variant.h"

namespace halyard {

void StructureType::Take(IValueDefBase* definition) {
  definition_ = QueryFor<IStructureDef>(definition);
  source_ = QueryFor<IStructureLayoutSource>(definition);
  if (!definition_ || !source_)
    throw Error(E_INVALIDARG, "the object is no structure definition of this library");
  table_ = &source_->Layout();
}

void StructureType::Drop() noexcept {
  table_ = nullptr;
  source_.Reset();
  definition_.Reset();
}

const StructureLayout& StructureType::NoMembers() noexcept {
  static const StructureLayout kNoMembers;
  return kNoMembers;
}

Ptr<IValueDefBase> StructureType::Definition() const {
  return Require(definition_, "the value has no definition").template As<IValueDefBase>();
}

SHORT StructureType::Id() const {
  Require(definition_, "the value has no definition");
  SHORT id = 0;
  Check(definition_->get_Id(&id), definition_);
  return id;
}

const MemberLayout* StructureType::FindOther(const VARIANT& index) const {
  const StructureLayout& table = layout();
  if (index.vt == VT_BSTR) return table.At(table.Find(ViewOf(index.bstrVal)));
  return table.At(Variant::Converted(index, VT_I4)->lVal);
}

}  // namespace halyard
