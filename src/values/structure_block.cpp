#include "values/structure_block.h"

namespace halyard {

StructureBlock& StructureBlock::operator=(const StructureBlock& other) {
  if (this == &other) return *this;
  Resize(other.size_);
  if (other.bytes_ != nullptr && size_ != 0)
    std::memcpy(bytes().data(), other.bytes_, size_ + kWidestElementary);
  return *this;
}

void StructureBlock::Resize(std::uint16_t size) noexcept {
  far_.reset();
  near_.fill(0);
  size_ = size;
  bytes_ = size <= kNearBytes ? near_.data() : nullptr;
}

void StructureBlock::MakeFar() {
  far_ = std::make_unique<unsigned char[]>(size_ + kWidestElementary);
  bytes_ = far_.get();
}

void StructureBlock::ReadOther(const MemberLayout& member, VARIANT& fresh) {
  Variant value;
  // From the field to the end of the block, so that a text may go on; conversions that
  // are wider than their field reach into the spare bytes.
  if (!ReadElementary(bytes().subspan(member.offset), static_cast<SHORT>(member.type), value.get()))
    value = Variant(WideView());
  fresh = value.Detach();
}

void StructureBlock::WriteOther(const MemberLayout& member, const VARIANT& value) {
  Variant copy = Variant::CopyOf(value);
  WriteElementary(copy.get(), static_cast<SHORT>(member.type), Field(member).data(), member.size);
}

}  // namespace halyard
