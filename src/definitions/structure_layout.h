// The member table of a structure definition, as structure values read it.
//
// A value sees of its definition the public interface and this table, which stays the
// definition's own: it changes when a client changes the definition, so whoever reads
// it checks every place against the memory that he really has.
#pragma once

#include <cstdint>
#include <vector>

#include "definitions/held_definition.h"
#include "definitions/name_index.h"
#include "halyard/definitions/value_def_base.h"
#include "halyard/object/ptr.h"
#include "object/optional_text.h"
#include "types/number_fields.h"

namespace halyard {

struct MemberLayout {
  // Where a fixed member lies in the block, in bytes; for any other member its ordinal
  // among those.
  std::uint16_t offset = 0;

  // The type code of the definition, as last calculated.
  std::uint16_t type = 0;

  // The bytes that a fixed member takes; 0 for any other member.
  std::uint16_t size = 0;

  // How a field of the type is read and stored.
  NumberForm number;

  OptionalText name;

  // Travels with the encoding and has no other use.
  OptionalText caption;

  bool can_be_null = false;

  // May be empty: a client can leave a member without a definition.
  HeldDefinition definition;
};

struct StructureLayout {
  // Whoever changes names or takes members out must call ForgetNames; members that are
  // added at the end need no word.
  std::vector<MemberLayout> members;

  // How many members a broken encoding announced. They exist for whoever asks, but take
  // no memory before: a few bytes could announce many.
  std::size_t announced = 0;

  // The sum of the members' sizes as last calculated, cut to 16 bits.
  std::uint16_t data_size = 0;

  // Whether every member had a fixed place when last calculated.
  bool fixed = false;

  // The table with all its members, for whoever shows or changes them.
  StructureLayout& Whole() {
    if (announced != 0) [[unlikely]]
      MakeAnnounced();
    return *this;
  }

  // Whether members were announced that never came. They have no definition, so whatever
  // needs one fails at the first of them and need not make them.
  [[nodiscard]] bool LacksMembers() const noexcept { return announced > members.size(); }

  // How many members the table has when it is whole.
  [[nodiscard]] std::size_t WholeCount() const noexcept {
    return LacksMembers() ? announced : members.size();
  }

  // The position of the first member of that name, letter case ignored; -1 for none.
  [[nodiscard]] LONG Find(WideView name) const noexcept;

  void ForgetNames() const noexcept { names_.Forget(); }

  // The member at a position; null outside the table.
  [[nodiscard]] const MemberLayout* At(LONG position) const noexcept {
    return position >= 0 && static_cast<std::size_t>(position) < members.size()
               ? &members[static_cast<std::size_t>(position)]
               : nullptr;
  }

 private:
  void MakeAnnounced();

  // Brings the index up to the members; false where there is no memory for it.
  [[nodiscard]] bool LearnNames() const noexcept;

  // The same as Find, without the index.
  [[nodiscard]] LONG Search(WideView name) const noexcept;

  // Knows the first members, and learns of the others when a name is looked up.
  mutable NameIndex names_;
};

// Answered by the structure definitions of this library only, and only inside it.
struct IStructureLayoutSource : IUnknown {
  using Base = IUnknown;
  static constexpr IID kIid = {0x14C23850, 0x56BC, 0x43D8, {0xA0, 0x1F, 0xC2, 0xCB, 0x24, 0xB4, 0x9F, 0xC0}};

  // The table; it lives as long as the definition, in one place.
  virtual StructureLayout& Layout() = 0;

  // The public interface of the same object.
  virtual IValueDefBase* Outside() noexcept = 0;
};

}  // namespace halyard
