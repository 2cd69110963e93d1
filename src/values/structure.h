// Structure: the general record. Members of fixed size lie in a block; every other
// member is a value object of its own, in a slot, which is empty while it is null.
#pragma once

#include <vector>

#include "halyard/values/structure.h"
#include "values/structure_object.h"

namespace halyard {

class Structure : public StructureObject<Structure, IStructure> {
 public:
  static constexpr char kClassName[] = "Structure";

  HRESULT STDMETHODCALLTYPE get_Item(VARIANT vIndex, VARIANT* pvValue) override;
  HRESULT STDMETHODCALLTYPE put_Item(VARIANT vIndex, VARIANT vValue) override;
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
  Ptr<IValueBase>* SlotOf(const MemberLayout& member) noexcept;

  // The object in the slot, empty for a null member.
  Ptr<IValueBase> ObjectOf(const MemberLayout& member) noexcept;

  // The object of a member that must not be null; raises E_POINTER.
  Ptr<IValueBase> RequiredObjectOf(const MemberLayout& member);

  // The value of the object of a member: null for a null member and for no member.
  Variant ItemOfObject(const MemberLayout* member);

  void PutObjectMember(const MemberLayout& member, const VARIANT& value);
  [[nodiscard]] bool DecodeMember(ReadCursor& cursor, const MemberLayout& member);
  [[nodiscard]] bool EncodeMember(WriteCursor& cursor, const MemberLayout& member);
  ULONG MemberPacketSize(const MemberLayout& member);

  std::vector<Ptr<IValueBase>> members_;
};

}  // namespace halyard
