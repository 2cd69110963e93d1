#include "values/simple_fixed_structure.h"

#include <algorithm>
#include <cstring>

#include "halyard/classes.h"

namespace halyard {

Ptr<IValueBase> SimpleFixedStructure::NewOver(IValueDefBase* definition,
                                              std::span<const unsigned char> block) {
  const Ptr<SimpleFixedStructure> structure = NewObject<SimpleFixedStructure>();
  structure->type_.Take(definition);
  structure->block_.Resize(static_cast<std::uint16_t>(block.size()));
  std::memcpy(structure->block_.bytes().data(), block.data(), block.size());
  return structure;
}

HRESULT SimpleFixedStructure::GetItem(const VARIANT& index, VARIANT* item) noexcept {
  return Call("Item", [&] {
    EmptyOut(item);
    const MemberLayout* member = type_.Find(index);
    if (member != nullptr && block_.Holds(*member)) {
      block_.Read(*member, *item);
    } else {
      *item = ItemWithoutField(member);
    }
  });
}

VARIANT SimpleFixedStructure::ItemWithoutField(const MemberLayout* member) {
  return member != nullptr && member->size == 0 ? Variant(WideView()).Detach() : Variant::Null().Detach();
}

HRESULT SimpleFixedStructure::PutItem(const VARIANT& index, const VARIANT& value) noexcept {
  return Call("Item", [&] {
    const MemberLayout* member = type_.Find(index);
    if (member != nullptr && block_.Holds(*member)) block_.Write(*member, value);
  });
}

HRESULT SimpleFixedStructure::get_At(VARIANT, IValueBase** ppValue) {
  return Call("At", [&] {
    EmptyOut(ppValue);
    throw Error(E_NOTIMPL, "the members of this structure are no objects of their own; use Item");
  });
}

HRESULT SimpleFixedStructure::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const Ptr<SimpleFixedStructure> copy = NewObject<SimpleFixedStructure>();
    copy->type_ = type_;
    copy->block_ = block_;
    *ppCopy = Ptr<IValueBase>(copy).Detach();
  });
}

HRESULT SimpleFixedStructure::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] { Out(pdwSize) = type_.layout().data_size; });
}

void SimpleFixedStructure::Build() {
  const std::uint16_t size = type_.layout().data_size;
  if (size == 0) {
    type_.Drop();
  } else {
    block_.Resize(size);
  }
}

bool SimpleFixedStructure::FindReadyBody(ReadyBody& body) {
  if (!type_ || !BlockIsWhole() || !block_.IsMade() || !type_.FindId(body.id)) return false;
  body.type = kTypeCode;
  body.bytes = block_.bytes();
  return true;
}

bool SimpleFixedStructure::Renew(IValueDefBase* definition, REFCLSID value_class) {
  if (!HeldOnce() || !type_.Is(definition) || !(value_class == kSimpleFixedStructureClass)) return false;
  if (!BlockIsWhole()) return false;
  ResetFrame();
  block_.Clear();
  return true;
}

bool SimpleFixedStructure::Decode(ReadCursor& cursor) {
  return BlockIsWhole() && cursor.room() >= block_.size() &&
         cursor.TakeBytes(block_.bytes().data(), block_.size());
}

bool SimpleFixedStructure::Encode(WriteCursor& cursor) {
  return BlockIsWhole() && cursor.room() >= block_.size() &&
         cursor.PutBytes(block_.bytes().data(), block_.size());
}

}  // namespace halyard
