// StructureBlock: the fixed members of one structure value as raw bytes.
//
// A small block lies in the object itself. Memory for a larger one is taken when a field
// is first touched: a stranger's definition can ask for many large blocks, but only
// those that its data fills are ever made.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>

#include "definitions/structure_layout.h"
#include "halyard/object/variant.h"
#include "types/elementary.h"
#include "types/number_fields.h"

namespace halyard {

class StructureBlock {
 public:
  StructureBlock() noexcept = default;
  StructureBlock& operator=(const StructureBlock& other);
  StructureBlock(const StructureBlock&) = delete;

  // A block of `size` zeros.
  void Resize(std::uint16_t size) noexcept;

  // The same size, and zeros again.
  void Clear() noexcept {
    std::memset(near_.data(), 0, near_.size());
    if (far_) std::memset(far_.get(), 0, size_ + kWidestElementary);
  }

  [[nodiscard]] std::uint16_t size() const noexcept { return size_; }

  // Whether the field of a fixed member lies in the block.
  [[nodiscard]] bool Holds(const MemberLayout& member) const noexcept {
    return member.size != 0 && member.offset + std::size_t{member.size} <= size_;
  }

  // Whether the block has its memory.
  [[nodiscard]] bool IsMade() const noexcept { return bytes_ != nullptr; }

  // The whole block. Throws std::bad_alloc.
  [[nodiscard]] std::span<unsigned char> bytes() {
    if (bytes_ == nullptr) [[unlikely]]
      MakeFar();
    return {bytes_, size_};
  }

  // The field of a member that the block holds.
  [[nodiscard]] std::span<unsigned char> Field(const MemberLayout& member) {
    return bytes().subspan(member.offset, member.size);
  }

  // Reads or writes the field of a number as it is. False, and nothing done, where it
  // takes more than that.
  [[nodiscard]] bool ReadQuickly(const MemberLayout& member, VARIANT& fresh) const noexcept {
    return bytes_ != nullptr && Holds(member) && LoadNumberOf(member.number, bytes_ + member.offset, fresh);
  }
  [[nodiscard]] bool WriteQuickly(const MemberLayout& member, const VARIANT& value) noexcept {
    return bytes_ != nullptr && Holds(member) && StoreNumberOf(member.number, value, bytes_ + member.offset);
  }

  // Makes `fresh`, which is empty and new, hold the content of the field of a member
  // that the block holds; the empty text for types that have no conversion. The text of
  // a full FixedString goes on into the fields behind it.
  void Read(const MemberLayout& member, VARIANT& fresh) {
    const unsigned char* field = bytes().data() + member.offset;
    if (!LoadNumber(field, static_cast<SHORT>(member.type), fresh)) ReadOther(member, fresh);
  }

  // Stores the value, converted, in the field of a member that the block holds; raises
  // what the conversion raises.
  void Write(const MemberLayout& member, const VARIANT& value) {
    unsigned char* field = bytes().data() + member.offset;
    if (!StoreNumber(value, static_cast<SHORT>(member.type), field)) WriteOther(member, value);
  }

 private:
  // Behind the block lie spare bytes, because an Int64 is stored in 8 bytes although it
  // counts 4.
  static constexpr std::size_t kNearBytes = 40;

  void MakeFar();
  void ReadOther(const MemberLayout& member, VARIANT& fresh);
  void WriteOther(const MemberLayout& member, const VARIANT& value);

  std::array<unsigned char, kNearBytes + kWidestElementary> near_{};
  unsigned char* bytes_ = near_.data();  // null while a large block has no memory
  std::uint16_t size_ = 0;
  std::unique_ptr<unsigned char[]> far_;
};

}  // namespace halyard
