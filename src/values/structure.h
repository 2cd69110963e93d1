// Structure: the general record. Members of fixed size lie in a block; every other
// member is a value object of its own, in a slot, which is empty while it is null.
#pragma once

#include <vector>

#include "halyard/values/structure.h"
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

  // Makes block and member objects of the definition just taken.
  void Build();

  [[nodiscard]] bool Decode(ReadCursor& cursor);
  [[nodiscard]] bool Encode(WriteCursor& cursor);

 private:
  // The slot of an object member; null where this value has none for it, because the
  // definition has changed since.
  HeldValue* SlotOf(const MemberLayout& member) noexcept;

  // What the slot holds, without an object for a null member.
  HeldValue HeldBy(const MemberLayout& member) noexcept;

  // The same for a member that must not be null; raises E_POINTER.
  HeldValue RequiredOf(const MemberLayout& member);

  // The value of the object of a member: null for a null member and for no member.
  Variant ItemOfObject(const MemberLayout* member);

  void PutObjectMember(const MemberLayout& member, const VARIANT& value);
  [[nodiscard]] bool DecodeMember(ReadCursor& cursor, const MemberLayout& member);
  [[nodiscard]] bool EncodeMember(WriteCursor& cursor, const MemberLayout& member);
  ULONG MemberPacketSize(const MemberLayout& member);

  std::vector<HeldValue> members_;
};

}  // namespace halyard
