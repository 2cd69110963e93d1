#include "values/arrays/simple_array.h"

#include <cstddef>
#include <cstring>
#include <limits>
#include <new>

#include "halyard/classes.h"

namespace halyard {
namespace {

constexpr ULONG kCountBytes = 4;

// Memory that a client gets the address of lies as an allocation does.
bool IsAligned(const unsigned char* bytes) noexcept {
  return reinterpret_cast<std::uintptr_t>(bytes) % alignof(std::max_align_t) == 0;
}

// Slots by which a full block grows, and spare slots from which it is cut to its count.
constexpr ULONG kGrowth = 10;
constexpr ULONG kSpareToGiveBack = 9;

}  // namespace

HRESULT SimpleArray::Add(VARIANT vValue) {
  return Call("Add", [&] {
    if (count_ == std::numeric_limits<ULONG>::max()) throw std::bad_alloc();
    if (capacity_ <= count_) {
      block_.Resize(width() * (capacity_ + kGrowth));
      capacity_ += kGrowth;
    }
    // The element is there before its value, and stays where that does not convert.
    static_cast<void>(block_.Writable());
    const ULONG position = count_++;
    Store(position, vValue);
  });
}

HRESULT SimpleArray::Remove(VARIANT vIndex) {
  return Call("Remove", [&] {
    const ULONG position = ElementPosition(vIndex, [&] { return count_; });
    --count_;
    if (block_.Stored() != nullptr) {
      unsigned char* slots = block_.Writable();
      unsigned char* slot = slots + Offset(position);
      std::memmove(slot, slot + width(), static_cast<std::size_t>(Offset(count_) - Offset(position)));
      // A spare slot is all zeros, as the next element is before its value.
      std::memset(slots + Offset(count_), 0, width());
    }
    if (capacity_ - count_ >= kSpareToGiveBack) {
      block_.Shrink(Offset(count_));
      capacity_ = count_;
    }
  });
}

HRESULT SimpleArray::RemoveAll() {
  Reset(0);
  return S_OK;
}

HRESULT SimpleArray::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const Ptr<SimpleArray> copy = NewObject<SimpleArray>();
    copy->type_ = type_;
    copy->SetElementType(element_type());
    copy->Reset(count_);
    if (block_.Stored() != nullptr && copy->block_.size() != 0)
      std::memcpy(copy->block_.WritableInFull(), block_.Stored(),
                  static_cast<std::size_t>(copy->block_.size()));
    HandOut(ppCopy, Ptr<IValueBase>(copy));
  });
}

HRESULT SimpleArray::put_Info(IValueDefBase* pInfo) {
  return Call("Info", [&] {
    if (pInfo == nullptr) throw Error(E_INVALIDARG, "an array needs a definition");
    if (type_) return;
    type_.Take(pInfo);
    if (!TakeShape()) type_.Drop();
  });
}

bool SimpleArray::Renew(IValueDefBase* definition, REFCLSID value_class) {
  if (!HeldOnce() || !type_.Is(definition) || !(value_class == kSimpleArrayClass)) return false;
  if (!TakeShape()) return false;
  ResetFrame();
  return true;
}

bool SimpleArray::TakeShape() {
  const ArrayLayout& layout = type_.layout();
  SetElementType(layout.element_type);
  Reset(layout.element_count);
  return width() != 0 && count_ == 0;
}

HRESULT SimpleArray::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] { Out(pdwSize) = kCountBytes + static_cast<ULONG>(Offset(count_)); });
}

bool SimpleArray::Decode(ReadCursor& cursor) {
  ULONG count = 0;
  if (!cursor.Take(count)) return false;
  // Kept until the end: a client may read from the array's own memory.
  const ZeroBlock old = std::move(block_);
  // The count is kept even where the elements are not there.
  Reset(count);
  if (block_.size() > cursor.room()) return false;
  if (IsAligned(cursor.rest().data())) {
    if (OwnedBytes owned = cursor.TakeWithMemory(static_cast<std::size_t>(block_.size()))) {
      block_.Adopt(std::move(owned.memory), owned.bytes);
      return true;
    }
  }
  return cursor.TakeBytes(block_.WritableInFull(), static_cast<std::size_t>(block_.size()));
}

bool SimpleArray::FindReadyBody(ReadyBody& body) {
  if (!type_ || block_.Stored() == nullptr || !type_.FindId(body.id)) return false;
  body.type = kTypeCode;
  std::memcpy(body.head.data(), &count_, sizeof count_);
  body.head_size = sizeof count_;
  body.bytes = {block_.Stored(), static_cast<std::size_t>(Offset(count_))};
  return true;
}

bool SimpleArray::Encode(WriteCursor& cursor) const {
  if (!cursor.Put(count_) || Offset(count_) > cursor.room()) return false;
  const auto bytes = static_cast<std::size_t>(Offset(count_));
  return block_.Stored() != nullptr ? cursor.PutBytes(block_.Stored(), bytes) : cursor.PutField({}, bytes);
}

void SimpleArray::Reset(ULONG count) noexcept {
  count_ = count;
  capacity_ = count;
  block_.Reset(Offset(count));
}

}  // namespace halyard
