#include "values/structure.h"

#include "object/nesting.h"
#include "values/nested_value.h"

namespace halyard {
namespace {

// The byte before an object member that can be null.
constexpr std::uint8_t kPresent = 0;
constexpr std::uint8_t kNull = 1;

// A new object for a member; empty where the definition made none.
Ptr<IValueBase> NewMember(const MemberLayout& member) {
  const Ptr<IValueDefBase> definition = Require(member.definition, "a member has no definition");
  Ptr<IValueBase> object;
  Check(definition->CreateDataObject(object.Out()), definition);
  return object;
}

}  // namespace

HRESULT Structure::GetItem(const VARIANT& index, VARIANT* item) noexcept {
  return Call("Item", [&] {
    EmptyOut(item);
    const MemberLayout* member = type_.Find(index);
    if (member != nullptr && block_.Holds(*member)) {
      block_.Read(*member, *item);
    } else {
      *item = ItemOfObject(member).Detach();
    }
  });
}

HRESULT Structure::PutItem(const VARIANT& index, const VARIANT& value) noexcept {
  return Call("Item", [&] {
    const MemberLayout* member = type_.Find(index);
    if (member == nullptr) return;
    if (member->size == 0) {
      PutObjectMember(*member, value);
    } else if (block_.Holds(*member)) {
      block_.Write(*member, value);
    }
  });
}

HRESULT Structure::get_At(VARIANT vIndex, IValueBase** ppValue) {
  return Call("At", [&] {
    EmptyOut(ppValue);
    const MemberLayout* member = type_.Find(vIndex);
    if (member != nullptr && member->size == 0) *ppValue = HeldBy(*member).object.Detach();
  });
}

HRESULT Structure::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const WalkingLevel level;
    const Ptr<Structure> copy = NewObject<Structure>();
    copy->type_ = type_;
    copy->block_ = block_;
    // By position: a member object of the client's may change this one while it copies.
    for (std::size_t i = 0; i < members_.size(); ++i) {
      const Ptr<IValueBase> object =
          Require(members_[i].object, "a structure with null members cannot be copied");
      Ptr<IValueBase> member;
      Check(object->Copy(member.Out()), object);
      copy->members_.emplace_back(std::move(member));
    }
    *ppCopy = Ptr<IValueBase>(copy).Detach();
  });
}

HRESULT Structure::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& result = Out(pdwSize);
    const WalkingLevel level;
    const StructureLayout& layout = type_.layout();
    ULONG size = 0;
    for (std::size_t i = 0; i < layout.members.size(); ++i) size += MemberPacketSize(layout.members[i]);
    result = size;
  });
}

void Structure::Build() {
  const StructureLayout& layout = type_.layout();
  std::vector<HeldValue> members;
  std::uint16_t size = 0;
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    if (layout.members[i].size == 0) {
      members.emplace_back(NewMember(layout.members[i]));
    } else {
      size = static_cast<std::uint16_t>(size + layout.members[i].size);
    }
  }
  members_ = std::move(members);
  block_.Resize(size);
}

HeldValue* Structure::SlotOf(const MemberLayout& member) noexcept {
  return member.offset < members_.size() ? &members_[member.offset] : nullptr;
}

HeldValue Structure::HeldBy(const MemberLayout& member) noexcept {
  const HeldValue* slot = SlotOf(member);
  return slot != nullptr ? *slot : HeldValue();
}

HeldValue Structure::RequiredOf(const MemberLayout& member) {
  HeldValue held = HeldBy(member);
  Require(held.object, "a member is null");
  return held;
}

void Structure::PutObjectMember(const MemberLayout& member, const VARIANT& value) {
  HeldValue* slot = SlotOf(member);
  if (slot == nullptr) return;
  if (value.vt == VT_NULL) {
    *slot = HeldValue();
  } else if (value.vt == VT_DISPATCH) {
    // An object that is no value leaves the member null, without a failure.
    *slot = HeldValue(Ptr<IDispatch>(value.pdispVal).As<IValueBase>());
  } else {
    if (!slot->object) *slot = HeldValue(NewMember(member));
    const Ptr<IValueBase> object = Require(slot->object, "a member's definition made no value");
    Check(object->put_Value(value), object);
  }
}

Variant Structure::ItemOfObject(const MemberLayout* member) {
  Variant value = Variant::Null();
  if (member == nullptr || member->size != 0) return value;
  const Ptr<IValueBase> object = HeldBy(*member).object;
  if (object) Check(object->get_Value(value.Out()), object);
  return value;
}

ULONG Structure::MemberPacketSize(const MemberLayout& member) {
  if (member.size != 0) return member.size;
  const ULONG flag = member.can_be_null ? sizeof kNull : 0;
  if (member.can_be_null && !HeldBy(member).object) return flag;
  const Ptr<IValueBase> object = RequiredOf(member).object;
  ULONG size = 0;
  Check(object->get_PacketSize(&size), object);
  return flag + size;
}

bool Structure::Encode(WriteCursor& cursor) {
  const StructureLayout& layout = type_.layout();
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    if (!EncodeMember(cursor, layout.members[i])) return false;
  }
  return true;
}

bool Structure::EncodeMember(WriteCursor& cursor, const MemberLayout& member) {
  if (member.size != 0) {
    if (!block_.Holds(member) || cursor.room() < member.size) return false;
    return cursor.PutBytes(block_.Field(member).data(), member.size);
  }
  if (member.can_be_null) {
    const bool is_null = !HeldBy(member).object;
    if (!cursor.Put(is_null ? kNull : kPresent)) return false;
    if (is_null) return true;
  }
  return EncodeValue(RequiredOf(member), cursor);
}

bool Structure::Decode(ReadCursor& cursor) {
  const StructureLayout& layout = type_.layout();
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    if (!DecodeMember(cursor, layout.members[i])) return false;
  }
  return true;
}

bool Structure::DecodeMember(ReadCursor& cursor, const MemberLayout& member) {
  if (member.size != 0) {
    if (!block_.Holds(member) || cursor.room() < member.size) return false;
    return cursor.TakeBytes(block_.Field(member).data(), member.size);
  }
  if (member.can_be_null) {
    std::uint8_t flag = kPresent;
    if (!cursor.Take(flag)) return false;
    if (flag != kPresent) {
      if (HeldValue* slot = SlotOf(member)) *slot = HeldValue();
      return true;
    }
  }
  return DecodeValue(RequiredOf(member), cursor);
}

}  // namespace halyard
