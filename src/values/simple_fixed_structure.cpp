#include "values/simple_fixed_structure.h"

#include <algorithm>

namespace halyard {

HRESULT SimpleFixedStructure::get_Item(VARIANT vIndex, VARIANT* pvValue) {
  return Call("Item", [&] {
    Out(pvValue) = VARIANT{};
    const MemberLayout* member = type_.Find(vIndex);
    if (member != nullptr && block_.Holds(*member)) {
      block_.Read(*member, *pvValue);
    } else {
      *pvValue = ItemWithoutField(member);
    }
  });
}

VARIANT SimpleFixedStructure::ItemWithoutField(const MemberLayout* member) {
  return member != nullptr && member->size == 0 ? Variant(WideView()).Detach() : Variant::Null().Detach();
}

HRESULT SimpleFixedStructure::put_Item(VARIANT vIndex, VARIANT vValue) {
  return Call("Item", [&] {
    const MemberLayout* member = type_.Find(vIndex);
    if (member != nullptr && block_.Holds(*member)) block_.Write(*member, vValue);
  });
}

HRESULT SimpleFixedStructure::get_At(VARIANT, IValueBase** ppValue) {
  return Call("At", [&] {
    Out(ppValue) = nullptr;
    throw Error(E_NOTIMPL, "the members of this structure are no objects of their own; use Item");
  });
}

HRESULT SimpleFixedStructure::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    Out(ppCopy) = nullptr;
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

bool SimpleFixedStructure::Decode(ReadCursor& cursor) {
  return BlockIsWhole() && cursor.room() >= block_.size() &&
         cursor.TakeBytes(block_.bytes().data(), block_.size());
}

bool SimpleFixedStructure::Encode(WriteCursor& cursor) {
  return BlockIsWhole() && cursor.room() >= block_.size() &&
         cursor.PutBytes(block_.bytes().data(), block_.size());
}

}  // namespace halyard
