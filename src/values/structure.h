// Structure: the general record. Members of fixed size lie in a block; every other
// member is a value object of its own, in a slot, which is empty while it is null.
#pragma once

#include <optional>
#include <vector>

#include "halyard/values/structure.h"
#include "object/nesting.h"
#include "values/nested_value.h"
#include "values/structure_object.h"

namespace halyard {

class Structure : public StructureObject<Structure, IStructure> {
 public:
  static constexpr char kClassName[] = "Structure";

  HRESULT GetItem(const VARIANT& index, VARIANT* item) noexcept;
  HRESULT PutItem(const VARIANT& index, const VARIANT& value) noexcept;
  HRESULT STDMETHODCALLTYPE get_At(VARIANT vIndex, IValueBase** ppValue) override;
  HRESULT STDMETHODCALLTYPE Copy(IValueBase** ppCopy) override;
  HRESULT STDMETHODCALLTYPE get_PacketSize(ULONG* pdwSize) override;

  bool Renew(IValueDefBase* definition, REFCLSID value_class) override;

  // Makes block and member objects of the definition just taken.
  void Build();

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor);

 private:
  // The level of nesting of member objects, counted from the first one that is visited.
  using ObjectLevel = std::optional<WalkingLevel>;

  // The place of an object member. A null member may keep the object that it had, for the
  // time when it gets a value again.
  struct Slot {
    [[nodiscard]] bool IsNull() const noexcept { return hidden || !held.object; }
    [[nodiscard]] HeldValue Shown() const noexcept { return hidden ? HeldValue() : held; }

    HeldValue held;
    bool hidden = false;
  };

  // The slot of an object member; null where this value has none for it, because the
  // definition has changed since.
  Slot* SlotOf(const MemberLayout& member) noexcept;

  // What the slot holds, without an object for a null member.
  HeldValue HeldBy(const MemberLayout& member) noexcept;
  [[nodiscard]] bool IsNull(const MemberLayout& member) noexcept;

  // Makes the member of a slot null.
  static void Empty(Slot& slot) noexcept;

  // Gives the null member of a slot a new object.
  static void Fill(Slot& slot, const MemberLayout& member);

  // The same for a member that must not be null; raises E_POINTER.
  HeldValue RequiredOf(const MemberLayout& member);

  // What `use(const HeldValue&)` answers for the object of a member that must not be null.
  // The object is held meanwhile, because its code may change this structure.
  template <class Use>
  auto WithObject(const MemberLayout& member, Use&& use);

  // The value of the object of a member: null for a null member and for no member.
  Variant ItemOfObject(const MemberLayout* member);

  void PutObjectMember(const MemberLayout& member, const VARIANT& value);
  [[nodiscard]] bool DecodeMember(ReadCursor& cursor, const MemberLayout& member, ObjectLevel& level);
  [[nodiscard]] bool EncodeMember(WriteCursor& cursor, const MemberLayout& member, ObjectLevel& level);
  ULONG MemberPacketSize(const MemberLayout& member);

  std::vector<Slot> members_;
};

}  // namespace halyard
