// StructureBlock: the fixed members of one structure value as raw bytes.
//
// Memory is taken when a field is first touched: a stranger's definition can ask for
// many large blocks, but only those that its data fills are ever made.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "definitions/structure_layout.h"
#include "halyard/object/variant.h"
#include "types/elementary.h"

namespace halyard {

class StructureBlock {
 public:
  // A block of `size` zeros.
  void Resize(std::uint16_t size) noexcept {
    bytes_.clear();
    size_ = size;
  }

  [[nodiscard]] std::uint16_t size() const noexcept { return size_; }

  // Whether the field of a fixed member lies in the block.
  [[nodiscard]] bool Holds(const MemberLayout& member) const noexcept {
    return member.size != 0 && member.offset + std::size_t{member.size} <= size_;
  }

  // The whole block. Throws std::bad_alloc.
  [[nodiscard]] std::span<unsigned char> bytes();

  // The field of a member that the block holds.
  [[nodiscard]] std::span<unsigned char> Field(const MemberLayout& member) {
    return bytes().subspan(member.offset, member.size);
  }

  // The content of the field of a member that the block holds; the empty text for types
  // that have no conversion. The text of a full FixedString goes on into the fields
  // behind it.
  Variant Read(const MemberLayout& member);

  // Stores the value, converted, in the field of a member that the block holds; raises
  // what the conversion raises.
  void Write(const MemberLayout& member, const VARIANT& value);

 private:
  // Behind the block lie spare bytes, because an Int64 is stored in 8 bytes although it
  // counts 4. Empty until the block is touched.
  std::vector<unsigned char> bytes_;
  std::uint16_t size_ = 0;
};

}  // namespace halyard
