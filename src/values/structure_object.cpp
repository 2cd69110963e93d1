#include "values/structure_object.h"

namespace halyard {

Variant StructureBlock::Read(const MemberLayout& member) {
  Variant value;
  // From the field to the end of the block, so that a text may go on; conversions that
  // are wider than their field reach into the spare bytes.
  const std::span<const unsigned char> bytes(bytes_.data() + member.offset,
                                             size_ - std::size_t{member.offset});
  if (ReadElementary(bytes, static_cast<SHORT>(member.type), value.get())) return value;
  return Variant(WideView());
}

void StructureBlock::Write(const MemberLayout& member, const VARIANT& value) {
  Variant copy = Variant::CopyOf(value);
  WriteElementary(copy.get(), static_cast<SHORT>(member.type), bytes_.data() + member.offset, member.size);
}

void StructureType::Take(IValueDefBase* definition) {
  definition_ = QueryFor<IStructureDef>(definition);
  source_ = QueryFor<IStructureLayoutSource>(definition);
  if (!definition_ || !source_)
    throw Error(E_INVALIDARG, "the object is no structure definition of this library");
}

void StructureType::Drop() noexcept {
  source_.Reset();
  definition_.Reset();
}

const StructureLayout& StructureType::layout() const {
  static const StructureLayout kNoMembers;
  return source_ ? source_->Layout() : kNoMembers;
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

const MemberLayout* StructureType::Find(const VARIANT& index) const {
  const StructureLayout& table = layout();
  if (index.vt == VT_BSTR) return table.At(table.Find(ViewOf(index.bstrVal)));
  return table.At(Variant::Converted(index, VT_I4)->lVal);
}

}  // namespace halyard
