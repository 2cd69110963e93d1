#include "values/structure_block.h"

namespace halyard {

std::span<unsigned char> StructureBlock::bytes() {
  if (bytes_.empty()) bytes_.resize(size_ + kWidestElementary);
  return {bytes_.data(), size_};
}

Variant StructureBlock::Read(const MemberLayout& member) {
  Variant value;
  // From the field to the end of the block, so that a text may go on; conversions that
  // are wider than their field reach into the spare bytes.
  if (ReadElementary(bytes().subspan(member.offset), static_cast<SHORT>(member.type), value.get()))
    return value;
  return Variant(WideView());
}

void StructureBlock::Write(const MemberLayout& member, const VARIANT& value) {
  Variant copy = Variant::CopyOf(value);
  WriteElementary(copy.get(), static_cast<SHORT>(member.type), Field(member).data(), member.size);
}

}  // namespace halyard
