#include "values/structure.h"

#include <new>

#include "halyard/classes.h"
#include "object/nesting.h"
#include "values/nested_value.h"
#include "values/reading_allowance.h"

namespace halyard {
namespace {

// The byte before an object member that can be null.
constexpr std::uint8_t kPresent = 0;
constexpr std::uint8_t kNull = 1;

// A new object for a member; empty where the definition made none.
Ptr<IValueBase> NewMember(const MemberLayout& member) {
  const Ptr<IValueDefBase> definition = Require(member.definition.object, "a member has no definition");
  Ptr<IValueBase> object;
  const HRESULT hr = definition->CreateDataObject(object.Out());
  // What a client's definition says is its own affair, what one of the library says is not:
  // see Tried.
  if (hr == E_OUTOFMEMORY && member.definition.inside != nullptr) throw std::bad_alloc();
  Check(hr, definition);
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
          Require(members_[i].Shown().object, "a structure with null members cannot be copied");
      Ptr<IValueBase> member;
      Check(object->Copy(member.Out()), object);
      copy->members_.push_back({HeldValue(std::move(member))});
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
  std::vector<Slot> members;
  std::uint16_t size = 0;
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    if (layout.members[i].size == 0) {
      members.push_back({HeldValue(NewMember(layout.members[i]))});
    } else {
      size = static_cast<std::uint16_t>(size + layout.members[i].size);
    }
  }
  members_ = std::move(members);
  block_.Resize(size);
}

bool Structure::Renew(IValueDefBase* definition, REFCLSID value_class) {
  if (!HeldOnce() || !type_.Is(definition) || !(value_class == kStructureClass)) return false;
  if (!WalkingLevel::HasRoom()) return false;
  const WalkingLevel level;
  std::size_t slot = 0;
  std::uint16_t size = 0;
  for (const MemberLayout& member : type_.layout().members) {
    if (member.size != 0) {
      size = static_cast<std::uint16_t>(size + member.size);
      continue;
    }
    if (slot == members_.size() || !RenewValue(members_[slot].held, member.definition.Known())) return false;
    members_[slot++].hidden = false;
  }
  if (slot != members_.size() || size != block_.size()) return false;
  ResetFrame();
  block_.Clear();
  return true;
}

Structure::Slot* Structure::SlotOf(const MemberLayout& member) noexcept {
  return member.offset < members_.size() ? &members_[member.offset] : nullptr;
}

bool Structure::IsNull(const MemberLayout& member) noexcept {
  const Slot* slot = SlotOf(member);
  return slot == nullptr || slot->IsNull();
}

HeldValue Structure::HeldBy(const MemberLayout& member) noexcept {
  const Slot* slot = SlotOf(member);
  return slot != nullptr ? slot->Shown() : HeldValue();
}

void Structure::Empty(Slot& slot) noexcept {
  if (slot.held.traits.stands_alone) {
    slot.hidden = true;
  } else {
    slot.held = HeldValue();
  }
}

void Structure::Fill(Slot& slot, const MemberLayout& member) {
  if (!slot.hidden || !RenewValue(slot.held, member.definition.Known()))
    slot.held = HeldValue(NewMember(member));
  slot.hidden = false;
}

HeldValue Structure::RequiredOf(const MemberLayout& member) {
  HeldValue held = HeldBy(member);
  Require(held.object, "a member is null");
  return held;
}

void Structure::PutObjectMember(const MemberLayout& member, const VARIANT& value) {
  Slot* slot = SlotOf(member);
  if (slot == nullptr) return;
  if (value.vt == VT_NULL) {
    Empty(*slot);
  } else if (value.vt == VT_DISPATCH) {
    // An object that is no value leaves the member null, without a failure.
    HeldValue other(Ptr<IDispatch>(value.pdispVal).As<IValueBase>());
    slot->hidden = false;
    slot->held = std::move(other);
  } else {
    if (slot->IsNull()) Fill(*slot, member);
    const Ptr<IValueBase> object = Require(slot->held.object, "a member's definition made no value");
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

template <class Use>
auto Structure::WithObject(const MemberLayout& member, Use&& use) {
  const Slot* slot = SlotOf(member);
  if (slot != nullptr && !slot->hidden && slot->held.traits.keeps_to_itself) return use(slot->held);
  const HeldValue held = RequiredOf(member);
  return use(held);
}

ULONG Structure::MemberPacketSize(const MemberLayout& member) {
  if (member.size != 0) return member.size;
  const ULONG flag = member.can_be_null ? sizeof kNull : 0;
  if (member.can_be_null && IsNull(member)) return flag;
  return WithObject(member, [&](const HeldValue& value) {
    ULONG size = 0;
    Check(value.object->get_PacketSize(&size), value.object);
    return flag + size;
  });
}

bool Structure::Encode(WriteCursor& cursor) {
  const StructureLayout& layout = type_.layout();
  ObjectLevel level;
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    if (!EncodeMember(cursor, layout.members[i], level)) return false;
  }
  return true;
}

bool Structure::EncodeMember(WriteCursor& cursor, const MemberLayout& member, ObjectLevel& level) {
  if (member.size != 0) {
    if (!block_.Holds(member) || cursor.room() < member.size) return false;
    return cursor.PutBytes(block_.Field(member).data(), member.size);
  }
  if (member.can_be_null) {
    const bool is_null = IsNull(member);
    if (!cursor.Put(is_null ? kNull : kPresent)) return false;
    if (is_null) return true;
  }
  return WithObject(member, [&](const HeldValue& value) {
    if (!level) level.emplace();
    return EncodeOnLevel(value, cursor);
  });
}

bool Structure::Decode(ReadCursor& cursor) {
  const StructureLayout& layout = type_.layout();
  const ReadingAllowance allowance(cursor.room());
  ObjectLevel level;
  for (std::size_t i = 0; i < layout.members.size(); ++i) {
    if (!DecodeMember(cursor, layout.members[i], level)) return false;
  }
  return true;
}

bool Structure::DecodeMember(ReadCursor& cursor, const MemberLayout& member, ObjectLevel& level) {
  if (member.size != 0) {
    if (!block_.Holds(member) || cursor.room() < member.size) return false;
    return cursor.TakeBytes(block_.Field(member).data(), member.size);
  }
  if (member.can_be_null) {
    std::uint8_t flag = kPresent;
    if (!cursor.Take(flag)) return false;
    if (flag != kPresent) {
      if (Slot* slot = SlotOf(member)) Empty(*slot);
      return true;
    }
  }
  return WithObject(member, [&](const HeldValue& value) {
    if (!level) level.emplace();
    return DecodeOnLevel(value, cursor);
  });
}

}  // namespace halyard
