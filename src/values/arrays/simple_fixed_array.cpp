#include "values/arrays/simple_fixed_array.h"

#include <cstring>

#include "halyard/classes.h"

namespace halyard {

Ptr<SimpleFixedArray> SimpleFixedArray::NewShell(IValueDefBase* definition, unsigned char* memory) {
  Ptr<SimpleFixedArray> shell = NewObject<SimpleFixedArray>();
  shell->shell_ = true;
  shell->external_ = memory;
  shell->type_.Take(definition);
  shell->TakeShape();
  shell->type_.Drop();
  return shell;
}

HRESULT SimpleFixedArray::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const Ptr<SimpleFixedArray> copy = NewObject<SimpleFixedArray>();
    copy->type_ = type_;
    copy->SetElementType(element_type());
    copy->count_ = count_;
    copy->block_.Reset(Size());
    if (Size() != 0 && Stored() != nullptr) std::memcpy(copy->block_.Writable(), Stored(), Size());
    HandOut(ppCopy, Ptr<IValueBase>(copy));
  });
}

HRESULT SimpleFixedArray::put_Info(IValueDefBase* pInfo) {
  return Call("Info", [&] {
    if (pInfo == nullptr) throw Error(E_INVALIDARG, "an array needs a definition");
    // A shell has its shape for life: another one might not fit the caller's memory.
    if (type_ || shell_) return;
    type_.Take(pInfo);
    TakeShape();
    block_.Reset(Size());
    if (width() == 0) type_.Drop();
  });
}

HRESULT SimpleFixedArray::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] { Out(pdwSize) = static_cast<ULONG>(Size()); });
}

bool SimpleFixedArray::Renew(IValueDefBase* definition, REFCLSID value_class) {
  if (!HeldOnce() || shell_ || !type_.Is(definition) || !(value_class == kSimpleFixedArrayClass))
    return false;
  TakeShape();
  if (width() == 0) return false;
  ResetFrame();
  block_.Clear(Size());
  return true;
}

bool SimpleFixedArray::Decode(ReadCursor& cursor) {
  if (Size() > cursor.room()) return false;
  return Size() == 0 || cursor.TakeBytes(Writable(), Size());
}

bool SimpleFixedArray::Encode(WriteCursor& cursor) const {
  if (Size() > cursor.room()) return false;
  if (Size() == 0) return true;
  return Stored() != nullptr ? cursor.PutBytes(Stored(), Size()) : cursor.PutField({}, Size());
}

const unsigned char* SimpleFixedArray::Stored() const { return shell_ ? RequireExternal() : block_.Stored(); }

unsigned char* SimpleFixedArray::Writable() { return shell_ ? RequireExternal() : block_.Writable(); }

void SimpleFixedArray::TakeShape() {
  const ArrayLayout& layout = type_.layout();
  SetElementType(layout.element_type);
  count_ = static_cast<std::uint16_t>(layout.element_count);
}

unsigned char* SimpleFixedArray::RequireExternal() const {
  if (external_ == nullptr && Size() != 0) throw Error(E_POINTER, "the array lies over a null pointer");
  return external_;
}

}  // namespace halyard
