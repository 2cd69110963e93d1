#include "values/arrays/string_array.h"

#include <algorithm>

#include "platform/text.h"
#include "values/arrays/element_position.h"

namespace halyard {
namespace {

constexpr std::uint32_t kLengthBytes = 2;

// What PacketSize counts besides the texts. Only 4 of the 8 bytes are ever written.
constexpr std::uint32_t kVariableBytes = 8;
constexpr std::uint32_t kFixedBytes = 4;

// The length of a text with its zero byte, cut to 16 bits as in every file so far.
std::uint16_t EncodedLength(const std::string& text) noexcept {
  return static_cast<std::uint16_t>(text.size() + 1);
}

}  // namespace

HRESULT StringArray::get_Item(VARIANT vIndex, VARIANT* pvValue) {
  return Call("Item", [&] {
    HandOut(pvValue, [&] {
      const std::uint32_t position = ElementPosition(vIndex, [&] { return texts_.size(); });
      return Variant(Widen(TextAt(position)));
    });
  });
}

HRESULT StringArray::put_Item(VARIANT vIndex, VARIANT vValue) {
  return Call("Item", [&] { Store(ElementPosition(vIndex, [&] { return texts_.size(); }), vValue); });
}

HRESULT StringArray::get_Count(LONG* pnCount) {
  return Call("Count", [&] { Out(pnCount) = static_cast<LONG>(texts_.size()); });
}

HRESULT StringArray::Add(VARIANT vValue) {
  return Call("Add", [&] {
    if (FixedCount() != 0) return;
    // The text is there before its value, and stays, empty, where that does not convert.
    const std::uint32_t position = texts_.size();
    texts_.Append({});
    Store(position, vValue);
  });
}

HRESULT StringArray::Remove(VARIANT vIndex) {
  return Call("Remove", [&] {
    if (FixedCount() == 0) texts_.Erase(ElementPosition(vIndex, [&] { return texts_.size(); }));
  });
}

HRESULT StringArray::RemoveAll() {
  return Call("RemoveAll", [&] {
    if (FixedCount() == 0) texts_.Resize(0);
  });
}

HRESULT StringArray::Copy(IValueBase** ppCopy) {
  return Call("Copy", [&] {
    EmptyOut(ppCopy);
    const Ptr<StringArray> copy = NewObject<StringArray>();
    copy->type_ = type_;
    copy->texts_ = texts_;
    HandOut(ppCopy, Ptr<IValueBase>(copy));
  });
}

HRESULT StringArray::put_Info(IValueDefBase* pInfo) {
  return Call("Info", [&] {
    if (pInfo == nullptr) throw Error(E_POINTER, "an array needs a definition");
    if (type_) return;
    type_.TakeInterface(pInfo);
    const Ptr<IArrayDef> definition = type_.Definition();
    SHORT element_type = kInvalid;
    Check(definition->get_DataType(&element_type), definition);
    if (element_type == kString) {
      texts_.Resize(FixedCount());
    } else {
      type_.Drop();
    }
  });
}

HRESULT StringArray::get_PacketSize(ULONG* pdwSize) {
  return Call("PacketSize", [&] {
    ULONG& result = Out(pdwSize);
    const Ptr<IArrayDef> definition = type_.Definition();
    LONG fixed = 0;
    Check(definition->get_Count(&fixed), definition);
    const std::uint32_t counted =
        fixed == 0 ? texts_.size() : std::min(static_cast<std::uint32_t>(fixed), texts_.size());
    // Every text counts at least its length and a zero byte, whether it was ever stored
    // or not; what stored ones have beyond is added.
    std::uint32_t size = (fixed == 0 ? kVariableBytes : kFixedBytes) + counted * (kLengthBytes + 1);
    for (std::uint32_t i = texts_.NextMade(0); i < counted; i = texts_.NextMade(i + 1))
      size += EncodedLength(TextAt(i)) - std::uint32_t{1};
    result = size;
  });
}

HRESULT StringArray::BuildNumericArray(BSTR, VARIANT, unsigned char*, VARIANT_BOOL* pbResult) {
  return Call("BuildNumericArray", [&] { Out(pbResult) = VARIANT_FALSE; });
}

HRESULT StringArray::ReadNumericArray(BSTR, VARIANT, unsigned char*, VARIANT_BOOL* pbResult) {
  return Call("ReadNumericArray", [&] { Out(pbResult) = VARIANT_FALSE; });
}

bool StringArray::Decode(ReadCursor& cursor) {
  // The bytes do not depend on the definition, but it must be there and answer.
  const Ptr<IArrayDef> definition = type_.Definition();
  LONG fixed = 0;
  Check(definition->get_Count(&fixed), definition);
  std::uint32_t count = 0;
  if (!cursor.Take(count)) return false;
  texts_.Resize(count);
  for (std::uint32_t i = 0; i < count; ++i) {
    std::string text;
    if (!cursor.TakeText(text)) return false;
    text.resize(std::min(text.size(), text.find('\0')));
    texts_.Make(i) = std::move(text);
  }
  return true;
}

bool StringArray::Encode(WriteCursor& cursor) const {
  // The bytes do not depend on the definition, but it must be there and answer.
  static_cast<void>(FixedCount());
  if (!cursor.Put(texts_.size())) return false;
  for (std::uint32_t i = 0; i < texts_.size(); ++i) {
    if (!cursor.PutText(TextAt(i), EncodedLength(TextAt(i)))) return false;
  }
  return true;
}

ULONG StringArray::FixedCount() const {
  const Ptr<IArrayDef> definition = type_.Definition();
  LONG count = 0;
  Check(definition->get_ElementCount(&count), definition);
  return static_cast<ULONG>(count);
}

const std::string& StringArray::TextAt(std::uint32_t position) const noexcept {
  static const std::string kNeverStored;
  const std::string* text = texts_.Find(position);
  return text != nullptr ? *text : kNeverStored;
}

void StringArray::Store(std::uint32_t position, const VARIANT& value) {
  const Variant text = Variant::Converted(value, VT_BSTR);
  std::string narrow = NarrowToZero(ViewOf(text->bstrVal));
  // A conversion may run code of the client's, which may have shortened the array.
  if (position >= texts_.size())
    throw Error(E_INVALIDARG, "the element was removed while its value was converted");
  texts_.Make(position) = std::move(narrow);
}

}  // namespace halyard
